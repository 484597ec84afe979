// The program's windows on doubles: nobody sits before them, and nothing is printed.
#pragma once

#include <deque>
#include <optional>
#include <vector>

#include "app/MainForm.h"
#include "platform/FileLookup.h"
#include "platform/qt/QtTextMetrics.h"
#include "tests/FormSupport.h"
#include "tests/ui/WindowUser.h"

namespace qfr::test {

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

struct WindowRig : WindowUser {
    WindowRig() {
        dir.Write("QFRpaths.txt", "/reports\n/calibrations\n/texts\n/batches\n");
        form.show();
        Face(form);
    }

    std::string Path(const std::string& name) const { return TextOf(dir.Path() / name); }
    std::string Read(const std::string& name) const { return ReadAll(dir.Path() / name); }
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
    FormFonts fonts;
    QtTextMetrics metrics{fonts};
    JobLog sink;
    SettingsDir settings{dir.Path(), dir.Path()};
    int quits = 0;
    int setups = 0;
    bool chooses = true;  // does not cancel the printer setup
    std::vector<int> topics;
    TQFRForm form{{.Messages = log,
                   .Chooser = chooser,
                   .Metrics = metrics,
                   .Sink = sink,
                   .Packages = sink,
                   .Settings = settings,
                   .ShowPrinterSetup = [this](TPrinter&) { return ++setups > 0 && chooses; },
                   .Quit = [this] { ++quits; },
                   .OpenHelp = [this](int topic) { return OpenHelp(topic); }}};
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
