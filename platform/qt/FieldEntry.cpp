#include "platform/qt/FieldEntry.h"

#include <utility>

#include <QComboBox>
#include <QKeyEvent>

#include "platform/Text.h"

namespace qfr {

namespace {

constexpr QChar kFieldEnd = u';';

struct FieldEndFilter : QObject {
    FieldEndFilter(QWidget& entry, std::function<void()> heard)
        : QObject(&entry), tell(std::move(heard)) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress ||
            static_cast<QKeyEvent*>(event)->text() != kFieldEnd) {
            return QObject::eventFilter(watched, event);
        }
        tell ? tell() : void();
        return true;
    }

    std::function<void()> tell;
};

}  // namespace

void TypeNoFieldEnd(QWidget& entry, const std::function<void()>& tell) {
    auto* const filter = new FieldEndFilter(entry, tell);
    entry.installEventFilter(filter);
    // A combo box hands its keys to its edit past the edit's filters.
    if (auto* const box = qobject_cast<QComboBox*>(entry.parentWidget())) {
        box->installEventFilter(filter);
    }
}

void KeepToOneField(QLineEdit& edit, const HearTyping& hear) {
    TypeNoFieldEnd(edit, [&edit, hear] { hear ? hear(edit, true) : void(); });
    QObject::connect(&edit, &QLineEdit::textEdited, &edit, [&edit, hear](const QString& text) {
        hear ? hear(edit, text.contains(kFieldEnd)) : void();
        const QString field = QString::fromStdString(EnteredField(text.toStdString()));
        if (field != text) {
            const int caret = edit.cursorPosition();
            edit.setText(field);
            edit.setCursorPosition(caret);
        }
    });
}

void KeepToOneFieldEach(const QWidget& window, const HearTyping& hear) {
    for (QLineEdit* const edit : window.findChildren<QLineEdit*>()) {
        if (edit->inputMask().isEmpty() && !edit->isReadOnly()) {
            KeepToOneField(*edit, hear);
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
