// Somebody before one of the program's windows; and those on doubles, where nothing is printed.
#pragma once

#include <array>
#include <deque>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMetaProperty>
#include <QTest>
#include <QTimer>

#include "app/MainForm.h"
#include "platform/FileLookup.h"
#include "tests/Support.h"

namespace qfr::test {

// The screens of the tests, in order: the usual one, 1280 x 800 at 150 %, and 1024 x 768.
inline constexpr std::array kScreens = {QSize(1280, 1024), QSize(853, 533), QSize(1024, 768)};

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

// Answers the file dialogs in order; without an answer the user cancels.
class ChooserScript : public FileChooser {
  public:
    std::optional<ChosenFiles> Open(const OpenRequest& request) override {
        opened.push_back(request);
        return Answer(request.kind);
    }
    std::optional<ChosenFiles> Save(const SaveRequest& request) override {
        saved.push_back(request);
        return Answer(FileKind::kBatch);
    }
    std::optional<std::string> Folder(const std::string& directory) override {
        const auto chosen = Save({SaveKind::kValues, directory, "folder"});
        return chosen ? std::optional(chosen->files.front()) : std::nullopt;
    }

    std::deque<std::vector<std::string>> answers;
    std::vector<OpenRequest> opened;
    std::vector<SaveRequest> saved;

  private:
    std::optional<ChosenFiles> Answer(FileKind kind) {
        if (answers.empty()) {
            return std::nullopt;
        }
        ChosenFiles chosen{answers.front(), kind};
        answers.pop_front();
        return chosen;
    }
};

inline std::string Example(const std::string& name) {
    return TextOf(ExampleDir() / name);
}

// Something else is done the next time a text is measured.
struct InterruptedMetrics : TimesMetrics {
    int TextWidth(std::string_view utf8, int points) override {
        if (const auto act = std::exchange(onMeasure, nullptr)) {
            act();
        }
        return TimesMetrics::TextWidth(utf8, points);
    }
    std::function<void()> onMeasure;
};

struct WindowRig : WindowUser {
    WindowRig() {
        dir.Write("QFRpaths.txt", "/reports\n/calibrations\n/texts\n/batches\n");
        form.show();
        Face(form);
    }

    std::string Path(const std::string& name) const { return TextOf(dir.Path() / name); }
    std::string Read(const std::string& name) const { return ReadAll(dir.Path() / name); }
    bool HandOver(const std::string& how, const std::string& file) {
        handedOver.push_back(how + file);
        return opens;
    }
    bool OpenHelp(int topic) {
        topics.push_back(topic);
        return false;
    }
    // Types; only this is told then, and the focus is there.
    void Use(std::string_view keys, const std::string& told = "", const std::string& focus = "") {
        SCOPED_TRACE(keys);
        Type(keys);
        std::string texts;
        for (const std::string& text : log.TakeTexts()) {
            texts += text;
        }
        EXPECT_EQ(texts, told);
        EXPECT_EQ(focus.empty() ? "" : Focus(), focus);
    }
    template <typename Window>
    static Window& Find(const char* name) {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == name) {
                return *static_cast<Window*>(widget);
            }
        }
        throw std::runtime_error(name);
    }
    SampleListType& Samples() { return form.Batch().SampleList.value(); }

    TempDir dir;
    MessageLog log;
    ChooserScript chooser;
    InterruptedMetrics metrics;
    JobLog sink;
    SettingsDir settings{dir.Path(), dir.Path()};
    Remembered memory{settings};
    PrintLog printed;
    int quits = 0;
    int setups = 0;
    int listings = 0;     // of the printers
    bool chooses = true;  // does not cancel the printer setup
    std::vector<int> topics;
    std::vector<std::string> printers{"Lab", "PDF file", "Screen preview"};
    std::vector<std::string> handedOver;  // to other programs
    std::string noted;                    // the last file that the desktop was told of
    bool opens = true;                    // there is one
    TQFRForm form{
        {.Messages = log,
         .Chooser = chooser,
         .Metrics = metrics,
         .Sink = sink,
         .Packages = sink,
         .Settings = settings,
         .Memory = memory,
         .Printed = printed,
         .ListPrinters =
             [this](TPrinter& printer) {
                 ++listings;
                 printer.Printers = printers;
             },
         .ShowPrinterSetup = [this](TPrinter&) { return ++setups > 0 && chooses; },
         .Quit = [this] { ++quits; },
         .OpenHelp = [this](int topic) { return OpenHelp(topic); },
         .OpenFile = [this](const std::string& file) { return HandOver("open ", file); },
         .ShowInFolder = [this](const std::string& file) { return HandOver("show ", file); },
         .NoteFile = [this](const std::string& file) { noted = file; }}};
};

// An entry dialog on the program's doubles; `kind` is which of those of one type.
template <typename Dialog, auto... kind>
struct DialogRig : WindowRig {
    // Runs the dialog, for a record of the sample list, for a user who closes it. True after OK.
    bool Run(std::size_t record, const std::function<void()>& user) {
        QTimer::singleShot(0, &dialog, [&] {
            Face(dialog);
            user();
            if (dialog.isVisible()) {
                ADD_FAILURE() << "the dialog is still open";
                dialog.reject();
            }
        });
        if constexpr (requires { dialog.Run(record); }) {
            return dialog.Run(record);
        } else {
            return dialog.Run(record, "ZA101");
        }
    }
    bool Run(const std::function<void()>& user) { return Run(0, user); }

    Dialog dialog{kind..., form, form};
};

}  // namespace qfr::test
