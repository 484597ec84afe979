// The Form 1 header dialog's samples: from one to the next, how they are marked, and what typing
// makes of their numbers.
#include <tuple>
#include <utility>

#include <QScopedValueRollback>
#include <QShortcut>

#include "dialogs/Form1Header.h"
#include "dialogs/HeaderMarks.h"
#include "platform/qt/MaskEdit.h"
#include "ui_Form1Header.h"

namespace qfr {

void TForm1Header::SetUpSteps() {
    Connect(ui_->UndoRenameButton, &TForm1Header::UndoRenameClick);
    Connect(ui_->GoToButton, &TForm1Header::GoToClick);
    const std::tuple<QPushButton*, QKeySequence, int> steps[] = {
        {ui_->PreviousButton, Qt::CTRL | Qt::Key_PageUp, -1},
        {ui_->NextButton, Qt::CTRL | Qt::Key_PageDown, 1}};
    for (const auto& [button, key, by] : steps) {
        button->setToolTip(key.toString(QKeySequence::NativeText));
        button->setAccessibleDescription(button->toolTip());
        const auto step = [this, count = by] { Step(count); };
        connect(button, &QPushButton::clicked, this, step);
        connect(new QShortcut(key, this), &QShortcut::activated, this, step);
    }
    // What is typed in stays there when these are clicked.
    for (QPushButton* const button :
         {ui_->PreviousButton, ui_->NextButton, ui_->UndoRenameButton, ui_->GoToButton}) {
        button->setFocusPolicy(Qt::TabFocus);
    }
}

void TForm1Header::ShowPlace() {
    const int count = ui_->FileComboBox->count();
    const int place = static_cast<int>(currentRecord_) + 1;
    ui_->PlaceLabel->setText(count > 0 ? QString("%1 of %2").arg(place).arg(count) : "");
    ui_->PreviousButton->setEnabled(place > 1);
    ui_->NextButton->setEnabled(place < count);
}

// As if it were chosen. An entry that would be typed over as a whole still is.
void TForm1Header::Step(int by) {
    const int record = static_cast<int>(currentRecord_) + by;
    if (record < 0 || record >= ui_->FileComboBox->count()) {
        return;
    }
    auto* const box = qobject_cast<QComboBox*>(focusWidget());
    QLineEdit* const edit = box != nullptr ? box->lineEdit() : nullptr;
    const bool whole = edit != nullptr && edit->selectedText() == edit->text();
    ui_->FileComboBox->setCurrentIndex(record);
    if (whole) {
        edit->selectAll();
    }
}

void TForm1Header::NoteRename(QComboBox* box) {
    const HeaderField field = *controls_.FieldOf(box);
    std::string before = Record() != nullptr ? Record()->Header[field] : "";
    const std::string after = controls_.Text(field);
    // Typed in two goes, it is one change.
    if (rename_ && rename_->Record == currentRecord_ && rename_->Field == field) {
        before = rename_->Before;
    }
    rename_.reset();
    if (!before.empty() && before != after) {
        rename_ = {currentRecord_, field, before, after};
    }
    ShowRename();
}

std::optional<int> TForm1Header::Namesake() const {
    const auto samples = SamplesOf(host_.Batch());
    for (std::size_t i = 0; rename_ && i < samples.size(); ++i) {
        if (i != rename_->Record && !rename_->After.empty() &&
            samples[i].Header[rename_->Field] == rename_->After) {
            return static_cast<int>(i);
        }
    }
    return std::nullopt;
}

void TForm1Header::ShowRename() {
    constexpr int kLetters = 60;
    const bool namesake = Namesake().has_value();
    QString said;
    if (rename_) {
        said = QString::fromStdString(
            (rename_->Field == HeaderField::kLabSampleId ? "Lab Sample ID " : "") +
            rename_->Before +
            (rename_->After.empty() ? " emptied" : " renamed to " + rename_->After) +
            (namesake ? ", as another sample is called" : ""));
    }
    const QFontMetrics metrics = ui_->RenameLabel->fontMetrics();
    ui_->RenameLabel->setText(
        metrics.elidedText(said, Qt::ElideMiddle, kLetters * metrics.averageCharWidth()));
    ui_->UndoRenameButton->setVisible(rename_.has_value());
    ui_->UndoRenameButton->setAccessibleDescription(said);
    ui_->GoToButton->setVisible(namesake);
    ui_->GoToButton->setAccessibleDescription(
        namesake ? "Takes the name back and shows " + QString::fromStdString(rename_->After) : "");
}

void TForm1Header::UndoRenameClick() {
    if (!rename_) {
        return;
    }
    const auto [record, field, before, after] = *std::exchange(rename_, std::nullopt);
    auto* const box = static_cast<QComboBox*>(controls_.Of(field));
    host_.Batch().SampleList->at(record).Header[field] = before;
    {
        const QScopedValueRollback loading(loading_, true);
        box->setItemText(static_cast<int>(record), QString::fromStdString(before));
        if (record == currentRecord_) {
            controls_.SetText(field, before);
        }
    }
    MarkRecord(record);
    if (ui_->UndoRenameButton->hasFocus() || ui_->GoToButton->hasFocus()) {
        box->setFocus();  // the buttons go
    }
    ShowRename();
}

void TForm1Header::GoToClick() {
    const std::optional<int> namesake = Namesake();
    UndoRenameClick();
    if (namesake) {
        ui_->FileComboBox->setCurrentIndex(*namesake);
    }
}

void TForm1Header::MarkRecord(std::size_t record) {
    MarkCompleteness({ui_->ZOVComboBox, ui_->LabComboBox, ui_->FileComboBox},
                     static_cast<int>(record), SamplesOf(host_.Batch())[record].Header);
}

// The marks have the colours of the palette.
void TForm1Header::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || !isVisible()) {
        return;
    }
    for (QWidget* const control : controls_.All()) {
        if (IsShownCarriedOver(*control)) {
            ShowCarriedOver(*control, true);
        }
    }
    for (int record = 0; record < ui_->FileComboBox->count(); ++record) {
        MarkRecord(static_cast<std::size_t>(record));
    }
}

}  // namespace qfr
