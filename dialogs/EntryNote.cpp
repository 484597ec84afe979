#include "dialogs/EntryNote.h"

#include "dialogs/EntryGrid.h"
#include "dialogs/FieldRemarks.h"
#include "platform/DateTime.h"
#include "platform/qt/FieldEntry.h"
#include "platform/qt/MaskEdit.h"

namespace qfr {

namespace {

// While the year is being typed, it is not told yet.
QString NoteOn(const MaskEdit& edit) {
    constexpr std::size_t kYear = 6;  // in "mm/dd/yyyy"
    const std::string text = edit.MaskText();
    const bool whole = text.size() > kYear && text[kYear] != ' ';
    return QString::fromStdString(whole ? NoSuchDate(text).value_or("") : "");
}

}  // namespace

EntryNote::EntryNote(QWidget* parent) : QLabel(parent) {
    setWordWrap(true);
}

void EntryNote::Hear(const QWidget& window) {
    KeepToOneFieldEach(window,
                       [this](QLineEdit& edit, bool fieldEnd) { OnTyped(&edit, fieldEnd); });
    for (const EntryGrid* const grid : window.findChildren<EntryGrid*>()) {
        connect(grid, &EntryGrid::Typed, this, &EntryNote::OnTyped);
    }
    dates_ = window.findChildren<MaskEdit*>();
    for (MaskEdit* const date : dates_) {
        connect(date, &QLineEdit::textChanged, this, [this, date] { OnTyped(date, false); });
    }
}

void EntryNote::Forget() {
    hasFieldEnd_ = false;
    ShowNote();
}

void EntryNote::OnTyped(QLineEdit* edit, bool fieldEnd) {
    if (fieldEnd) {
        hasFieldEnd_ = true;
        at_ = edit;
    } else if (edit != at_) {
        hasFieldEnd_ = false;
    }
    ShowNote();
}

void EntryNote::ShowNote() {
    QString note = hasFieldEnd_ ? kNoFieldEnd : "";
    for (MaskEdit* const date : dates_) {
        const QString onDate = NoteOn(*date);
        Remark(*date, "date", onDate);
        note = note.isEmpty() ? onDate : note;
    }
    setText(note);
}

}  // namespace qfr
