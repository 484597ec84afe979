#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QToolTip>

#include "app/MainForm.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;

const char* const kSaveQuestion =
    "There is file information which may\nneed to be saved. Save it now?";

std::string State(TQFRForm& form) {
    std::string state = form.statusBar()->currentMessage().toStdString();
    for (const QLabel* const label : form.statusBar()->findChildren<QLabel*>()) {
        state += label->isVisible() ? label->text().toStdString() + "|" : "";
    }
    return state;
}

TEST(MainForm, EndsThroughTheExitSequenceOnly) {
    const char* const kNotWritten = "a.qff could not be written.";
    const char* const kSaved = "File information saved.";
    const char* const kLacking =
        "b.qff cannot be restored: it has\nno lab blank, no calibration report, no check report.";
    using Texts = std::vector<std::string>;
    // The answer, where there is something to save; the files chosen for it; what is told.
    const std::tuple<std::deque<bool>, Texts, Texts> cases[] = {
        {{}, {}, {}},
        {{false}, {}, {kSaveQuestion}},
        {{true}, {}, {kSaveQuestion}},
        {{true}, {"no/a.qff", "b.qff"}, {kSaveQuestion, kNotWritten, kSaved, kLacking}},
    };
    for (const auto& [answers, files, told] : cases) {
        WindowRig rig;
        if (!answers.empty()) {
            rig.form.Batch().SampleList.emplace(1);
        }
        rig.log.answers = answers;
        for (const std::string& file : files) {
            rig.chooser.answers.push_back({rig.Path(file)});
        }
        // By the menu's key, or by the close box.
        files.empty() ? rig.Type("^q") : void(rig.form.close());
        rig.form.close();  // the toolkit closes what is open when it ends
        EXPECT_EQ(rig.quits, 1);
        EXPECT_EQ(rig.log.TakeTexts(), told);
        EXPECT_EQ(rig.Read("b.qff").empty(), files.empty());
    }
}

TEST(MainForm, SavesAndRestoresABatchWithItsState) {
    WindowRig rig;
    EXPECT_EQ(State(rig.form), "");
    rig.form.statusBar()->showMessage("What was done");
    rig.chooser.answers = {{Example("example.qff")}, {rig.Path("copy.qff")}};
    rig.Type("^r");
    EXPECT_EQ(State(rig.form),
              "Lab blank: vblk01.prn|Samples: 9|Headers complete: 10 of 10|"
              "Calibration: voa0516.cal|Check: vstd050c.check|");

    rig.Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(rig.Read("copy.qff"), ReadAll(Example("example.qff")));
    EXPECT_EQ(rig.chooser.opened.at(0).kind, FileKind::kBatch);
    EXPECT_EQ(rig.chooser.opened.at(0).directory, "/batches");
    EXPECT_EQ(rig.chooser.saved.at(0).directory, TextOf(ExampleDir()));
}

TEST(MainForm, RestoresOverNothingOfAnotherBatch) {
    WindowRig rig;
    rig.form.RestoreFile(Example("example.qff"));
    EXPECT_TRUE(rig.form.Flags().InitCalEntered);
    rig.form.Flags() = {true, true, true};
    rig.Type("^1");  // the header dialog shows the first sample
    const std::string empty = "QFRForms\n\n\n\n/b.prn\n0\n/d.cal\n/d.check\n1\n/b.prn;1;\n\n0\n";
    rig.form.RestoreFile(rig.dir.Write("empty.qff", empty + "0\n\n;3;\n"));
    EXPECT_THAT(rig.log.TakeTitles(), testing::ElementsAre("Warning"));
    Entries soil;
    soil.Ranges.Limits = RecoveryLimits::kSoil;
    EXPECT_EQ(rig.form.Entries(), soil);
    const BatchFlags& flags = rig.form.Flags();
    EXPECT_FALSE(flags.InitCalEntered || flags.ContCalEntered || flags.Form8DataReady);
    auto& header = rig.Find<QWidget>("TForm1Header");
    EXPECT_EQ(header.findChild<QLineEdit*>("Edit1")->text(), "");
}

TEST(MainForm, ShowsTextsThatLookLikeMarkupAsTheyStand) {
    WindowRig rig;
    const std::string odd = "<img src=\"/dev/zero\">.prn";
    rig.form.RestoreFile(
        rig.dir.Write("odd.qff", "QFRForms\n\n\n\nx\\" + odd + "\n0\n/cal\n/check\n0\n"));
    auto& label = *rig.form.statusBar()->findChild<QLabel*>();
    EXPECT_EQ(label.toolTip().toStdString(), "Lab blank: " + odd);
    EXPECT_GT(label.sizeHint().width(), label.fontMetrics().horizontalAdvance(label.toolTip()));
    QToolTip::showText({}, label.toolTip(), &label);  // main.cpp looks at its label
    EXPECT_TRUE(QToolTip::isVisible());
    QToolTip::hideText();
}

TEST(MainForm, OpensTheOneBatchItWasStartedWith) {
    TempDir folder;
    folder.Write("-Größe.qff", ReadAll(Example("example.qff")));
    const std::string text = folder.Write("notes.txt", "QFRForms \n");
    const auto before = fs::current_path();
    fs::current_path(folder.Path());
    using Texts = std::vector<std::string>;
    // The arguments; whether a batch is restored; the texts that are told.
    const std::tuple<Texts, bool, Texts> cases[] = {
        {Texts(), false, {}},
        {{"-Größe.qff"}, true, {}},
        {{""}, false, {" is not a\nQFRForm saved file."}},
        {{text}, false, {text + " is not a\nQFRForm saved file."}},
        {{"-Größe.qff", text}, false, {"Only one batch can be opened at a time."}},
    };
    for (const auto& [arguments, restored, told] : cases) {
        WindowRig rig;
        rig.form.OpenArguments(arguments);
        EXPECT_EQ(State(rig.form).empty(), !restored);
        EXPECT_EQ(rig.log.TakeTexts(), told);
        EXPECT_THAT(rig.Read("QFRpaths.txt"),
                    testing::EndsWith(restored ? TextOf(folder.Path()) + "\n" : "/batches\n"));
    }
    fs::current_path(before);
}

TEST(MainForm, OpensEachFormByItsKey) {
    WindowRig rig;
    rig.Type("^1");
    EXPECT_EQ(rig.log.shown.back().title, "Files Not Specified");
    EXPECT_TRUE(rig.form.isVisible());

    rig.form.RestoreFile(Example("example.qff"));
    const std::tuple<const char*, const char*, int> dialogs[] = {
        {"^2", "Form 2 Advisory Recovery Ranges", 121},
        {"^4", "Method Blank Summary Comment", 122},
        {"^5", "Instrument Performance Check", 130},
        {"^6", "Initial Calibration Data", 140},
        {"^7", "Continuing Calibration Data Input", 150},
        {"^8", "Internal Standard Summary Input", 160},
        {"&a", "About QFRForms", 10}};
    for (const auto& [key, title, topic] : dialogs) {
        rig.Face(rig.form);
        EXPECT_EQ(rig.Opened([&rig, key = key] { rig.Type(key); }), title);
        EXPECT_EQ(rig.topics.back(), topic) << title;
    }
}

TEST(MainForm, TellsWhereTheLastFormsWentAndOpensThem) {
    WindowRig rig;
    rig.form.RestoreFile(Example("example.qff"));
    const auto noted = [&](const PrintedJobs& jobs) {
        rig.printed.Note(jobs);
        rig.Opened([&] { rig.Type("^4"); });
        rig.topics.clear();
        rig.log.TakeTexts();
        rig.Face(rig.form);
        return rig.Get<QLabel>("PrintedNote").text().toStdString();
    };
    const std::string file = rig.Path("one.pdf");
    EXPECT_EQ(noted({{"Form 4", "Form 5"}, "Lab"}), "2 forms sent to Lab");
    EXPECT_FALSE(rig.Get("OpenFileButton").isVisible());
    EXPECT_EQ(noted({{"Form 4"}, file, true}), "Form 4 saved as one.pdf");
    rig.Use("&i", "one.pdf is no longer where it was saved.");
    rig.dir.Write("one.pdf", "");
    rig.Use("&i&n");
    EXPECT_THAT(rig.handedOver, testing::ElementsAre("open " + file, "show " + file));
    rig.opens = false;
    rig.Use("&i", "No program was found that shows\n" + file + ".");
    rig.form.RestoreFile(Example("example.qff"));
    EXPECT_FALSE(rig.Get("OpenFileButton").isVisible()) << "nothing of this batch is printed yet";
}

TEST(MainForm, PrintsWhereAnyOfItsDropDownsSays) {
    WindowRig rig;
    rig.form.RestoreFile(Example("example.qff"));
    const auto& target = rig.Get<QComboBox>("PrintToCombo");
    EXPECT_EQ(target.currentText(), "Ask first");
    rig.Type("^1");
    rig.Face(WindowRig::Find<QWidget>("TForm1Header"));
    EXPECT_EQ(rig.listings, 0) << "the print service may be slow";
    rig.Get("Button2").setFocus();  // the first one below
    rig.Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(rig.Focus(), "PrintToCombo");
    rig.Press(Qt::Key_End);
    EXPECT_EQ(rig.Shown("PrintToCombo"), "|Screen preview");
    EXPECT_EQ(target.currentText(), "Screen preview");
    rig.Press(Qt::Key_Up);
    rig.Type("&p");
    EXPECT_EQ(rig.form.Page().Printer().PrinterIndex, 1);
    EXPECT_TRUE(rig.setups == 0 && rig.sink.begun.size() == 1);
    rig.window->close();
    rig.Face(rig.form);
    rig.form.Page().Printer().PrinterIndex = 0;  // as the printer setup would
    rig.Press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(rig.setups, 1);
    EXPECT_EQ(target.currentText(), "Lab");
}

TEST(ControlNames, TellTheControlsOfEveryWindowApart) {
    const WindowRig rig;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        window->setVisible(qobject_cast<QDialog*>(window) != nullptr);
        QStringList once;  // names with descriptions, and mnemonics
        for (QWidget* const control : window->findChildren<QWidget*>()) {
            const auto* const label = qobject_cast<QLabel*>(control);
            const bool shown = window->isVisible() && control->window() == window;
            const QString key = control->property("text").toString().section('&', 1).left(1);
            if (shown && !key.isEmpty() && (label == nullptr || label->buddy() != nullptr)) {
                once << key.toLower();
            }
            if (shown && !control->focusProxy() && (control->focusPolicy() & Qt::TabFocus) != 0) {
                const auto* const told = QAccessible::queryAccessibleInterface(control);
                EXPECT_FALSE(told->text(QAccessible::Name).isEmpty()) << control;
                once << told->text(QAccessible::Name) + told->text(QAccessible::Description);
            }
        }
        EXPECT_EQ(once.removeDuplicates(), 0) << once.join('|').toStdString();
    }
}

}  // namespace
}  // namespace qfr::test
