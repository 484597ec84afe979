#include <QLabel>
#include <QStatusBar>
#include <QTableWidget>

#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

struct PrintAllRig : WindowRig {
    // Presses the command's key, types into the dialog and closes the list of messages.
    void PrintAll(std::string_view keys) {
        sink.jobs.clear();
        list.clear();
        QTimer user;
        QObject::connect(&user, &QTimer::timeout, [&] {
            QWidget* const dialog = QApplication::activeModalWidget();
            if (dialog == nullptr || dialog->objectName() == "PrintAllProgress") {
                return;
            }
            Face(*dialog);
            if (const auto* const table = dialog->findChild<QTableWidget*>()) {
                for (int i = 0; i < table->rowCount() * table->columnCount(); ++i) {
                    list += table->item(i / 4, i % 4)->text().toStdString() + "|";
                }
            }
            Type(std::exchange(keys, "\r"));
        });
        user.start(5);
        Face(form);
        Press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    }
    // The jobs, and what the status bar says.
    std::string Done() const {
        const std::string titles = sink.jobs.size() > 2 ? "..." : "";
        return titles + sink.jobs.back().title + "|" +
               form.statusBar()->currentMessage().toStdString();
    }

    std::string list;
};

TEST(PrintAll, PrintsWhatIsCheckedByKeyboardAndListsRefusalsAtTheEnd) {
    PrintAllRig rig;
    rig.PrintAll("");
    EXPECT_THAT(rig.log.TakeTitles(), testing::ElementsAre("Files Not Specified"));
    rig.form.RestoreFile(Example("example.qff"));
    EXPECT_EQ(rig.Opened([&] { rig.Press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier); }),
              "Print All Forms");
    EXPECT_THAT(rig.topics, testing::ElementsAre(170));
    EXPECT_THAT(rig.log.TakeTitles(), testing::ElementsAre("Help"));
    EXPECT_TRUE(rig.setups == 0 && rig.sink.begun.empty());

    rig.PrintAll("&n&f &o&s &i");
    EXPECT_EQ(rig.Done(), "Form 1 VBLK01|Print All Forms: 1 of 1 job printed.");
    EXPECT_TRUE(rig.setups == 1 && rig.sink.finished && rig.list.empty());
    rig.sink.onlyShown = true;
    rig.PrintAll("&n&f &o&s &i");
    EXPECT_EQ(rig.Done(), "Form 1 VBLK01|Print All Forms: 1 of 1 job shown.");
    rig.sink.onlyShown = false;

    rig.form.Entries().Tune.SampleNo.clear();
    rig.sink.failing = "Form 6";
    rig.sink.finished = false;
    rig.PrintAll("\r");
    EXPECT_EQ(rig.Done(), "...Form 4 VBLK01|Print All Forms: 14 of 18 jobs printed.");
    EXPECT_EQ(rig.list,
              "Form V, instrument performance check||All Fields Are Required: Please enter a "
              "value.|No|Form VI, initial calibration data||Printer Error: The printer is "
              "stopped.|No|");
    EXPECT_TRUE(!rig.sink.finished && rig.log.shown.empty());
}

TEST(PrintAll, CanBeCancelledBetweenJobs) {
    PrintAllRig rig;
    rig.form.RestoreFile(Example("example.qff"));
    rig.chooses = false;
    rig.PrintAll("\r");
    EXPECT_TRUE(rig.sink.begun.empty()) << "the printer setup was cancelled";
    rig.chooses = true;
    rig.sink.onTake = [&] {
        if (rig.sink.jobs.size() == 1) {
            ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget(); }));
            rig.Face(*QApplication::activeModalWidget());
            EXPECT_EQ(rig.window->findChild<QLabel*>()->text(), "Form I VOA, VHBLK01\n2 of 18");
            rig.Type("\33");
        }
    };
    rig.PrintAll("\r");
    EXPECT_EQ(rig.Done(), "Form 1 VHBLK01|Print All Forms, cancelled: 2 of 18 jobs printed.");
    EXPECT_FALSE(rig.sink.finished);
}

}  // namespace
}  // namespace qfr::test
