// An entry dialog on the program's doubles, used through the keyboard.
#pragma once

#include <functional>

#include <QTimer>

#include "tests/ui/WindowRig.h"

namespace qfr::test {

template <typename Dialog>
struct DialogRig : WindowRig {
    // Runs the dialog for a user, who closes it.
    template <typename... Arguments>
    bool Run(const std::function<void()>& user, Arguments... arguments) {
        QTimer::singleShot(0, &dialog, [&] {
            Await(dialog);
            user();
            if (dialog.isVisible()) {
                ADD_FAILURE() << "the dialog is still open";
                dialog.reject();
            }
        });
        return dialog.Run(arguments...);
    }

    // The name of the control that has the focus, also while one of its cells is typed in.
    std::string Focus() const {
        const QWidget* control = dialog.focusWidget();
        while (control->objectName().isEmpty() || control->objectName().startsWith("qt_")) {
            control = control->parentWidget();
        }
        return control->objectName().toStdString();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(dialog.focusWidget(), key, modifiers);
        // A mnemonic presses its button for a while.
        QTest::qWait(modifiers == Qt::AltModifier ? 150 : 0);
    }
    void Press(QKeySequence::StandardKey keys) { QTest::keySequence(dialog.focusWidget(), keys); }
    void Type(const char* text) { QTest::keyClicks(dialog.focusWidget(), text); }
    // Types entries and goes on from each with Tab.
    void TypeAlong(std::initializer_list<const char*> texts) {
        for (const char* const text : texts) {
            Type(text);
            Press(Qt::Key_Tab);
        }
    }
    template <typename Control>
    Control& Get(const char* name) {
        return In<Control>(dialog, name);
    }
    // The texts of the messages shown since the last call.
    std::vector<std::string> Told() {
        std::vector<std::string> texts;
        for (const Message& message : std::exchange(log.shown, {})) {
            texts.push_back(message.text);
        }
        return texts;
    }

    Dialog dialog{form, form};
};

}  // namespace qfr::test
