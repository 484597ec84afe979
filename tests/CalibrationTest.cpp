// What is read from calibration and check reports, and what the entry dialogs make of it.
#include "data/CalibrationEntryRules.h"
#include "data/CalibrationTables.h"
#include "data/EntryTables.h"
#include "data/HeaderFields.h"
#include "data/LabFiles.h"
#include "forms/Form6Content.h"
#include "forms/Form7Content.h"
#include "forms/Form8Content.h"
#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

using namespace ::testing;

// The file of these lines, in the directory.
FileContent<CalibrationReport> Calibration(const TempDir& dir, const std::string& lines) {
    return Reports().Read<CalibrationReport>(dir.Write("R.CAL", lines), "");
}

TEST(CriteriaFile, GivesNameAndLimitsOfEachLine) {
    const auto read = [](const char* text) { return CriteriaFile::Read(LineReader(text)); };
    EXPECT_TRUE(read("RF Criteria of May").HasTitle);
    EXPECT_FALSE(read(" RF Criteria").HasTitle || read("RF Criteri").HasTitle);
    EXPECT_THAT(
        read("RF Criteria; x; y\n\n Benzene ; 0.1 ; 25 \nAcetone;0.05\n  \nTwo;1;2;3\n;").Criteria,
        ElementsAre(FieldsAre("benzene", "0.1", "25"), FieldsAre("acetone", "0.05", ""),
                    FieldsAre("two", "1", "2;3"), FieldsAre("", "", "")));
}

TEST(CheckReport, SixthLineNamesTheStandardsDataFile) {
    TempDir dir;
    dir.Write("SECRET", "data fil\n05/18/2005 9:00\npassword\n");
    dir.Write("GOOD.D", "DATA FILE\n05/18/2005 8:46\nC:\\RUN\\VSTD050.D\n");
    dir.Write("UNDATED.D", "Data File\nMonday\nC:\\RUN\\VSTD100.D\n");
    const auto read = [&](const std::string& line) {
        ContinuingCalibrationEntry entry;
        entry.AnalysisDateTime = "before";
        entry.LabFileId = "id";
        Reports reports;
        const std::string report = dir.Write("R.CHECK", "1:\n2\n3\n4\n5\n" + line);
        ReadCheckStandardInfo(reports.Read<CheckReport>(report, ""), reports, entry);
        return entry.AnalysisDateTime + " " + entry.LabFileId;
    };
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"a path of another computer", "Data File: C:\\RUN\\GOOD.D ", "05/18/2005 08:46 VSTD050.D"},
        {"a name alone", "GOOD.D", "05/18/2005 08:46 VSTD050.D"},
        {"a file without date", "Data File: UNDATED.D", "before VSTD100.D"},
        {"a file of another kind", "Data File: SECRET", "before id"},
        {"a file that is gone", "Data File: GONE.D", "before id"},
        {"no name", "", "before id"}};
    for (const auto& [what, line, taken] : cases) {
        EXPECT_EQ(read(line), taken) << what;
    }
}

// Benzene, three levels: RFs 10.4, 11.5 and 14.49 round to 10, 12 and 14. n = 3, sum = 36 and
// sum of squares = 100 + 144 + 196 = 440, so the mean is 12, sd = sqrt((3 x 440 - 36^2) / 9) =
// sqrt(24 / 9) = 1.633 and %RSD = 100 x 1.633 / 12 = 13.61. Toluene uses levels 1 and 3: 21 and 24,
// mean 22.5 (printed 23), sd = sqrt((2 x 1017 - 45^2) / 4) = 1.5, %RSD = 100 x 1.5 / 22.5 = 6.67.
// The surrogate's amounts take no part in the heads. Toluene brings the second agreement on 5.00,
// and two are more than half of three records (3 / 2 is 1): 5, and likewise 50 and 2.5.
TEST(CalibrationTables, WorkedExample) {
    const auto report = CalibrationReport::Read(LineReader(
        "Date Version 4.2\n\nCalibration Data\n\n"
        " Benzene ;5.00;1;2;10.4;5;6;50.0;1;2;11.5;5;6;2.500;1;2;14.49;5;6;111;71-43-2\nx\nA\n"
        "Toluene;5.00;1;2;20.5;5;6;50.0;1;2;bad;5;6;2.500;1;2;24;5;6;101;108-88-3\nx\nAny\n"
        "Toluene-d8;7;1;2;1;5;6;7;1;2;1;5;6;7;1;2;1;5;6;000;x\nx\nS\n"
        "Chlorobenzene-d5;7\nx\nI\nAfter;1\nx\nA\n"));
    MessageLog messages;
    const std::vector<CalibrationRecord> table = BuildRFTable(report, 3, messages).value();
    std::string texts;
    for (const CalibrationRecord& record : table) {
        texts += record.Type + record.Name + ":" + record.RF[0] + "," + record.RF[1] + "," +
                 record.RF[2] + ":" + record.MeanRF + ":" + record.RSD + " ";
    }
    EXPECT_EQ(texts, "Abenzene:10,12,14:12:13.61 Atoluene:21,,24:23:6.67 Stoluene-d8:,,:: ");
    EXPECT_THAT(ChooseLevelAmounts(table, 3), ElementsAre("5", "50", "2.5"));
    EXPECT_THAT(messages.shown, IsEmpty());
}

TEST(CalibrationReport, KnowsTextBehindItsCompounds) {
    const auto behind = [](const char* text) {
        const std::string report = "Date\n\nheads\n\nc;1\nx\nA\n" + std::string(text);
        return CalibrationReport::Read(LineReader(report)).HasTextBehind ? "*" : "";
    };
    EXPECT_EQ(Joined({"", "i;\nx\nI\ni;\nx\nI\n \n", "x;\nx\nX\n\n\n\n", "End"}, behind), "|||");
    EXPECT_EQ(
        Joined({"c;", "c;\nx", "i;\nx\nI\ni;", "i;\nx\nI\nc;\nx\nA", "x;\nx\nX\ni;\nx\nI"}, behind),
        "*|*|*|*|*");
}

TEST(CalibrationTables, UseTheLevelsThatTheMaskNames) {
    MessageLog messages;
    const auto build = [&messages](const std::string& line) {
        LineReader report("title\n\nheads\n\n" + line + "\nline 2\nA\n");
        const auto table = BuildRFTable(CalibrationReport::Read(std::move(report)), 3, messages);
        const CalibrationRecord record = table ? table->at(0) : CalibrationRecord();
        return record.RF[0] + "," + record.RF[1] + "," + record.RF[2] + " mean " + record.MeanRF +
               " RSD " + record.RSD;
    };
    // The response factor is the fourth of a level's six fields.
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"a level out of use", "xylene;;;;1;;;;;;2;;;;;;3;;;101;CAS", "1,,3 mean 2 RSD 50.00"},
        {"a mask that is too short", "xylene;;;;1;;;;;;2;;;;;;3;;;1;CAS", "1,, mean 1 RSD 0.00"},
        {"no mask", "xylene;;;;1;;;;;;2;;;;;;x;;;;CAS", ",, mean  RSD "},
        {"fewer levels than the report has", "xylene;;;;1;;;111;CAS", "1,, mean 1 RSD 0.00"},
        {"no mean to be relative to", "xylene;;;;0.4;;;;;;0;;;;;;;;;111;CAS", "0,0, mean 0 RSD "},
        {"a name alone", "xylene", ",, mean  RSD "}};
    for (const auto& [what, line, numbers] : cases) {
        EXPECT_EQ(build(line), numbers) << what;
    }
    EXPECT_THAT(messages.shown, IsEmpty());
    build("xylene;;;;1;;;;;;2;;;;;;x;;;111;CAS");
    EXPECT_THAT(messages.TakeTexts(),
                ElementsAre("The response factor \"x\" of\nxylene\nis not a number."));
}

TEST(CalibrationTables, HeadALevelWithTheAmountThatMostAnalytesShare) {
    // Compounds, each as the letter of its kind and its amount.
    const std::tuple<const char*, std::vector<std::string>, const char*> cases[] = {
        {"without compounds", {}, ""},
        {"a surrogate alone", {"S7"}, "7"},
        {"an analyte outvotes the surrogate before it", {"S7", "A 2.50 "}, "2.5"},
        {"a surrogate has no vote of its own", {"A5", "S7"}, "5"},
        {"and agrees with no analyte", {"A5", "A7", "S5", "S5", "S5"}, "7"},
        {"two of three agree", {"A5.000", "A5.000", "A9"}, "5"},
        {"nobody agrees: the last", {"A5", "A7", "A9"}, "9"},
        {"agreements of all candidates count: at the third", {"A1", "A2", "A1", "A2"}, "1"},
        {"zeros before the point go too", {"A100"}, "1"},
        {"down to nothing", {"A0"}, ""},
        {"a point at the end", {"A50."}, "50"},
        {"nothing but zeros", {"A0.0"}, "0"},
        {"what is no number", {"Ax00"}, "x"}};
    for (const auto& [what, compounds, head] : cases) {
        std::vector<CalibrationRecord> table(compounds.size());
        for (std::size_t i = 0; i < table.size(); ++i) {
            table[i].Type = compounds[i].front();
            table[i].Amount[3] = compounds[i].substr(1);
        }
        EXPECT_EQ(ChooseLevelAmount(table, 3), head) << what;
    }
    LineReader report("N;Comp\n------\n1;Benzene;;;50.0;\n2;Toluene-d8;;;30.0;\n");
    std::vector<CalibrationRecord> compounds(2);
    compounds[0].Type = 'A';
    compounds[1].Type = 'S';
    const CheckReport check = CheckReport::Read(std::move(report));
    EXPECT_EQ(BuildForm7Content({}, compounds, check, {}, {}).Amount, "50");
}

TEST(CalibrationTables, LeaveMissingDataFilesForTheUserToComplete) {
    CalibratedRun run(3, 0);
    run.dir.Write("OTHER.D", "OTHER FILE\n05/16/2005 11:00\nC:\\OTHER.D\n");
    run.dir.Write("UNDATED.D", "Data File\nyesterday\nC:\\SEEN.D");
    // The list, and whether the user has entered the levels; then levels, their IDs, the hours of
    // the first and the last standard, and messages.
    const std::tuple<const char*, const char*, bool, const char*> cases[] = {
        {"no files", "", false, "0: id1 id2 id3 first last 0"},
        {"two of three levels", "STD3.D;STD1.D", false, "2: STD3.D STD1.D id3 01:00 03:00 0"},
        {"a file is missing", "GONE.D;STD1.D;GONE2.D;", false, "3:    : : 1"},
        {"one that was entered", "GONE.D;STD1.D;", true, "2: STD1.D id2 id3 01:00 last 1"},
        {"no names", "; ;", false, "2:    : : 1"},
        {"a file without title", "STD2.D;OTHER.D", false, "2: STD2.D id2 id3 02:00 last 0"},
        {"no date at last", "STD2.D;UNDATED.D", false, "2: STD2.D SEEN.D id3 02:00 last 0"},
        {"no date at first", "UNDATED.D;STD2.D;", false, "2: SEEN.D STD2.D id3 first 02:00 0"},
        {"too many", "1;2;3;4;5;6;7;8;9;10;11;", true, "10: id1 id2 id3 first last 1"}};
    for (const auto& [what, list, entered, expected] : cases) {
        InitialCalibrationEntry entry{"first", "last", {"id1", "id2", "id3"}};
        const auto report =
            Calibration(run.dir, "Date\n Data File(s): \n" + std::string(list) + "\n");
        Reports reports;
        std::string read =
            std::to_string(ReadCalibrationDataFiles(report, reports, entered, entry, run.host)) +
            ": ";
        for (std::size_t i = 0; i < 3; ++i) {
            read += entry.LabFileIds[i] + " ";
        }
        for (const std::string& text : {entry.FirstStandard, entry.LastStandard}) {
            read += Trim(text.size() < 16 ? text : text.substr(11)) + " ";
        }
        EXPECT_EQ(read + std::to_string(run.host.messages.TakeTexts().size()), expected) << what;
    }
}

TEST(CalibrationTables, NameTheAcceptedEntriesThatMissingDataFilesChange) {
    const CalibratedRun run(3, 0);
    const auto said = [&run](const std::string& list) {
        InitialCalibrationEntry entry{
            "05/16/2005 01:00", "05/16/2005 03:00", {"STD1.D", "STD2.D", "STD3.D"}};
        Reports reports;
        MessageLog messages;
        ReadCalibrationDataFiles(Calibration(run.dir, "Date\nData File(s):\n" + list + "\n"),
                                 reports, true, entry, messages);
        return messages.shown.empty() ? "" : messages.shown.front().text;
    };
    const std::string missing = "Calibration raw data not found: ";
    const std::string changed = ".\nThis has changed on Form VI: the ";
    EXPECT_EQ(said("STD1.D;STD2.D;STD3.D") + said("GONE.D;GONE.D"), "");
    EXPECT_EQ(said("STD1.D;C:\\GONE.D;STD3.D"),
              missing + "GONE.D" + changed + "lab file ID of level 2.");
    EXPECT_EQ(said("STD1.D;STD2.D;GO.D;GONE.D"),
              missing + "GO.D and GONE.D" + changed + "date of the last standard.");
}

TEST(InternalStandards, OfASampleAreBelowTheirHeading) {
    const std::string row = "Chlorobenzene-D5 (IS);1234.9; 8.84 \n";
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"dashes before it alone", "---------- Internal Standard Data\nheads\n", true},
        {"blanks before it", "          INTERNAL STANDARD DATA          ----\n\n", true},
        {"too far left", "---------Internal Standard Data\nheads\n", false},
        {"dashes behind it are too near", "---------- Internal Standard Data ----\nheads\n", false},
        {"no line of heads", "---------- Internal Standard Data\n", false},
        {"a name that is indented", "---------- Internal Standard Data\nheads\n ", false}};
    for (const auto& [what, before, found] : cases) {
        const auto peaks = QuantReport::Read(LineReader(before + row)).InternalStandards;
        EXPECT_EQ(peaks[0].Area + " " + peaks[0].RetentionTime + peaks[1].Area + peaks[2].Area,
                  found ? "1234 8.84" : " ")
            << what;
    }
}

TEST(InternalStandards, OfTheStandardHaveNoLimitsWithoutNumbers) {
    Batch batch;
    batch.SampleList = {CompleteRecord("s", TextOf(ExampleDir() / "ZA101.PRN"))};
    LineReader other("1;chlorobenzene-d5;3;4;5;6;7;8;9;many;late\n");
    const CheckReport check = CheckReport::Read(std::move(other));
    Reports reports;
    MessageLog messages;
    const auto content =
        BuildForm8Content(batch, 0, &check, nullptr, 0, {}, reports, messages).value();
    const auto none = FieldsAre("", "", "", "", "", "");
    EXPECT_THAT(content.Standard,
                ElementsAre(FieldsAre("many", "late", "", "", "", ""), none, none));
    EXPECT_EQ(content.Samples.at(0).Peaks[0].AreaFlag, "");
    EXPECT_FALSE(OutsideLimits("3", "", ""));
    const auto flag = [](const char* area) {
        return OutsideLimits(area, "500", "2000") ? "*" : "";
    };
    EXPECT_EQ(Joined({"499", "500", "2000", "2001", "n/a", ""}, flag), "*|||*||");
    EXPECT_EQ(ScaleText("1001", 0.5, 0), "500") << "to even, as ever";
}

TEST(CalibrationForms, PrintNoMoreCompoundsThanAReportMayHave) {
    EXPECT_THAT(CalibratedRun(1, 2000).Run(Form8ARTClick), IsEmpty());
    for (auto* const driver : {Form6CIDClick, Form7CCDClick, Form8ARTClick}) {
        EXPECT_THAT(CalibratedRun(1, 2001).Run(driver), ElementsAre("File Error"));
    }
}

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
    ShowContinuingCalibration(host.entries, host.batch, 0, host.Reports(), host);
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
    ShowContinuingCalibration(host.entries, host.batch, 0, host.Reports(), host);
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
