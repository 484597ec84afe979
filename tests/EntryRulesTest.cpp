// What the entry dialogs take over on showing, and what their OK refuses.
#include "data/CalibrationEntryRules.h"
#include "data/LabFiles.h"
#include "data/TicRules.h"
#include "data/TuneRules.h"
#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

using namespace ::testing;
using Values = std::vector<std::string>;

const std::string kFirst = "05/16/2005 09:41";
const std::string kLast = "05/16/2005 11:49";

std::string Control(const std::optional<EntryFault>& fault) {
    return fault ? fault->Control : "";
}

TEST(LabFiles, HoldAValueALine) {
    const TempDir dir;
    const std::string full(29, 'x');
    const auto defaults = [&dir](const std::string& content) {
        return ReadDefaultsFile(dir.Write("DefaultInfo.txt", content)).value();
    };
    EXPECT_THAT(defaults(" Lab \r\n\n" + full + "yz\nXXX"),
                ElementsAre("Lab", "", full, "yz", "XXX"));
    EXPECT_EQ(defaults(EndlessLine()), Values(13, full));
    const Values values = {"Müller & Co.", "", " blanks ", "100%d", "5", "6", full + full};
    const std::string file = dir.Write("lab.txt", "");
    EXPECT_EQ(WriteValueLines(file, values), std::nullopt);
    EXPECT_EQ(ReadLaboratoryFile(file), values);
    EXPECT_EQ(ReadLaboratoryFile(dir.Write("more.txt", ReadAll(file) + "8\n")), values);
    EXPECT_TRUE(WriteValueLines(dir.Path(), values));
    EXPECT_FALSE(ReadDefaultsFile(dir.Path()) || ReadLaboratoryFile(dir.Path()));
}

TEST(LabFiles, ValuesFollowTheMatrix) {
    const auto follow = [](const char* matrix, const char* before) {
        SampleHeader header;
        std::string& moisture = header[HeaderField::kPercentMoisture] = before;
        std::string& aliquot = header[HeaderField::kSoilAliquotVolume] = before;
        std::string& extract = header[HeaderField::kSoilExtractVolume] = before;
        header[HeaderField::kMatrix] = matrix;
        ApplyMatrixRules(header);
        return moisture + " " + aliquot + " " + extract;
    };
    const auto filled = [&](const char* matrix) { return follow(matrix, "12"); };
    EXPECT_EQ(Joined({"WATER", "SOIL", "SED", "water"}, filled),
              "N/A N/A N/A|12 12 12|12 N/A N/A|12 12 12");
    const auto notApplicable = [&](const char* matrix) { return follow(matrix, "N/A"); };
    EXPECT_EQ(Joined({"SOIL", "SED", ""}, notApplicable), "0 0 0|0 N/A N/A|N/A N/A N/A");
}

TEST(TuneRules, OkNamesTheFirstFault) {
    const TuneEntry good = {"B1",    "G1",
                            "B.D",   " 5/18/2005",
                            " 8:30", {"18.1", "45", "0", "6", "0", " 7 ", "7", "9e1", "-1"}};
    const auto expectFault = [&good](void (*spoil)(TuneEntry&), const char* control, int row,
                                     const char* text) {
        TuneEntry tune = good;
        spoil(tune);
        const EntryFault fault = CheckTune(tune).value();
        EXPECT_EQ(fault.Control + std::to_string(fault.Row), control + std::to_string(row));
        EXPECT_EQ(fault.Message.text, text);
        // The same box complains when it is left; the grid is checked on OK alone.
        EXPECT_EQ(CheckTuneBox(tune, control).has_value(), row == 0) << control;
    };
    EXPECT_FALSE(CheckTune(good));
    constexpr char kDate[] = "Enter the date/time format as\n MM/DD/YYYY or HH:MI";
    constexpr char kNumber[] = "Entry must be a valid real number.";
    constexpr char kValue[] = "Please enter a value.";
    using Tune = TuneEntry&;
    expectFault([](Tune t) { t = {}; }, "SampleEdit", 0, kValue);
    expectFault([](Tune t) { t.InstrumentId = t.InjectionDate = " "; }, "InstrEdit", 0, kValue);
    expectFault([](Tune t) { t.InjectionDate = t.LabFileId = ""; }, "MaskEdit1", 0, kDate);
    expectFault([](Tune t) { t.InjectionDate = "02/30/2005"; }, "MaskEdit1", 0, kDate);
    expectFault([](Tune t) { t.LabFileId = t.InjectionTime = ""; }, "FileEdit", 0, kValue);
    expectFault([](Tune t) { t.InjectionTime = t.Abundances[0] = "  :  "; }, "MaskEdit2", 0, kDate);
    expectFault([](Tune t) { t.Abundances[2] = t.Abundances[8] = "1,5"; }, "StringGrid1", 3,
                kNumber);
    expectFault([](Tune t) { t.Abundances[8] = ""; }, "StringGrid1", 9, kNumber);
}

TEST(CalibrationEntryRules, OkAsksInItsOrder) {
    Entries entries;
    BatchFlags flags;
    Batch batch;
    auto& [ranges, comments, tune, six, seven, eight] = entries;
    six = {kFirst, "13/16/2005 11:49", {"a", " "}};
    seven.AnalysisDateTime = "05/16/2005 24:00";
    eight.Levels = {""};
    eight.LevelIndex = 0;
    // The entry is filled after the dialogs have told of its control.
    const auto fill = [&](std::string& entry, const char* control, const std::string& value) {
        auto fault = AcceptInitialCalibration(entries, 2, flags);
        fault = fault ? fault : AcceptContinuingCalibration(entries, flags);
        fault = fault ? fault : AcceptStandardSummary(entries, batch);
        EXPECT_EQ(Control(fault), control);
        entry = value;
    };
    fill(six.LastStandard, "CalEndMaskEdit", kLast);
    fill(six.LabFileIds[1], "CalFileEdit2", "b");
    fill(seven.LabFileId, "LabFileEdit", "c");
    fill(seven.CriteriaFile, "LimitEdit", "d");
    fill(seven.SampleNo, "ZOV_IDEdit", "e");
    fill(seven.InstrumentId, "InstrEdit", "f");
    fill(seven.AnalysisDateTime, "MaskEdit1", kLast);
    fill(eight.SampleNo, "SampleEdit", "VSTDX50");
    fill(eight.LabFileId, "LabFileEdit", "g");
    fill(eight.AnalysisDateTime, "MaskEdit1", kLast);
    for (std::size_t i = 0; i < 3; ++i) {
        fill(eight.RetentionTimes[i], std::array{"RTEdit1", "RTEdit2", "RTEdit3"}[i], "1");
    }
    fill(eight.Levels[0], "ConcCombo", "50");
    fill(eight.SampleNo, "SampleEdit", "VSTD050");
    EXPECT_EQ(Control(AcceptStandardSummary(entries, batch)), "");
    EXPECT_TRUE(flags.InitCalEntered && flags.ContCalEntered);
    EXPECT_EQ(seven.FirstStandard + seven.LastStandard, kFirst + kLast) << "handed on by Form VI";
    EXPECT_EQ(eight.FirstCalibrationDate + eight.LastCalibrationDate, "05/16/200505/16/2005");
    eight.RetentionTimes = {};
    batch.Files.CheckCal = "named";
    EXPECT_EQ(Control(AcceptStandardSummary(entries, batch)), "") << "the check report has them";
}

TEST(CalibrationEntryRules, ShowTakesWhatTheOtherDialogsHold) {
    CalibratedRun run(3, 2);
    ScriptedHost& host = run.host;
    auto& [ranges, comments, tune, six, seven, eight] = host.entries;
    seven.FirstStandard = kFirst;
    six.LastStandard = kLast;
    ShowInitialCalibration(host.entries);
    EXPECT_EQ(six.FirstStandard + six.LastStandard, kFirst + kLast);
    eight.SampleNo = "VSTD050A";
    seven.LabFileId = "Typed.D";
    ShowContinuingCalibration(host.entries, host.batch, host);
    EXPECT_EQ(seven.SampleNo + seven.LabFileId + seven.LastStandard, "vstd050aTyped.D" + kLast);
    const auto showEight = [&](int levelCount) {
        host.Calibration().LevelCount = levelCount;
        return ShowStandardSummary(host.entries, host.batch, host.Calibration(), host);
    };
    six.LastStandard = "06/17/2005 10:00";
    six.FirstStandard = std::string(kEmptyDateTimeMask);
    eight.LevelIndex = 2;
    EXPECT_TRUE(showEight(3));
    EXPECT_EQ(eight.SampleNo + eight.LabFileId, "vstd050aTyped.D");
    EXPECT_EQ(eight.FirstCalibrationDate + eight.LastCalibrationDate, "05/16/200506/17/2005");
    EXPECT_EQ(ConcentrationText(eight), "30");
    six = {};
    seven = {};
    EXPECT_TRUE(showEight(2));
    EXPECT_EQ(eight.FirstCalibrationDate, "05/16/2005") << "empty sources change nothing";
    EXPECT_THAT(eight.Levels, ElementsAre("10", "20"));
    EXPECT_EQ(eight.LevelIndex, -1) << "the level is gone";
    host.batch.Files.CheckCal = run.dir.Write("BAD", "N;Com\n");
    ShowContinuingCalibration(host.entries, host.batch, host);
    EXPECT_THAT(host.messages.TakeTexts(),
                ElementsAre("The check calibration file could not be read.\nRecreate the check "
                            "calibration file."));
    run.dir.Write("RUN.CAL", run.calibration.replace(run.calibration.find("12.4"), 4, "1x.4"));
    EXPECT_FALSE(showEight(3)) << "a response factor that is no number";
    EXPECT_THAT(host.messages.TakeTitles(), ElementsAre("Calibration File Error"));
}

TEST(CalibrationEntryRules, SampleNumberNamesTheLevelAndItsFile) {
    CalibratedRun run(2, 0);
    const auto leave = [&run](const char* sampleNo) {
        StandardSummaryEntry entry;
        entry.SampleNo = sampleNo;
        entry.LabFileId = "typed";
        entry.Levels = {"10", "20", "2.5", "20"};
        const std::string control = Control(LeaveStandardSampleNo(entry, run.host.batch, run.host));
        EXPECT_EQ(IsEmptyMask(entry.AnalysisDateTime),
                  entry.LevelIndex < 0 || entry.LevelIndex > 1);
        return control + std::to_string(entry.LevelIndex) + " " + entry.LabFileId;
    };
    EXPECT_EQ(leave("VSTD010"), "0 typed") << "the check report knows better";
    run.host.batch.Files.CheckCal = "";
    EXPECT_EQ(Joined({"VSTD010A1", " xxxx020 ", ""}, leave), "0 STD1.D|1 STD2.D|-1 typed");
    EXPECT_EQ(Joined({"VSTDX50", "VSTD05", "VSTD0X0", "VSTD05."}, leave),
              "SampleEdit-1 typed|SampleEdit-1 typed|SampleEdit-1 typed|SampleEdit-1 typed");
    EXPECT_THAT(run.host.messages.shown, IsEmpty());
    EXPECT_EQ(Joined({"VSTD2.5A", "VSTD0.1"}, leave), "2 typed|-1 typed");
    EXPECT_THAT(run.host.messages.TakeTexts(),
                ElementsAre("The appropriate raw data file could not be found.\nPlease enter and "
                            "check all data entries.",
                            "A calibration concentration of 0.1 was not found.\nPlease re-enter "
                            "the sample ID with a calibration concentration."));
}

}  // namespace
}  // namespace qfr::test
