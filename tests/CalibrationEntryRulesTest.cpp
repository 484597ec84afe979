#include <gmock/gmock.h>

#include "data/CalibrationEntryRules.h"
#include "tests/CalibratedRun.h"

namespace qfr::test {
namespace {

using ::testing::ElementsAre;

const std::string kFirst = "05/16/2005 09:41";
const std::string kLast = "05/16/2005 11:49";

std::string Control(const std::optional<EntryFault>& fault) {
    return fault ? fault->Control : "";
}

TEST(CalibrationEntryRules, OkAsksInItsOrder) {
    Entries entries;
    BatchFlags flags;
    Batch batch;
    InitialCalibrationEntry& six = entries.InitialCalibration;
    ContinuingCalibrationEntry& seven = entries.ContinuingCalibration;
    StandardSummaryEntry& eight = entries.StandardSummary;
    six = {kFirst, "13/16/2005 11:49", {"a", " "}};
    seven.AnalysisDateTime = "05/16/2005 24:00";
    eight.Levels = {""};
    eight.LevelIndex = 0;
    struct Step {
        std::string& entry;   // is filled
        const char* control;  // after the dialogs have told of this one
        const char* value;
    };
    for (const Step& step : {Step{six.LastStandard, "CalEndMaskEdit", kLast.c_str()},
                             {six.LabFileIds[1], "CalFileEdit2", "b"},
                             {seven.LabFileId, "LabFileEdit", "c"},
                             {seven.CriteriaFile, "LimitEdit", "d"},
                             {seven.SampleNo, "ZOV_IDEdit", "e"},
                             {seven.InstrumentId, "InstrEdit", "f"},
                             {seven.AnalysisDateTime, "MaskEdit1", kLast.c_str()},
                             {eight.SampleNo, "SampleEdit", "VSTDX50"},
                             {eight.LabFileId, "LabFileEdit", "g"},
                             {eight.AnalysisDateTime, "MaskEdit1", kLast.c_str()},
                             {eight.RetentionTimes[0], "RTEdit1", "1"},
                             {eight.RetentionTimes[1], "RTEdit2", "2"},
                             {eight.RetentionTimes[2], "RTEdit3", "3"},
                             {eight.Levels[0], "ConcCombo", "50"},
                             {eight.SampleNo, "SampleEdit", "VSTD050"}}) {
        auto fault = AcceptInitialCalibration(entries, 2, flags);
        fault = fault ? fault : AcceptContinuingCalibration(entries, flags);
        fault = fault ? fault : AcceptStandardSummary(entries, batch);
        EXPECT_EQ(Control(fault), step.control);
        step.entry = step.value;
    }
    EXPECT_TRUE(flags.InitCalEntered && flags.ContCalEntered);
    EXPECT_EQ(Control(AcceptStandardSummary(entries, batch)), "");
    EXPECT_EQ(seven.FirstStandard + seven.LastStandard, kFirst + kLast) << "handed on by Form VI";
    EXPECT_EQ(eight.FirstCalibrationDate + eight.LastCalibrationDate, "05/16/200505/16/2005");
    eight.RetentionTimes = {};
    batch.Files.CheckCal = "named";
    EXPECT_EQ(Control(AcceptStandardSummary(entries, batch)), "") << "the check report has them";
}

TEST(CalibrationEntryRules, BrowseTakesOnlyFilesOfTheRightKind) {
    TempDir dir;
    MessageLog messages;
    InitialCalibrationEntry six{kFirst, kLast, {}};
    const auto browse = [&](std::size_t level, const char* content) {
        BrowseLevelFile(six, level, dir.Write("NEW.D", content), messages);
    };
    browse(0, "DATA FILE\n05/16/2005 09:42\nC:\\A.D\n");
    EXPECT_EQ(six.FirstStandard + six.LastStandard, kFirst + kLast);
    browse(9, "DATA FILE\n05/16/2005 11:50\nC:\\B.D\n");
    EXPECT_EQ(six.FirstStandard + six.LastStandard, kFirst + "05/16/2005 11:50");
    browse(2, "DATA FILE\n05/16/2005 09:40\nC:\\C.D\n");
    browse(3, "DATA FILE\n05/16/2005 01:00\n");
    browse(4, "Data File\n05/16/2005 01:00\nC:\\D.D\n");
    EXPECT_EQ(six.FirstStandard, "05/16/2005 09:40");
    EXPECT_THAT(six.LabFileIds,
                ElementsAre("A.D", "", "C.D", "NEW.D", "NEW.D", "", "", "", "", "B.D"));
    ContinuingCalibrationEntry seven;
    BrowseCriteriaFile(seven, dir.Write("Good.TXT", "RF CRITERIA\n"), messages);
    BrowseCriteriaFile(seven, "/gone/c.txt", messages);
    EXPECT_TRUE(seven.CriteriaFile.ends_with("good.txt")) << seven.CriteriaFile;
    BrowseCriteriaFile(seven, dir.Write("Bad.txt", " RF Criteria\n"), messages);
    EXPECT_EQ(seven.CriteriaFile, "");
    BrowseStandardFile(seven, dir.Write("A.D", "data file\n5/18/2005 8:46 AM\nC:\\S.D"), messages);
    EXPECT_EQ(seven.AnalysisDateTime + seven.LabFileId, "05/18/2005 08:46S.D");
    EXPECT_THAT(messages.TakeTexts(),
                ElementsAre("End of file:\nNEW.Dreached before expected",
                            "Selected file\nNEW.Dnot a DATA FILE.", "c.txt could not be read.",
                            "Bad.txt is not a RF criteria file.\nPlease select another file."));
}

TEST(CalibrationEntryRules, ShowTakesWhatTheOtherDialogsHold) {
    CalibratedRun run(3, 2);
    ScriptedHost& host = run.host;
    Entries& entries = host.entries;
    InitialCalibrationEntry& six = entries.InitialCalibration;
    ContinuingCalibrationEntry& seven = entries.ContinuingCalibration;
    StandardSummaryEntry& eight = entries.StandardSummary;
    seven.FirstStandard = kFirst;
    six.LastStandard = kLast;
    ShowInitialCalibration(entries);
    EXPECT_EQ(six.FirstStandard + six.LastStandard, kFirst + kLast);
    eight.SampleNo = "VSTD050A";
    seven.LabFileId = "Typed.D";
    ShowContinuingCalibration(entries, host.batch, host);
    EXPECT_EQ(seven.SampleNo + seven.LabFileId + seven.LastStandard, "vstd050aTyped.D" + kLast);
    six.LastStandard = "06/17/2005 10:00";
    six.FirstStandard = std::string(kEmptyDateTimeMask);
    eight.LevelIndex = 2;
    host.Calibration().LevelCount = 3;
    ShowStandardSummary(entries, host.batch, host.Calibration(), host);
    EXPECT_EQ(eight.SampleNo + eight.LabFileId, "vstd050aTyped.D");
    EXPECT_EQ(eight.FirstCalibrationDate + eight.LastCalibrationDate, "05/16/200506/17/2005");
    EXPECT_EQ(ConcentrationText(eight), "30");
    six = {};
    seven = {};
    host.Calibration().LevelCount = 2;
    ShowStandardSummary(entries, host.batch, host.Calibration(), host);
    EXPECT_EQ(eight.FirstCalibrationDate, "05/16/2005") << "empty sources change nothing";
    EXPECT_THAT(eight.Levels, ElementsAre("10", "20"));
    EXPECT_EQ(ConcentrationText(eight), "") << "the level is gone";
    host.batch.Files.CheckCal = run.dir.Write("BAD", "N;Com\n");
    ShowContinuingCalibration(entries, host.batch, host);
    EXPECT_THAT(host.messages.TakeTexts(),
                ElementsAre("The check calibration file could not be read.\nRecreate the check "
                            "calibration file."));
}

TEST(CalibrationEntryRules, SampleNumberNamesTheLevelAndItsFile) {
    CalibratedRun run(2, 0);
    const struct {
        const char* sampleNo;
        bool withCheck;
        std::string taken;  // control of the fault, level, lab file ID, message
    } cases[] = {
        {"VSTD010A1", false, " 0 STD1.D "},
        {" xxxx020 ", false, " 1 STD2.D "},
        {"VSTD010", true, " 0 typed "},  // the check report knows better
        {"VSTD2.5A", false, " 2 typed The appropriate raw data file could not be f"},
        {"VSTD0.1", false, " -1 typed A calibration concentration of 0.1 was not f"},
        {"", false, " -1 typed "},
        {"VSTDX50", false, "SampleEdit -1 typed "},
        {"VSTD05", false, "SampleEdit -1 typed "},
        {"VSTD0X0", false, "SampleEdit -1 typed "},
        {"VSTD05.", false, "SampleEdit -1 typed "},
    };
    for (const auto& c : cases) {
        run.host.batch.Files.CheckCal = c.withCheck ? "named" : "";
        StandardSummaryEntry entry;
        entry.SampleNo = c.sampleNo;
        entry.LabFileId = "typed";
        entry.Levels = {"10", "20", "2.5", "20"};
        const std::string control = Control(LeaveStandardSampleNo(entry, run.host.batch, run.host));
        run.host.messages.Show({"", ""});
        EXPECT_EQ(control + " " + std::to_string(entry.LevelIndex) + " " + entry.LabFileId + " " +
                      run.host.messages.TakeTexts().front().substr(0, 44),
                  c.taken);
        EXPECT_EQ(IsEmptyMask(entry.AnalysisDateTime),
                  entry.LevelIndex < 0 || entry.LevelIndex > 1);
    }
}

}  // namespace
}  // namespace qfr::test
