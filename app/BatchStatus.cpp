#include "app/BatchStatus.h"

#include <algorithm>
#include <span>
#include <string>

#include "platform/Text.h"

namespace qfr {

namespace {

// Letters that there is room for.
constexpr int kNameLetters = 17;   // of each file's name and its caption
constexpr int kCountLetters = 40;  // of each count: more than any has

QString NameOrNone(const std::string& path) {
    return path.empty() ? QString("none") : QString::fromStdString(FileNameOnly(path));
}

std::array<QString, 5> TextsOf(const Batch& batch) {
    const std::span<const SampleRecord> records = SamplesOf(batch);
    const auto complete = std::ranges::count_if(
        records, [](const SampleRecord& record) { return !FirstEmptyField(record.Header); });
    return {NameOrNone(batch.Files.LabBlank), QString::number(SamplesBesidesBlank(batch).size()),
            QString("%1 of %2").arg(complete).arg(records.size()), NameOrNone(batch.Files.Calib),
            NameOrNone(batch.Files.CheckCal)};
}

}  // namespace

BatchStatus::BatchStatus(QStatusBar& bar)
    : bar_(bar),
      labels_{new ElidedLabel("Lab blank: ", kNameLetters),
              new ElidedLabel("Samples: ", kCountLetters),
              new ElidedLabel("Headers complete: ", kCountLetters),
              new ElidedLabel("Calibration: ", kNameLetters),
              new ElidedLabel("Check: ", kNameLetters)} {
    for (ElidedLabel* const label : labels_) {
        label->setContentsMargins(6, 1, 6, 1);
        bar_.addWidget(label);
    }
}

void BatchStatus::Show(const Batch& batch) {
    const bool loaded = IsLoaded(batch);
    const std::array<QString, 5> texts = TextsOf(batch);
    // While a note shows in their place, they would show over it.
    bar_.clearMessage();
    for (std::size_t i = 0; i < labels_.size(); ++i) {
        labels_[i]->Show(texts[i]);
        labels_[i]->setVisible(loaded);
    }
}

}  // namespace qfr
