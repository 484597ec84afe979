#include <gmock/gmock.h>

#include <QLabel>
#include <QStatusBar>

#include "app/MainForm.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const char* const kSaveQuestion =
    "There is file information which may\nneed to be saved. Save it now?";

std::string State(TQFRForm& form) {
    std::string state;
    for (const QLabel* const label : form.statusBar()->findChildren<QLabel*>()) {
        state += label->isVisible() ? label->text().toStdString() + "|" : "";
    }
    return state;
}

TEST(MainForm, ListsEveryCommandAndEnablesIt) {
    WindowRig rig;
    std::vector<std::string> captions;
    for (QAction* const top : rig.form.menuBar()->actions()) {
        captions.push_back(Plain(top->text()));
        for (QAction* const item :
             top->menu() != nullptr ? top->menu()->actions() : QList<QAction*>()) {
            captions.push_back((item->isEnabled() ? "  " : "- ") + Plain(item->text()));
        }
    }
    EXPECT_THAT(
        captions,
        ElementsAre("Data Files", "  Load Files", "  Save Batch", "  Restore Batch", "Forms",
                    "  Form 1 Volatile Organics Analysis",
                    "  Form 1 Tentative Identified Compounds",
                    "  Form 2 Monitoring Compound Recovery", "  Form 4 Method Blank Summary",
                    "  Form 5 Instrument Performance Check", "  Form 6 Initial Calibration Data",
                    "  Form 7 Cont. Cal. Data", "  Form 8 Internal Standard Summary", "Reports",
                    "  Select Printer", "Help", "About", "Exit"));
}

TEST(MainForm, EndsThroughTheExitSequenceOnly) {
    const struct {
        bool loaded;
        std::deque<bool> answers;
        std::deque<std::vector<std::string>> files;  // chosen in the save dialogs
        std::vector<std::string> messages;
    } cases[] = {
        {false, {}, {}, {}},
        {true, {false}, {}, {kSaveQuestion}},
        {true, {true}, {}, {kSaveQuestion}},
        {true, {true}, {{"saved.qff"}}, {kSaveQuestion, "File information saved."}},
        {true, {true}, {{"no/such/a.qff"}}, {kSaveQuestion, "a.qff could not be written."}},
        {true,
         {true},
         {{"no/such/a.qff"}, {"saved.qff"}},
         {kSaveQuestion, "a.qff could not be written.", "File information saved."}},
    };
    for (const auto& test : cases) {
        for (const bool byCloseBox : {false, true}) {
            WindowRig rig;
            if (test.loaded) {
                rig.form.Batch().SampleList.emplace(1);
            }
            rig.log.answers = test.answers;
            bool saved = false;
            for (const auto& files : test.files) {
                rig.chooser.answers.push_back({rig.Path(files.front())});
                saved = files.front() == "saved.qff";
            }
            if (byCloseBox) {
                rig.form.close();
                rig.form.close();  // the toolkit closes what is open when it ends
            } else {
                rig.Item("Exit").trigger();
            }
            EXPECT_EQ(rig.quits, 1);
            std::vector<std::string> messages;
            for (const Message& message : rig.log.shown) {
                messages.push_back(message.text);
            }
            EXPECT_EQ(messages, test.messages);
            EXPECT_EQ(rig.Read("saved.qff").substr(0, 9), saved ? "QFRForms\n" : "(no file)");
        }
    }
}

TEST(MainForm, SavesAndRestoresABatchWithItsState) {
    WindowRig rig;
    EXPECT_EQ(State(rig.form), "");
    rig.chooser.answers = {{Example("example.qff")}, {rig.Path("copy.qff")}};
    QTest::keyClick(&rig.form, Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(State(rig.form),
              "Lab blank: vblk01.prn|Samples: 9 (headers complete: 10 of 10)|"
              "Calibration: voa0516.cal|Check: vstd050c.check|");
    EXPECT_EQ(WindowRig::In<QLineEdit>(rig.Files(), "LibFileEdit").text(), "tqwvoa42.lib");
    EXPECT_EQ(WindowRig::In<QListWidget>(rig.Files(), "QFilesList").count(), 9);

    QTest::keyClick(&rig.form, Qt::Key_S, Qt::ControlModifier);
    QFile original(QString::fromStdString(Example("example.qff")));
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    EXPECT_EQ(rig.Read("copy.qff"), original.readAll().toStdString());
    ASSERT_EQ(rig.log.shown.size(), 1U);
    EXPECT_EQ(rig.log.shown[0].title, "");
    EXPECT_EQ(rig.log.shown[0].icon, MessageIcon::kInformation);
    EXPECT_EQ(rig.chooser.opened.at(0).filter, 4);
    EXPECT_EQ(rig.chooser.opened.at(0).directory, "/batches");
    EXPECT_FALSE(rig.chooser.opened.at(0).multiSelect);
    EXPECT_EQ(rig.Read("QFRpaths.txt"),
              "/reports\n/calibrations\n/texts\n" + rig.dir.path().toStdString() + "\n");
}

TEST(MainForm, KeepsTheBatchWhenAFileCannotBeRestored) {
    WindowRig rig;
    rig.Write("other.txt", "something else\n");
    for (const std::string& file : {rig.Path("other.txt"), rig.dir.path().toStdString()}) {
        rig.form.Batch().SampleList.emplace(2);
        rig.form.Batch().Files.LabBlank = "blank.prn";
        rig.log.answers = {false};
        rig.chooser.answers = {{file}};
        rig.Item("Restore Batch").trigger();
        EXPECT_EQ(rig.log.shown.front().text, kSaveQuestion);
        EXPECT_EQ(rig.log.shown.back().title, "Improper File Type");
        EXPECT_EQ(rig.Samples().size(), 2U);
        EXPECT_EQ(rig.form.Batch().Files.LabBlank, "blank.prn");
    }
}

TEST(MainForm, AsksForFilesBeforeFormOne) {
    WindowRig rig;
    QTest::keyClick(&rig.form, Qt::Key_1, Qt::ControlModifier);
    ASSERT_EQ(rig.log.shown.size(), 1U);
    EXPECT_EQ(rig.log.shown[0].title, "Files Not Specified");
    EXPECT_TRUE(rig.form.isVisible());

    rig.form.Batch().Files.QFiles = {"a.prn"};
    QTest::keyClick(&rig.form, Qt::Key_1, Qt::ControlModifier);
    EXPECT_FALSE(rig.form.isVisible());
    EXPECT_TRUE(rig.Header().isVisible());
}

TEST(MainForm, HelpsAndChoosesThePrinter) {
    WindowRig rig;
    QTest::keyClick(&rig.form, Qt::Key_F1);
    EXPECT_THAT(rig.topics, ElementsAre(10));
    EXPECT_EQ(rig.log.shown.back().text, "The help file QFRHelp.chm could not be found.");
    QTest::keyClick(&rig.form, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(rig.setups, 1);
    EXPECT_TRUE(rig.form.Page().PrinterChosen);
}

}  // namespace
}  // namespace qfr::test
