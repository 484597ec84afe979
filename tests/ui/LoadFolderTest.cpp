// A folder, or files that are dropped, on their way into the batch.
#include <QDropEvent>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QTableWidget>

#include "data/FilesDlg.h"
#include "platform/Text.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

struct FolderRig : WindowRig {
    void LoadFolder(const std::string& folder) {
        Face(form);
        chooser.answers = {{folder}};
        Press(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    }
    // Drops files, full paths, onto the widget. Whether it takes them.
    static bool Drop(QWidget& target, const std::vector<std::string>& files) {
        QMimeData dragged;
        QList<QUrl> urls = {QUrl("http://laboratory/ZA103.PRN")};
        for (const std::string& file : files) {
            urls << QUrl::fromLocalFile(QString::fromStdString(file));
        }
        dragged.setUrls(urls);
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
        QApplication::sendEvent(&target, &enter);
        QDropEvent drop({9, 9}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
        QApplication::sendEvent(&target, &drop);
        QTest::qWait(0);
        return enter.isAccepted();
    }
    // The base names in the list of the files to look at, which is closed then.
    static std::string TakeTold() {
        std::string names;
        if (auto* const told = QApplication::activeModalWidget()) {
            auto& table = *told->findChild<QTableWidget*>("ToldFilesTable");
            for (int row = 0; row < table.rowCount(); ++row) {
                names += table.item(row, 0)->text().toStdString() + " ";
            }
            told->close();
            QTest::qWait(0);
        }
        return names;
    }

    TFilesDlg& dialog = Find<TFilesDlg>("TFilesDlg");
    QListWidget& list = *dialog.findChild<QListWidget*>("QFilesList");
};

TEST(LoadFolder, ProposesWhatAFolderHoldsAndTakesItWithOk) {
    FolderRig rig;
    const Batch empty = rig.form.Batch();
    rig.form.Flags().Form8DataReady = true;
    for (const bool taken : {false, true}) {
        rig.LoadFolder(Example(""));
        EXPECT_EQ(rig.chooser.saved.at(0).directory, "/reports");
        EXPECT_EQ(rig.TakeTold(), "");
        EXPECT_TRUE(rig.dialog.isVisible() && !rig.form.isVisible());
        rig.Face(rig.dialog);
        EXPECT_THAT(rig.Shown("LabBlankEdit", "CalibEdit", "CheckCalEdit"),
                    testing::MatchesRegex(".*vblk01.prn.*voa0516.cal.*vstd050c.check"));
        EXPECT_EQ(rig.list.count(), 9);
        EXPECT_THAT(rig.Get<QLabel>("ProposalLabel").text().toStdString(),
                    testing::StartsWith("Found: the lab blank, 9 samples, the calibration report "
                                        "and the check report."));
        EXPECT_EQ(rig.form.Batch(), empty);
        EXPECT_TRUE(rig.form.Flags().Form8DataReady);
        rig.Type(taken ? "\r" : "\33");
        EXPECT_TRUE(!rig.dialog.isVisible() && rig.form.isVisible());
    }
    EXPECT_EQ(rig.Samples().size(), 10U);
    EXPECT_FALSE(rig.form.Flags().Form8DataReady);
    EXPECT_THAT(rig.Read("QFRpaths.txt"), testing::StartsWith(TextOf(ExampleDir())));

    rig.Face(rig.form);
    rig.Type("^O");
    EXPECT_EQ(rig.list.count(), 9);
    rig.Face(rig.dialog);
    EXPECT_FALSE(rig.Get("CancelButton").isVisible() || rig.Get("ProposalLabel").isVisible());
    rig.Type("\33");  // takes what shows, as ever
    EXPECT_EQ(rig.Samples().size(), 10U);
}

TEST(LoadFolder, ChangesAProposalAsTheDialogChangesABatch) {
    FolderRig rig;
    rig.form.RestoreFile(Example("example.qff"));  // with the reports' paths on another machine
    rig.LoadFolder(Example(""));
    EXPECT_THAT(rig.log.TakeTexts(),
                testing::ElementsAre("All reports there are in the batch already."));
    EXPECT_TRUE(rig.form.isVisible());
    DeleteQuantReports(rig.form.Batch(), {0, 1});
    rig.form.Batch().Files.CheckCal = "c:\\old.check";
    const Batch before = rig.form.Batch();
    rig.LoadFolder(Example(""));
    rig.Face(rig.dialog);
    EXPECT_THAT(rig.Get<QLabel>("ProposalLabel").text().toStdString(),
                testing::StartsWith("Added to the loaded batch: 2 samples and the "
                                    "check report in place of old.check."));
    rig.list.setCurrentRow(0);
    rig.Click("DeleteButton");
    rig.Enter("CheckCalEdit", "c.check");
    EXPECT_EQ(rig.form.Batch(), before);
    rig.Type("&o");
    EXPECT_EQ(rig.Samples().size(), 9U);  // of 8, with 2, without 1
    EXPECT_EQ(rig.form.Batch().Files.CheckCal, "c.check");

    rig.LoadFolder(Example(""));
    rig.Face(rig.dialog);
    rig.log.answers = {false};
    rig.Click("ClearAllButton");
    EXPECT_EQ(rig.list.count(), 0);
    rig.Type("\33");
    EXPECT_FALSE(rig.form.Batch().SampleList);
}

TEST(LoadFolder, RestoresABatchFileThatIsDropped) {
    FolderRig rig;
    EXPECT_FALSE(rig.Drop(rig.form, {}));
    EXPECT_TRUE(rig.Drop(rig.form, {Example("example.qff")}));
    EXPECT_EQ(rig.Samples().size(), 10U);
    EXPECT_TRUE(rig.form.isVisible());
    EXPECT_THAT(rig.Read("QFRpaths.txt"), testing::EndsWith(TextOf(ExampleDir()) + "\n"));
    rig.log.answers = {false};  // whether to save that batch first
    rig.Drop(rig.form, {Example("example.qff")});
}

TEST(LoadFolder, ProposesFilesThatAreDropped) {
    const TempDir dir;
    const std::string text = dir.Write("text.prn", "no report");
    FolderRig rig;
    rig.Drop(rig.form, {text, TextOf(dir.Path() / "none")});
    EXPECT_EQ(rig.TakeTold(), "none text.prn ");
    EXPECT_TRUE(rig.form.isVisible()) << "there is nothing to propose";
    rig.Drop(rig.form, {Example("VOA0516.CAL"), text});
    EXPECT_FALSE(rig.Drop(rig.dialog, {text})) << "a list is above it";
    EXPECT_EQ(rig.TakeTold(), "text.prn ");
    EXPECT_TRUE(rig.dialog.isVisible());
    // What is dropped on the proposal adds to it; reports alone are taken one by one, as ever.
    rig.Drop(*rig.list.viewport(), {Example("VSTD050C.CHECK")});
    EXPECT_EQ(rig.TakeTold(), "") << "nothing new";
    EXPECT_THAT(rig.dialog.findChild<QLabel*>("ProposalLabel")->text().toStdString(),
                testing::StartsWith("Found: the calibration report and the check report."));
    const std::string notes = dir.Write("notes.txt", "no report");
    rig.Drop(rig.dialog, {Example("ZA101.PRN"), notes, text});
    EXPECT_EQ(rig.TakeTold(), "text.prn notes.txt ");
    rig.Drop(rig.dialog, {TextOf(dir.Path() / "none")});
    EXPECT_EQ(rig.TakeTold(), "text.prn notes.txt none ") << "nothing was proposed";
    rig.dialog.findChild<QAbstractButton*>("ToldButton")->click();
    EXPECT_EQ(rig.TakeTold(), "text.prn notes.txt none ");
    rig.list.setCurrentRow(0);
    EXPECT_THAT(rig.dialog.findChild<QLabel*>("ProposalLabel")->text().toStdString(),
                testing::StartsWith("Found: 1 sample, the calibration"));
    rig.dialog.findChild<QAbstractButton*>("DeleteButton")->click();
    EXPECT_THAT(rig.dialog.findChild<QLabel*>("ProposalLabel")->text().toStdString(),
                testing::StartsWith("Found: the calibration"));
    rig.Drop(rig.dialog, {text});
    EXPECT_EQ(rig.log.TakeTexts().size(), 1U);
    rig.Face(rig.dialog);
    EXPECT_THAT(rig.Shown("CalibEdit", "CheckCalEdit"),
                testing::MatchesRegex(".*voa0516.cal.*vstd050c.check"));
    rig.Click("CancelButton");
    EXPECT_EQ(rig.form.Batch(), Batch());
}

TEST(LoadFolder, ListsAFileOnceWithAllThatIsToldOfIt) {
    FolderRig rig;
    const std::string whole = ReadAll(Example("ZA101.PRN"));
    rig.dir.Write("1.prn", whole);
    rig.dir.Write("2.prn", whole.substr(0, whole.find("Internal Standard Data")));
    rig.Drop(rig.form, {rig.Path("1.prn"), rig.Path("2.prn")});
    EXPECT_EQ(rig.TakeTold(), "2.prn ");
    const std::vector<ToldFile> told = {{"a", "1."}, {"b", "1."}, {"a", "2."}, {"a", "1."}};
    EXPECT_THAT(OncePerFile(told), testing::ElementsAre(ToldFile{"a", "1. 2."}, told[1]));
}

}  // namespace
}  // namespace qfr::test
