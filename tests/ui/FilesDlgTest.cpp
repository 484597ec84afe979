#include <QListWidget>
#include <QMimeData>

#include "data/FilesDlg.h"
#include "platform/Text.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct FilesRig : WindowRig {
    FilesRig() { Open(); }
    void Open() {
        Face(form);
        Type("^O");
        Face(dialog);
    }
    void Choose(const char* button, const std::vector<std::string>& names) {
        chooser.answers.emplace_back();
        for (const std::string& name : names) {
            chooser.answers.back().push_back(Example(name));
        }
        Click(button);
    }
    std::vector<std::string> Recorded() {
        std::vector<std::string> names;
        for (const SampleRecord& record : form.Batch().SampleList.value_or(SampleListType())) {
            names.push_back(FileNameOnly(record.FileName));
        }
        return names;
    }

    TFilesDlg& dialog = Find<TFilesDlg>("TFilesDlg");
    QListWidget& list = *dialog.findChild<QListWidget*>("QFilesList");
};

TEST(FilesDlg, AssemblesABatch) {
    FilesRig rig;
    EXPECT_FALSE(rig.form.isVisible());
    rig.Choose("BrowseLabBlank", {"VBLK01.PRN"});
    rig.Choose("AddButton", {"ZA102.PRN", "ZA101.PRN", "VSTD005.D"});
    rig.Choose("BrowseCalibButton", {"VOA0516.CAL"});
    rig.Choose("BrowseChkCalButton", {"VSTD050C.CHECK"});
    EXPECT_EQ(rig.log.shown.size(), 1U) << "for the file that is no report";
    EXPECT_EQ(rig.list.count(), 2);
    EXPECT_EQ(rig.Shown("LibFileEdit", "SurrFileEdit", "CalFileEdit"),
              "|tqwvoa42.lib|voais42.ist|voa0516.cal");
    EXPECT_THAT(rig.Shown("LabBlankEdit", "CalibEdit", "CheckCalEdit"),
                testing::MatchesRegex(".*vblk01.prn.*voa0516.cal.*vstd050c.check"));

    rig.list.setFocus();
    rig.Type("\r");
    EXPECT_THAT(rig.Recorded(), ElementsAre("vblk01.prn", "za101.prn", "za102.prn"));
    EXPECT_FALSE(rig.dialog.isVisible());
    rig.Open();
    rig.Choose("AddButton", {"VHBLK01.PRN"});
    EXPECT_THAT(rig.Recorded(), ElementsAre("vblk01.prn", "vhblk01.prn", "za101.prn", "za102.prn"));
    rig.Enter("CheckCalEdit", "C:\\A;.CHECK");
    EXPECT_EQ(rig.form.Batch().Files.CheckCal, "C:\\A.CHECK") << "typed, it is taken as it is";
}

TEST(FilesDlg, TakesTheReportsOfADrag) {
    for (const auto& [name, accepted, taken] : {std::tuple("ZA101.PRN", true, true),
                                                {"VOA0516.CAL", false, false},
                                                {"%FF.prn", true, false}}) {
        FilesRig rig;
        QMimeData files;
        files.setUrls({QUrl("http://laboratory/ZA103.PRN"),
                       QUrl::fromLocalFile(QString::fromStdString(Example("."))),
                       QUrl("file://" + QString::fromStdString(Example(name)))});
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &files, Qt::LeftButton, {});
        QApplication::sendEvent(rig.list.viewport(), &enter);
        EXPECT_EQ(enter.isAccepted(), accepted);
        QDropEvent drop({9, 9}, Qt::CopyAction, &files, Qt::LeftButton, {});
        QApplication::sendEvent(rig.list.viewport(), &drop);
        QTest::qWait(0);
        EXPECT_EQ(rig.list.count(), taken ? 1 : 0);
        EXPECT_EQ(rig.log.TakeTexts().size(), accepted && !taken ? 1U : 0U);
    }
}

TEST(FilesDlg, StartsEachChoiceWhereItsKindOfFileWasLast) {
    const std::tuple<const char*, FileKind, const char*> cases[] = {
        {"BrowseLabBlank", FileKind::kQuantReport, "/reports"},
        {"AddButton", FileKind::kQuantReport, "/reports"},
        {"BrowseCalibButton", FileKind::kCalibration, "/calibrations"},
        {"BrowseChkCalButton", FileKind::kCheckReport, "/reports"}};
    for (const auto& [button, kind, directory] : cases) {
        SCOPED_TRACE(button);
        FilesRig rig;
        rig.form.Flags().Form8DataReady = true;
        rig.chooser.answers = {{"/new/x"}};
        rig.Click(button);
        EXPECT_FALSE(rig.form.Flags().Form8DataReady);
        const OpenRequest& request = rig.chooser.opened.back();
        EXPECT_TRUE(request.kind == kind && request.directory == directory);
        EXPECT_EQ(request.multiSelect, button == std::string("AddButton"));
        EXPECT_THAT(rig.Read("QFRpaths.txt"), testing::HasSubstr("/new\n"));
    }
}

TEST(FilesDlg, DeletesTheSelectedReportsAndTheirRecords) {
    FilesRig rig;
    rig.Choose("BrowseLabBlank", {"VBLK01.PRN"});
    rig.Choose("AddButton", {"ZA101.PRN", "ZA102.PRN", "ZA103.PRN"});
    rig.Type("\33");  // takes the files over as OK does
    rig.Open();
    for (const int row : {0, 2}) {
        QTest::mouseClick(rig.list.viewport(), Qt::LeftButton, Qt::ControlModifier,
                          rig.list.visualItemRect(rig.list.item(row)).center());
    }
    rig.Press(Qt::Key_Delete);
    EXPECT_THAT(rig.Recorded(), ElementsAre("vblk01.prn", "za102.prn"));
    rig.Click("DeleteButton");
    EXPECT_EQ(rig.list.count(), 1) << "nothing is selected";
}

TEST(FilesDlg, ClearsAllAfterOfferingToSave) {
    FilesRig rig;
    rig.Click("ClearAllButton");
    EXPECT_THAT(rig.log.shown, IsEmpty()) << "nothing to save yet";

    rig.Choose("AddButton", {"ZA101.PRN"});
    rig.dialog.close();
    rig.Open();
    rig.form.Flags() = {true, true, true};
    rig.form.Entries().Tune.Abundances[0] = "18.2";
    auto& labName = *rig.Find<QWidget>("TForm1Header").findChild<QLineEdit*>("Edit1");
    labName.setText("Fairhaven");
    rig.log.answers = {true};
    rig.chooser.answers = {{rig.Path("kept.qff")}};
    rig.Click("ClearAllButton");
    EXPECT_THAT(rig.Read("kept.qff"), testing::HasSubstr("za101.prn"));
    EXPECT_EQ(rig.list.count(), 0);
    EXPECT_EQ(rig.Shown("LibFileEdit"), "|");
    EXPECT_FALSE(rig.form.Batch().SampleList || rig.form.Flags().InitCalEntered);
    EXPECT_EQ(rig.form.Entries().Tune.Abundances[0], "");
    EXPECT_EQ(labName.text(), "");
}

}  // namespace
}  // namespace qfr::test
