// What is read from calibration and check reports and the files that they name.
#include "data/CalibrationTables.h"
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
    const std::string changed = ".\nThis has changed on Form 6: the ";
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

}  // namespace
}  // namespace qfr::test
