#include <gmock/gmock.h>

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
        Await(form);
        QTest::keyClick(&form, Qt::Key_O, Qt::ControlModifier);
        Await(dialog);
    }
    void Choose(const char* button, const std::vector<std::string>& names) {
        chooser.answers.emplace_back();
        for (const std::string& name : names) {
            chooser.answers.back().push_back(Example(name));
        }
        Click(dialog, button);
    }
    std::string Shown(const char* edit) {
        return FileNameOnly(In<QLineEdit>(dialog, edit).text().toStdString());
    }
    std::vector<std::string> Listed() {
        std::vector<std::string> names;
        for (int row = 0; row < list.count(); ++row) {
            names.push_back(FileNameOnly(list.item(row)->text().toStdString()));
        }
        return names;
    }
    std::vector<std::string> Recorded() {
        std::vector<std::string> names;
        for (const SampleRecord& record : form.Batch().SampleList.value_or(SampleListType())) {
            names.push_back(FileNameOnly(record.FileName));
        }
        return names;
    }

    TFilesDlg& dialog = Files();
    QListWidget& list = In<QListWidget>(dialog, "QFilesList");
};

TEST(FilesDlg, AssemblesABatch) {
    FilesRig rig;
    EXPECT_FALSE(rig.form.isVisible());
    rig.Choose("BrowseLabBlank", {"VBLK01.PRN"});
    rig.Choose("AddButton", {"ZA102.PRN", "ZA101.PRN", "VSTD005.D"});
    rig.Choose("BrowseCalibButton", {"VOA0516.CAL"});
    rig.Choose("BrowseChkCalButton", {"VSTD050C.CHECK"});
    EXPECT_THAT(rig.Listed(), ElementsAre("za101.prn", "za102.prn"));
    EXPECT_EQ(rig.Shown("LibFileEdit"), "tqwvoa42.lib");
    EXPECT_EQ(rig.Shown("SurrFileEdit"), "voais42.ist");
    EXPECT_EQ(rig.Shown("CalFileEdit"), "voa0516.cal");
    EXPECT_EQ(rig.Shown("LabBlankEdit"), "vblk01.prn");
    EXPECT_EQ(rig.Shown("CalibEdit"), "voa0516.cal");
    EXPECT_EQ(rig.Shown("CheckCalEdit"), "vstd050c.check");
    EXPECT_EQ(rig.log.shown.size(), 1U) << "for the file that is no report";
    EXPECT_THAT(rig.Recorded(), IsEmpty());

    rig.list.setFocus();
    QTest::keyClick(&rig.list, Qt::Key_Return);
    EXPECT_THAT(rig.Recorded(), ElementsAre("vblk01.prn", "za101.prn", "za102.prn"));
    EXPECT_FALSE(rig.dialog.isVisible());
    EXPECT_TRUE(rig.form.isVisible());

    rig.Open();
    rig.Choose("AddButton", {"VHBLK01.PRN"});
    EXPECT_THAT(rig.Recorded(), ElementsAre("vblk01.prn", "vhblk01.prn", "za101.prn", "za102.prn"));
}

TEST(FilesDlg, StartsEachChoiceWhereItsKindOfFileWasLast) {
    const struct {
        const char* button;
        int filter;
        const char* directory;
        bool multiSelect;
        const char* remembered;
    } cases[] = {
        {"BrowseLabBlank", 1, "/reports", false, "/new\n/calibrations\n/texts\n/batches\n"},
        {"AddButton", 1, "/reports", true, "/new\n/calibrations\n/texts\n/batches\n"},
        {"BrowseCalibButton", 2, "/calibrations", false, "/reports\n/new\n/texts\n/batches\n"},
        {"BrowseChkCalButton", 3, "/reports", false, "/new\n/calibrations\n/texts\n/batches\n"},
    };
    for (const auto& test : cases) {
        FilesRig rig;
        rig.form.Flags().Form8DataReady = true;
        WindowRig::Click(rig.dialog, test.button);
        EXPECT_TRUE(rig.form.Flags().Form8DataReady) << "cancelled";
        rig.chooser.answers = {{"/new/x"}};
        WindowRig::Click(rig.dialog, test.button);
        EXPECT_FALSE(rig.form.Flags().Form8DataReady);
        const OpenRequest& request = rig.chooser.opened.back();
        EXPECT_EQ(request.filter, test.filter) << test.button;
        EXPECT_EQ(request.directory, test.directory) << test.button;
        EXPECT_EQ(request.multiSelect, test.multiSelect) << test.button;
        EXPECT_EQ(rig.Read("QFRpaths.txt"), test.remembered) << test.button;
    }
}

TEST(FilesDlg, CannotBeLeftWithoutOk) {
    const std::function<void(TFilesDlg&)> ways[] = {
        [](TFilesDlg& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
        [](TFilesDlg& dialog) { dialog.close(); },
        [](TFilesDlg& dialog) {
            QTest::keyClick(&dialog, Qt::Key_O, Qt::AltModifier);
            QTest::qWait(150);
        },
    };
    for (const auto& leave : ways) {
        FilesRig rig;
        rig.Choose("AddButton", {"ZA101.PRN"});
        leave(rig.dialog);
        EXPECT_THAT(rig.Recorded(), ElementsAre("za101.prn"));
        EXPECT_FALSE(rig.dialog.isVisible());
        EXPECT_TRUE(rig.form.isVisible());
    }
}

TEST(FilesDlg, DeletesTheSelectedReportsAndTheirRecords) {
    FilesRig rig;
    rig.Choose("BrowseLabBlank", {"VBLK01.PRN"});
    rig.Choose("AddButton", {"ZA101.PRN", "ZA102.PRN", "ZA103.PRN"});
    rig.dialog.close();
    rig.Open();
    QTest::mouseClick(rig.list.viewport(), Qt::LeftButton, {},
                      rig.list.visualItemRect(rig.list.item(0)).center());
    QTest::mouseClick(rig.list.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      rig.list.visualItemRect(rig.list.item(2)).center());
    QTest::keyClick(&rig.list, Qt::Key_Delete);
    EXPECT_THAT(rig.Listed(), ElementsAre("za102.prn"));
    EXPECT_THAT(rig.Recorded(), ElementsAre("vblk01.prn", "za102.prn"));
    WindowRig::Click(rig.dialog, "DeleteButton");
    EXPECT_THAT(rig.Listed(), ElementsAre("za102.prn")) << "nothing is selected";
}

TEST(FilesDlg, TakesATypedCheckReportAsItIs) {
    FilesRig rig;
    auto& edit = WindowRig::In<QLineEdit>(rig.dialog, "CheckCalEdit");
    edit.setFocus();
    QTest::keyClicks(&edit, "C:\\A.CHECK");
    EXPECT_EQ(rig.form.Batch().Files.CheckCal, "C:\\A.CHECK");
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Backspace);
    EXPECT_EQ(rig.form.Batch().Files.CheckCal, "");
}

TEST(FilesDlg, ClearsAllAfterOfferingToSave) {
    FilesRig rig;
    WindowRig::Click(rig.dialog, "ClearAllButton");
    EXPECT_THAT(rig.log.shown, IsEmpty()) << "nothing to save yet";

    rig.Choose("AddButton", {"ZA101.PRN"});
    rig.dialog.close();
    rig.Open();
    rig.form.Flags() = {true, true, true};
    rig.form.Entries().Tune.Abundances[0] = "18.2";
    auto& labName = WindowRig::In<QLineEdit>(rig.Header(), "Edit1");
    labName.setText("Fairhaven");
    rig.log.answers = {true};
    rig.chooser.answers = {{rig.Path("kept.qff")}};
    WindowRig::Click(rig.dialog, "ClearAllButton");
    EXPECT_NE(rig.Read("kept.qff").find("za101.prn"), std::string::npos);
    EXPECT_THAT(rig.Listed(), IsEmpty());
    EXPECT_THAT(rig.Shown("LibFileEdit"), "");
    EXPECT_FALSE(rig.form.Batch().SampleList);
    EXPECT_FALSE(rig.form.Flags().InitCalEntered || rig.form.Flags().ContCalEntered);
    EXPECT_EQ(rig.form.Entries().Tune.Abundances[0], "");
    EXPECT_EQ(labName.text(), "");
}

}  // namespace
}  // namespace qfr::test
