#include <gmock/gmock.h>

#include <QComboBox>
#include <QPushButton>

#include "dialogs/ARTSummForm.h"
#include "dialogs/ChkCalForm.h"
#include "dialogs/InitCalInput.h"
#include "platform/qt/MaskEdit.h"
#include "tests/ui/DialogRig.h"

namespace qfr::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kDateFormat = "Enter the date/time format as\n MM/DD/YYYY or HH:MI";
const std::string kRequired = "Please enter an appropriate value.";

TEST(InitCalInput, ShowsTheLevelsAndHandsTheDatesOn) {
    DialogRig<TInitCalInput> rig;
    Entries& entries = rig.form.Entries();
    entries.ContinuingCalibration.FirstStandard = "05/16/2005 09:41";
    rig.form.Calibration().LevelCount = 2;
    rig.Write("early.d", "DATA FILE\n5/15/2005 7:30\nc:\\data\\EARLY.D\n");
    rig.Write("other.d", "data file\n5/14/2005 7:30\nc:\\data\\OTHER.D\n");
    rig.chooser.answers = {{rig.Path("early.d")}, {rig.Path("other.d")}};
    EXPECT_TRUE(rig.Run(
        [&] {
            EXPECT_TRUE(rig.Get<QLineEdit>("CalFileEdit2").isVisible());
            EXPECT_FALSE(rig.Get<QLineEdit>("CalFileEdit3").isVisible());
            EXPECT_FALSE(rig.Get<QPushButton>("BrowseButton3").isVisible());
            EXPECT_EQ(rig.Get<MaskEdit>("CalStartMaskEdit").MaskText(), "05/16/2005 09:41");

            rig.Press(Qt::Key_L, Qt::AltModifier);
            rig.TypeAlong({"051620059941"});
            EXPECT_THAT(rig.Told(), ElementsAre(kDateFormat));
            EXPECT_EQ(rig.Focus(), "CalEndMaskEdit");
            rig.TypeAlong({"051620051149"});

            rig.Press(Qt::Key_Return);
            EXPECT_THAT(rig.Told(), ElementsAre(kRequired));
            EXPECT_EQ(rig.Focus(), "CalFileEdit1");
            rig.Get<QPushButton>("BrowseButton1").click();
            EXPECT_EQ(rig.Get<MaskEdit>("CalStartMaskEdit").MaskText(), "05/15/2005 07:30");
            EXPECT_EQ(rig.Get<MaskEdit>("CalEndMaskEdit").MaskText(), "05/16/2005 11:49");
            rig.Get<QPushButton>("BrowseButton2").click();
            EXPECT_THAT(rig.Told(), ElementsAre("Selected file\nother.dnot a DATA FILE."));
            rig.Press(Qt::Key_Return);
        },
        0U));
    EXPECT_THAT(entries.InitialCalibration.LabFileIds,
                testing::AllOf(testing::Contains("EARLY.D"), testing::Contains("other.d")));
    EXPECT_EQ(entries.ContinuingCalibration.FirstStandard, "05/15/2005 07:30");
    EXPECT_EQ(entries.StandardSummary.LastCalibrationDate, "05/16/2005");
    EXPECT_TRUE(rig.form.Flags().InitCalEntered);
}

TEST(ChkCalForm, AsksForWhatIsMissingAndKeepsWhatWasTyped) {
    DialogRig<TChkCalForm> rig;
    Entries& entries = rig.form.Entries();
    entries.StandardSummary.SampleNo = "VSTD050CC";
    rig.Write("criteria.txt", "RF criteria\n");
    rig.Write("other.txt", " rf criteria\n");
    rig.chooser.answers = {{rig.Path("other.txt")}, {rig.Path("criteria.txt")}};
    EXPECT_FALSE(rig.Run(
        [&] {
            EXPECT_EQ(rig.Get<QLineEdit>("ZOV_IDEdit").text(), "vstd050cc");
            rig.Type("vstd050c.d");
            rig.Press(Qt::Key_Return);
            EXPECT_THAT(rig.Told(), ElementsAre(kRequired));
            EXPECT_EQ(rig.Focus(), "LimitEdit");
            QTest::mouseClick(&rig.Get<QLineEdit>("LimitEdit"), Qt::LeftButton);
            QCoreApplication::processEvents();
            EXPECT_THAT(rig.Told(), ElementsAre("other.txt is not a RF criteria file.\nPlease "
                                                "select another file."));
            rig.Press(Qt::Key_W, Qt::AltModifier);
            EXPECT_EQ(rig.Get<QLineEdit>("LimitEdit").text().toStdString(),
                      QString::fromStdString(rig.Path("criteria.txt")).toLower().toStdString());
            rig.Press(Qt::Key_Escape);
        },
        0U));
    EXPECT_EQ(entries.ContinuingCalibration.LabFileId, "vstd050c.d");
    EXPECT_FALSE(rig.form.Flags().ContCalEntered);
    EXPECT_TRUE(rig.Run(
        [&] {
            rig.Press(Qt::Key_I, Qt::AltModifier);
            rig.TypeAlong({"GCMS2", "023020050900"});
            EXPECT_THAT(rig.Told(), ElementsAre(kDateFormat));
            EXPECT_EQ(rig.Focus(), "MaskEdit1");
            rig.TypeAlong({"051820050846"});
            rig.Press(Qt::Key_Return);
            EXPECT_THAT(rig.Told(), IsEmpty());
        },
        0U));
    EXPECT_TRUE(rig.form.Flags().ContCalEntered);
    EXPECT_EQ(entries.ContinuingCalibration.AnalysisDateTime, "05/18/2005 08:46");
}

TEST(ARTSummForm, TheSampleNumberChoosesTheLevel) {
    DialogRig<TARTSummForm> rig;
    rig.form.Batch().Files.Calib = std::string(QFR_SOURCE_DIR) + "/example/VOA0516.CAL";
    rig.form.Calibration().LevelCount = 5;
    StandardSummaryEntry& entry = rig.form.Entries().StandardSummary;
    EXPECT_TRUE(rig.Run(
        [&] {
            auto& level = rig.Get<QComboBox>("ConcCombo");
            EXPECT_EQ(level.count(), 5);
            rig.TypeAlong({"VSTDX50"});
            EXPECT_EQ(rig.Told().size(), 1U);
            EXPECT_EQ(rig.Focus(), "SampleEdit");
            rig.TypeAlong({"VSTD051A1"});
            EXPECT_THAT(rig.Told(),
                        ElementsAre("A calibration concentration of 51 was not found.\nPlease "
                                    "re-enter the sample ID with a calibration concentration."));
            EXPECT_EQ(rig.Focus(), "LabFileEdit");
            rig.Press(Qt::Key_Z, Qt::AltModifier);
            rig.TypeAlong({"VSTD050A1"});
            EXPECT_EQ(level.currentText(), "50");
            EXPECT_EQ(rig.Get<QLineEdit>("LabFileEdit").text(), "VSTD050.D");
            rig.Press(Qt::Key_Return);
            EXPECT_THAT(rig.Told(), ElementsAre(kRequired));
            EXPECT_EQ(rig.Focus(), "RTEdit1");
            rig.TypeAlong({"8.84", "6.01", "11.82"});
            rig.Press(Qt::Key_Return);
        },
        0U));
    EXPECT_EQ(entry.LevelIndex, 2);
    EXPECT_THAT(entry.RetentionTimes, ElementsAre("8.84", "6.01", "11.82"));
}

}  // namespace
}  // namespace qfr::test
