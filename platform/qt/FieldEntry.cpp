#include "platform/qt/FieldEntry.h"

#include <QComboBox>
#include <QKeyEvent>

#include "platform/Text.h"

namespace qfr {

namespace {

constexpr QChar kFieldEnd = u';';

struct FieldEndFilter : QObject {
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        return (event->type() == QEvent::KeyPress &&
                static_cast<QKeyEvent*>(event)->text() == kFieldEnd) ||
               QObject::eventFilter(watched, event);
    }
};

}  // namespace

void TypeNoFieldEnd(QWidget& entry) {
    auto* const filter = new FieldEndFilter(&entry);
    entry.installEventFilter(filter);
    // A combo box hands its keys to its edit past the edit's filters.
    if (auto* const box = qobject_cast<QComboBox*>(entry.parentWidget())) {
        box->installEventFilter(filter);
    }
}

void KeepToOneField(QLineEdit& edit) {
    TypeNoFieldEnd(edit);
    QObject::connect(&edit, &QLineEdit::textEdited, &edit, [&edit](const QString& text) {
        const QString field = QString::fromStdString(EnteredField(text.toStdString()));
        if (field != text) {
            const int caret = edit.cursorPosition();
            edit.setText(field);
            edit.setCursorPosition(caret);
        }
    });
}

void KeepToOneFieldEach(const QWidget& window) {
    for (QLineEdit* const edit : window.findChildren<QLineEdit*>()) {
        if (edit->inputMask().isEmpty() && !edit->isReadOnly()) {
            KeepToOneField(*edit);
        }
    }
}

void FillEdit(QLineEdit& edit, const std::function<void()>& fill) {
    const bool whole = edit.hasSelectedText() ? edit.selectedText() == edit.displayText()
                                              : edit.hasFocus() && edit.displayText().isEmpty();
    fill();
    if (whole) {
        edit.end(false);
    }
    edit.home(whole);
}

}  // namespace qfr
