#include "app/BatchStatus.h"

#include <algorithm>
#include <span>
#include <string>

#include <QPainter>
#include <QStyle>

#include "platform/Text.h"

namespace qfr {

namespace {

constexpr int kNameLetters = 17;  // that there is room for of each file's name

// Shows the ends of a name that the status bar has no room for, so that the counts beside it stay
// whole.
class NameLabel : public QLabel {
  public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override {
        const QSize whole = QLabel::minimumSizeHint();
        return {std::min(whole.width(), kNameLetters * fontMetrics().averageCharWidth()),
                whole.height()};
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        if (width() >= sizeHint().width()) {
            QLabel::paintEvent(event);
            return;
        }
        QPainter painter(this);
        const QRect place = contentsRect();
        const QString caption = text().left(text().indexOf(' ', text().indexOf(':')) + 1);
        const QString name =
            fontMetrics().elidedText(text().mid(caption.size()), Qt::ElideMiddle,
                                     place.width() - fontMetrics().horizontalAdvance(caption));
        style()->drawItemText(&painter, place, Qt::AlignLeft | Qt::AlignVCenter, palette(),
                              isEnabled(), caption + name, foregroundRole());
    }
};

QString NameOrNone(const std::string& path) {
    return path.empty() ? QString("none") : QString::fromStdString(FileNameOnly(path));
}

std::array<QString, 5> TextsOf(const Batch& batch) {
    const std::span<const SampleRecord> records = SamplesOf(batch);
    const auto complete = std::ranges::count_if(
        records, [](const SampleRecord& record) { return !FirstEmptyField(record.Header); });
    return {"Lab blank: " + NameOrNone(batch.Files.LabBlank),
            QString("Samples: %1").arg(SamplesBesidesBlank(batch).size()),
            QString("Headers complete: %1 of %2").arg(complete).arg(records.size()),
            "Calibration: " + NameOrNone(batch.Files.Calib),
            "Check: " + NameOrNone(batch.Files.CheckCal)};
}

}  // namespace

BatchStatus::BatchStatus(QStatusBar& bar)
    : bar_(bar),
      labels_{new NameLabel(&bar), new QLabel(&bar), new QLabel(&bar), new NameLabel(&bar),
              new NameLabel(&bar)} {
    for (QLabel* const label : labels_) {
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
        labels_[i]->setText(texts[i]);
        labels_[i]->setToolTip(texts[i]);
        labels_[i]->setVisible(loaded);
    }
}

}  // namespace qfr
