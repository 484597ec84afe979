// Somebody before one of the program's windows.
#pragma once

#include <functional>
#include <gmock/gmock.h>
#include <stdexcept>
#include <string>
#include <string_view>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMetaProperty>
#include <QTest>
#include <QTimer>

namespace qfr::test {

struct WindowUser {
    // Goes before the window, which has to show.
    void Face(QWidget& shown) {
        window = &shown;
        shown.activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &shown; }));
    }

    // Types where the focus is. "\t" is Tab, "\r" Enter, "\b" Backspace and "\33" Escape; "&x" is
    // Alt+X and "^x" Ctrl+X.
    void Type(std::string_view keys) {
        Qt::KeyboardModifier modifier = Qt::NoModifier;
        for (const char key : keys) {
            if (key == '&' || key == '^') {
                modifier = key == '&' ? Qt::AltModifier : Qt::ControlModifier;
                continue;
            }
            QTest::keyClick(Focused(), key, modifier);
            // A mnemonic presses its button for a while.
            QTest::qWait(modifier == Qt::AltModifier ? 150 : 0);
            modifier = Qt::NoModifier;
        }
        QTest::qWait(0);
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(Focused(), key, modifiers);
        QTest::qWait(0);
    }
    void Paste(const std::string& text) {
        QApplication::clipboard()->setText(QString::fromStdString(text));
        Type("^v");
    }
    // Types over what the entry holds.
    void Enter(const std::string& name, std::string_view keys) {
        Get(name).setFocus();
        Type("^a");
        Type(keys);
    }
    void Click(const std::string& name) {
        QTest::mouseClick(&Get(name), Qt::LeftButton);
        QTest::qWait(0);
    }

    template <typename Control = QWidget>
    Control& Get(const std::string& name) const {
        auto* const control = window->findChild<Control*>(QString::fromStdString(name));
        if (control == nullptr) {
            throw std::runtime_error(name);
        }
        return *control;
    }
    // What the entries show, each after a "|".
    template <typename... Names>
    std::string Shown(Names... names) const {
        return (ShownOne(names) + ...);
    }
    // The name of the control that has the focus, also while one of its cells is typed in.
    std::string Focus() const {
        const QWidget* control = Focused();
        while (control->objectName().isEmpty() || control->objectName().startsWith("qt_")) {
            control = control->parentWidget();
        }
        return control->objectName().toStdString();
    }
    // The title of the dialog that this opens. The user asks it for help and cancels it.
    static std::string Opened(const std::function<void()>& act) {
        std::string title;
        QTimer::singleShot(0, [&] {
            if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                title = dialog->windowTitle().toStdString();
                WindowUser user;
                user.Face(*dialog);
                user.Press(Qt::Key_F1);
                dialog->reject();
            }
        });
        act();
        return title;
    }

    QWidget* window = nullptr;

  private:
    QWidget* Focused() const {
        return window->focusWidget() != nullptr ? window->focusWidget() : window;
    }
    std::string ShownOne(const char* name) const {
        const QWidget& control = Get(name);
        return "|" + control.metaObject()->userProperty().read(&control).toString().toStdString();
    }
};

}  // namespace qfr::test
