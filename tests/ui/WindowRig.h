// The program's windows on doubles: nobody sits before them, and nothing is printed.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QTest>

#include "app/MainForm.h"
#include "platform/FileLookup.h"
#include "platform/qt/QtTextMetrics.h"
#include "tests/Support.h"

namespace qfr::test {

// Answers the file dialogs in order; without an answer the user cancels.
class ChooserScript : public FileChooser {
  public:
    std::optional<ChosenFiles> Open(const OpenRequest& request) override {
        opened.push_back(request);
        return Answer(request.filter);
    }
    std::optional<ChosenFiles> Save(const SaveRequest& request) override {
        saved.push_back(request);
        return Answer(1);
    }

    std::deque<std::vector<std::string>> answers;
    std::vector<OpenRequest> opened;
    std::vector<SaveRequest> saved;

  private:
    std::optional<ChosenFiles> Answer(int filter) {
        if (answers.empty() || answers.front().empty()) {
            return std::nullopt;
        }
        ChosenFiles chosen{answers.front(), filter};
        answers.pop_front();
        return chosen;
    }
};

class JobLog : public JobSink {
  public:
    bool BeginJob(int, const std::string&) override { return true; }
    void TakeJob(int, PrintJob job) override { jobs.push_back(std::move(job)); }
    std::vector<PrintJob> jobs;
};

inline std::string Example(const std::string& name) {
    return std::string(QFR_SOURCE_DIR) + "/example/" + name;
}

// A caption as the user sees it.
inline std::string Plain(QString caption) {
    return caption.remove('&').toStdString();
}

struct WindowRig {
    WindowRig() {
        Write("QFRpaths.txt", "/reports\n/calibrations\n/texts\n/batches\n");
        form.show();
        Await(form);
    }

    std::string Path(const std::string& name) const {
        return dir.filePath(QString::fromStdString(name)).toStdString();
    }
    void Write(const std::string& name, const char* content) const {
        QFile file(QString::fromStdString(Path(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    std::string Read(const std::string& name) const {
        QFile file(QString::fromStdString(Path(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(no file)";
    }

    static void Await(QWidget& window) {
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
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
    TFilesDlg& Files() { return Find<TFilesDlg>("TFilesDlg"); }
    TForm1Header& Header() { return Find<TForm1Header>("TForm1Header"); }
    template <typename Control>
    static Control& In(QWidget& window, const char* name) {
        auto* const control = window.findChild<Control*>(name);
        if (control == nullptr) {
            throw std::runtime_error(name);
        }
        return *control;
    }
    static void Click(QWidget& window, const char* button) {
        QTest::mouseClick(&In<QWidget>(window, button), Qt::LeftButton);
        QApplication::processEvents();
    }

    // The menu's item of this caption.
    QAction& Item(const std::string& caption) {
        for (QAction* const action : form.findChildren<QAction*>()) {
            if (Plain(action->text()) == caption) {
                return *action;
            }
        }
        throw std::runtime_error(caption);
    }
    SampleListType& Samples() { return form.Batch().SampleList.value(); }

    QTemporaryDir dir;
    MessageLog log;
    ChooserScript chooser;
    FormFonts fonts;
    QtTextMetrics metrics{fonts};
    JobLog sink;
    SettingsDir settings{PathOf(dir.path().toStdString()), PathOf(dir.path().toStdString())};
    int quits = 0;
    int setups = 0;
    std::vector<int> topics;
    TQFRForm form{{.Messages = log,
                   .Chooser = chooser,
                   .Metrics = metrics,
                   .Sink = sink,
                   .Settings = settings,
                   .ShowPrinterSetup = [this](TPrinter&) { ++setups; },
                   .Quit = [this] { ++quits; },
                   .OpenHelp =
                       [this](int topic) {
                           topics.push_back(topic);
                           return false;
                       }}};
};

}  // namespace qfr::test
