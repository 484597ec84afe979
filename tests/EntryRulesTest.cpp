// What the entry dialogs take over on showing, and what their OK refuses.
#include "data/CalibrationEntryRules.h"
#include "data/EntryTables.h"
#include "data/LabFiles.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

using namespace ::testing;
using Values = std::vector<std::string>;

const std::string kFirst = "05/16/2005 09:41";
const std::string kLast = "05/17/2005 11:49";

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
        Entries entries;
        entries.Tune = good;
        spoil(entries.Tune);
        const EntryFault fault = CheckEntries(TableOf(EntryDialog::kTune), entries).value();
        EXPECT_EQ(fault.Control + std::to_string(fault.Row), control + std::to_string(row));
        EXPECT_EQ(fault.Message.text, text);
        // The same box complains when it is left; the grid is checked on OK alone.
        const auto& box =
            *std::ranges::find(TableOf(EntryDialog::kTune).Fields, control, &EntryField::Control);
        EXPECT_EQ(CheckLeft(TableOf(EntryDialog::kTune), box, 0, entries).has_value(), row == 0)
            << control;
    };
    Entries entries;
    entries.Tune = good;
    EXPECT_FALSE(CheckEntries(TableOf(EntryDialog::kTune), entries));
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

TEST(TicList, OnlyTheQualifierMayBeMissing) {
    const TicEntry whole{{"71-43-2", "benzene", "10.25", "12", "JN"}};
    const char* const names[] = {"CAS", "compound", "retention time", "concentration", "qualifier"};
    for (std::size_t i = 0; i < std::size(names); ++i) {
        TicEntry row = whole;
        row.cells[i] = " ";
        EXPECT_EQ(TicListFromRows({row}).has_value(), i == 4) << "without " << names[i];
        using Rows = std::vector<std::size_t>;
        EXPECT_EQ(IncompleteTicRows({TicEntry(), row}), i == 4 ? Rows() : Rows{2});
    }
}

TEST(CalibrationEntryRules, OkAsksInItsOrder) {
    ScriptedHost host;
    Entries& entries = host.entries;
    Reports reports;
    const TempDir dir;
    InitialCalibrationEntry& initial = entries.InitialCalibration;
    ContinuingCalibrationEntry& continuing = entries.ContinuingCalibration;
    StandardSummaryEntry& standard = entries.StandardSummary;
    initial = {kFirst, "13/16/2005 11:49", {"STD005.D", " "}};
    continuing.AnalysisDateTime = "05/16/2005 24:00";
    standard.Levels = {"20"};
    const auto fault = [&] {
        auto found = AcceptInitialCalibration(entries, 2, host.flags);
        found =
            found ? found : AcceptContinuingCalibration(entries, host.batch, reports, host.flags);
        return Control(found ? found : AcceptStandardSummary(entries, host.batch, reports, host));
    };
    // The control that is asked for, and what is entered there then.
    const std::tuple<const char*, std::string&, std::string> steps[] = {
        {"CalEndMaskEdit", initial.LastStandard, kLast},
        {"CalFileEdit2", initial.LabFileIds[1], "STD020.D"},
        {"LabFileEdit", continuing.LabFileId, "CHECK.D"},
        {"LimitEdit", continuing.CriteriaFile, dir.Write("typed.txt", "rf criteri")},
        {"ZOV_IDEdit", continuing.SampleNo, "VSTD050CC"},
        {"InstrEdit", continuing.InstrumentId, "GCMS2"},
        {"MaskEdit1", continuing.AnalysisDateTime, kLast},
        {"LimitEdit", continuing.CriteriaFile, dir.Write("c.txt", "RF Criteria")},
        {"SampleEdit", standard.SampleNo, "VSTDX50"},
        {"SampleEdit", standard.SampleNo, "VSTD050"},
        {"SampleEdit", standard.Levels[0], "50"},
        {"LabFileEdit", standard.LabFileId, "VSTD050.D"},
        {"MaskEdit1", standard.AnalysisDateTime, kLast},
        {"RTEdit1", standard.RetentionTimes[0], "6,01"},
        {"RTEdit2", standard.RetentionTimes[1], "8.84"},
        {"RTEdit3", standard.RetentionTimes[2], "11.82"},
        {"RTEdit1", standard.RetentionTimes[0], "6.01"}};
    for (const auto& [control, entry, value] : steps) {
        EXPECT_EQ(fault(), control) << "before " << value;
        entry = value;
    }
    EXPECT_EQ(fault(), "");
    EXPECT_TRUE(host.flags.InitCalEntered && host.flags.ContCalEntered);
    EXPECT_EQ(continuing.FirstStandard + " " + continuing.LastStandard, kFirst + " " + kLast)
        << "handed on by Form VI";
    EXPECT_EQ(standard.FirstCalibrationDate, "05/16/2005");
    EXPECT_EQ(standard.LastCalibrationDate, "05/17/2005");
    EXPECT_EQ(standard.LevelIndex, 0) << "of the number";
    EXPECT_THAT(host.messages.TakeTitles(), ElementsAre("Warning")) << "of its data, once";
    const auto& times = *std::ranges::find(TableOf(EntryDialog::kStandardSummary).Fields, "RTEdit",
                                           &EntryField::Control);
    standard.RetentionTimes = {"late"};
    EXPECT_FALSE(CheckLeft(TableOf(EntryDialog::kStandardSummary), times, 0, entries,
                           {.CheckReport = true}));
    host.batch.Files.CheckCal = "named";
    EXPECT_EQ(fault(), "") << "the check report has them";
}

TEST(CalibrationEntryRules, ShowTakesWhatTheOtherDialogsHold) {
    CalibratedRun run(3, 2);
    ScriptedHost& host = run.host;
    InitialCalibrationEntry& initial = host.entries.InitialCalibration;
    ContinuingCalibrationEntry& continuing = host.entries.ContinuingCalibration;
    StandardSummaryEntry& standard = host.entries.StandardSummary;
    continuing.FirstStandard = kFirst;
    initial.LastStandard = kLast;
    initial.FirstStandard = kFirst;
    standard.SampleNo = "VSTD050A";
    continuing.LabFileId = "Typed.D";
    ShowContinuingCalibration(host.entries, host.batch, host.Reports(), host);
    EXPECT_EQ(continuing.SampleNo + " " + continuing.LabFileId, "vstd050a Typed.D");
    EXPECT_EQ(continuing.LastStandard, kLast);
    const auto showStandard = [&](int levelCount) {
        host.BeginRun();
        return ShowStandardSummary(host.entries, host.batch, host.Reports(), levelCount, host);
    };
    initial.LastStandard = "06/17/2005 10:00";
    initial.FirstStandard = std::string(kEmptyDateTimeMask);
    standard.LevelIndex = 2;
    EXPECT_TRUE(showStandard(3));
    EXPECT_EQ(standard.SampleNo + " " + standard.LabFileId, "vstd050a Typed.D");
    EXPECT_EQ(standard.FirstCalibrationDate, "05/16/2005") << "of Form VII, where VI has none";
    EXPECT_EQ(standard.LastCalibrationDate, "06/17/2005");
    EXPECT_EQ(ConcentrationText(standard), "30");
    initial = {};
    continuing = {};
    EXPECT_TRUE(showStandard(2));
    EXPECT_EQ(standard.FirstCalibrationDate, "05/16/2005") << "empty sources change nothing";
    EXPECT_THAT(standard.Levels, ElementsAre("10", "20"));
    EXPECT_EQ(standard.LevelIndex, -1) << "the level is gone";
    host.batch.Files.CheckCal = run.dir.Write("BAD", "N;Com\n");
    ShowContinuingCalibration(host.entries, host.batch, host.Reports(), host);
    EXPECT_THAT(host.messages.TakeTexts(),
                ElementsAre("The check calibration file could not be read.\nRecreate the check "
                            "calibration file."));
    run.dir.Write("RUN.CAL", run.calibration.replace(run.calibration.find("12.4"), 4, "1x.4"));
    EXPECT_FALSE(showStandard(3)) << "a response factor that is no number";
    EXPECT_THAT(host.messages.TakeTitles(), ElementsAre("Calibration File Error"));
}

TEST(CalibrationEntryRules, SampleNumberNamesTheLevelAndItsFile) {
    // Level, lab file ID and, where it is known, the date; before them the control that is at
    // fault.
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"the first level", "VSTD010A1", "0 STD1.D 05/16/2005 01:00"},
        {"the second one, in letters of one's own", " xxxx020 ", "1 STD2.D 05/16/2005 02:00"},
        {"no number", "", "-1 typed "},
        {"a letter for its first digit", "VSTDX50", "SampleEdit -1 typed "},
        {"a letter for its second digit", "VSTD0X0", "SampleEdit -1 typed "},
        {"two digits", "VSTD05", "SampleEdit -1 typed "},
        {"a point at its end", "VSTD05.", "SampleEdit -1 typed "},
        {"a level without a file", "VSTD2.5A", "2 typed "},
        {"no such level", "VSTD0.1", "SampleEdit -1 typed "}};
    CalibratedRun run(2, 0);
    const auto leave = [&run](const char* sampleNo) {
        Entries entries;
        StandardSummaryEntry& entry = entries.StandardSummary;
        entry.SampleNo = sampleNo;
        entry.LabFileId = "typed";
        entry.Levels = {"10", "20", "2.5", "20"};
        const std::string control =
            Control(LeaveStandardSampleNo(entries, run.host.batch, run.host.Reports(), run.host));
        // What is corrected then stays.
        const int level = std::exchange(entry.LevelIndex, 9);
        if (control.empty() && !entry.AnsweredSampleNo.empty()) {
            LeaveStandardSampleNo(entries, run.host.batch, run.host.Reports(), run.host);
            EXPECT_EQ(entry.LevelIndex, 9) << sampleNo;
        }
        return control + (control.empty() ? "" : " ") + std::to_string(level) + " " +
               entry.LabFileId + " " + PrintableDate(entry.AnalysisDateTime);
    };
    EXPECT_EQ(leave("VSTD010"), "0 typed 05/18/2005 08:46") << "the check report knows its file";
    run.host.batch.Files.CheckCal = "";
    for (const auto& [what, sampleNo, expected] : cases) {
        EXPECT_EQ(leave(sampleNo), expected) << what;
    }
    EXPECT_THAT(run.host.messages.TakeTexts(),
                ElementsAre("The appropriate raw data file could not be found.\nPlease enter and "
                            "check all data entries."));
}

}  // namespace
}  // namespace qfr::test
