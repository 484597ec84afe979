// What is read from calibration and check reports and the files that they name.
#include "data/CheckReport.h"
#include "data/CriteriaFile.h"
#include "data/InternalStandards.h"
#include "data/RawDataFile.h"
#include "platform/Text.h"
#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

using namespace ::testing;

TEST(CriteriaFile, GivesNameAndLimitsOfEachLine) {
    EXPECT_TRUE(IsCriteriaTitle("RF Criteria of May"));
    EXPECT_FALSE(IsCriteriaTitle(" RF Criteria") || IsCriteriaTitle("RF Criteri"));
    LineReader file("RF Criteria; x; y\n\n Benzene ; 0.1 ; 25 \nAcetone;0.05\n  \nTwo;1;2;3\n;");
    EXPECT_THAT(ReadCriteriaTable(file),
                ElementsAre(FieldsAre("benzene", "0.1", "25"), FieldsAre("acetone", "0.05", ""),
                            FieldsAre("two", "1", "2;3"), FieldsAre("", "", "")));
}

TEST(CheckReport, SixthLineNamesTheStandardsDataFile) {
    TempDir dir;
    dir.Write("GOOD.D", "anything\n05/18/2005 8:46\nC:\\RUN\\VSTD050.D\n");
    dir.Write("UNDATED.D", "DATA FILE\nMonday\nC:\\RUN\\VSTD100.D\n");
    const auto read = [&](const std::string& line) {
        ContinuingCalibrationEntry entry;
        entry.AnalysisDateTime = "before";
        entry.LabFileId = "id";
        LineReader report("1:\n2\n3\n4\n5\n" + line);
        ReadCheckStandardInfo(report, dir.Path().string(), entry);
        return entry.AnalysisDateTime + " " + entry.LabFileId;
    };
    EXPECT_EQ(Joined({"Data File: C:\\RUN\\GOOD.D ", "GOOD.D"}, read),
              "05/18/2005 08:46 VSTD050.D|05/18/2005 08:46 VSTD050.D");
    EXPECT_EQ(Joined({"Data File: UNDATED.D", "Data File: GONE.D", ""}, read),
              "before VSTD100.D|before id|before id");
}

// Benzene, three levels: RFs 10.4, 11.5 and 14.49 round to 10, 12 and 14. n = 3, sum = 36 and
// sum of squares = 100 + 144 + 196 = 440, so the mean is 12, sd = sqrt((3 x 440 - 36^2) / 9) =
// sqrt(24 / 9) = 1.633 and %RSD = 100 x 1.633 / 12 = 13.61. Toluene uses levels 1 and 3: 21 and 24,
// mean 22.5 (printed 23), sd = sqrt((2 x 1017 - 45^2) / 4) = 1.5, %RSD = 100 x 1.5 / 22.5 = 6.67.
// The surrogate's amounts take no part in the heads. Toluene brings the second agreement on 5.00,
// and two are more than half of three records (3 / 2 is 1): 5, and likewise 50 and 2.5.
TEST(CalibrationTables, WorkedExample) {
    LineReader report(
        "Date Version 4.2\n\nCalibration Data\n\n"
        " Benzene ;5.00;1;2;10.4;5;6;50.0;1;2;11.5;5;6;2.500;1;2;14.49;5;6;111;71-43-2\nx\nA\n"
        "Toluene;5.00;1;2;20.5;5;6;50.0;1;2;bad;5;6;2.500;1;2;24;5;6;101;108-88-3\nx\nAny\n"
        "Toluene-d8;7;1;2;1;5;6;7;1;2;1;5;6;7;1;2;1;5;6;000;x\nx\nS\n"
        "Chlorobenzene-d5;7\nx\nI\nAfter;1\nx\nA\n");
    MessageLog messages;
    CalibrationTables tables;
    tables.LevelAmount.fill("left over");
    tables.LevelCount = 3;
    tables.RFTable = BuildRFTable(report, tables.LevelCount, messages).value();
    std::string texts;
    for (const CalibrationRecord& record : tables.RFTable) {
        texts += record.Type + record.Name + ":" + record.RF[0] + "," + record.RF[1] + "," +
                 record.RF[2] + ":" + record.MeanRF + ":" + record.RSD + " ";
    }
    EXPECT_EQ(texts, "Abenzene:10,12,14:12:13.61 Atoluene:21,,24:23:6.67 Stoluene-d8:,,:: ");
    ChooseLevelAmounts(tables);
    EXPECT_THAT(tables.LevelAmount, ElementsAre("5", "50", "2.5", "", "", "", "", "", "", ""));
    EXPECT_THAT(messages.shown, IsEmpty());
}

TEST(CalibrationTables, UseTheLevelsThatTheMaskNames) {
    MessageLog messages;
    const auto build = [&messages](const std::string& line) {
        LineReader report("title\n\nheads\n\n" + line + "\nline 2\nA\n");
        const auto table = BuildRFTable(report, 3, messages);
        const CalibrationRecord record = table ? table->at(0) : CalibrationRecord();
        return record.RF[0] + "," + record.RF[1] + "," + record.RF[2] + "," + record.MeanRF + "," +
               record.RSD;
    };
    EXPECT_EQ(build("a;;;;1;;;;;;2;;;;;;3;;;101;c"), "1,,3,2,50.00");
    EXPECT_EQ(build("a;;;;1;;;;;;2;;;;;;3;;;1;c"), "1,,,1,0.00");
    EXPECT_EQ(build("a;;;;1;;;;;;2;;;;;;x;;;;c"), ",,,,");
    EXPECT_EQ(build("a;;;;1;;;111;c"), "1,,,1,0.00");
    EXPECT_EQ(build("a;;;;0.4;;;;;;0;;;;;;;;;111;c"), "0,0,,0,") << "no mean to be relative to";
    EXPECT_EQ(build("a"), ",,,,");
    EXPECT_THAT(messages.shown, IsEmpty());
    build("a;;;;1;;;;;;2;;;;;;x;;;111;c");
    EXPECT_THAT(messages.TakeTexts(),
                ElementsAre("The response factor \"x\" of\na\nis not a number."));
}

TEST(CalibrationTables, HeadALevelWithTheAmountThatMostAnalytesShare) {
    const auto choose = [](std::string_view amounts) {
        std::vector<CalibrationRecord> table;
        while (!amounts.empty()) {
            table.emplace_back().Amount[3] = TakeField(amounts);
            table.back().Type = table.back().Amount[3].starts_with("sur") ? 'S' : 'A';
        }
        return ChooseLevelAmount(table, 3);
    };
    EXPECT_EQ(
        Joined({"", "sur7", "sur7; 2.50 ", "5.000;5.000;9", "5;7;9", "5.0;5.0;5.0;9"}, choose),
        "|sur7|2.5|5|9|5");
    // The agreements of all candidates count: 1, 2, and 3 of 4 at the third.
    EXPECT_EQ(choose("1;2;1;2"), "1");
    EXPECT_EQ(Joined({"100", "0", "50.", "0.0", "x00"}, choose), "1||50|0|x");
}

TEST(CalibrationTables, LeaveMissingDataFilesForTheUserToComplete) {
    CalibratedRun run(3, 0);
    run.dir.Write("OTHER.D", "OTHER FILE\n05/16/2005 11:00\nC:\\OTHER.D\n");
    run.dir.Write("UNDATED.D", "Data File\nyesterday\nC:\\SEEN.D");
    const auto read = [&run](const std::string& list, bool entered = false) {
        InitialCalibrationEntry entry{"f", "l", {"a", "b", "c"}};
        LineReader report("Date\n Data File(s): \n" + list + "\n");
        const int levels =
            ReadCalibrationDataFiles(report, run.dir.Path().string(), entered, entry, run.host);
        const auto hour = [](const std::string& text) {
            return " " + text.substr(text.size() < 16 ? 0 : 11);
        };
        return std::to_string(levels) + " " + entry.LabFileIds[0] + entry.LabFileIds[1] +
               entry.LabFileIds[2] + hour(entry.FirstStandard) + hour(entry.LastStandard) + " " +
               std::to_string(run.host.messages.TakeTexts().size());
    };
    // Levels, IDs, hours of the first and the last standard, messages.
    EXPECT_EQ(read(""), "0 abc f l 0");
    EXPECT_EQ(read("STD3.D;STD1.D"), "2 STD3.DSTD1.Dc 01:00 03:00 0");
    EXPECT_EQ(read("GONE.D;STD1.D;GONE2.D;"), "3    :     :   1");
    EXPECT_EQ(read("GONE.D;STD1.D;", true), "2 STD1.Dbc 01:00 l 0");
    EXPECT_EQ(read("; ;"), "2    :     :   1");
    EXPECT_EQ(read("STD2.D;OTHER.D;UNDATED.D;"), "3 STD2.DbSEEN.D 02:00 l 0");
    EXPECT_EQ(read("UNDATED.D;STD2.D;"), "2 SEEN.DSTD2.Dc f 02:00 0");
    EXPECT_EQ(read("1;2;3;4;5;6;7;8;9;10;11;", true), "10 abc f l 1");
}

TEST(InternalStandards, OfASampleAreBelowTheirHeading) {
    const std::string row = "Chlorobenzene-D5 (IS);1234.9; 8.84 \n";
    const auto read = [](const std::string& text) {
        LineReader report(text);
        const SampleISData data = ReadISBlock(report);
        return data.Area[0] + " " + data.RT[0] + data.Area[1] + data.RT[2];
    };
    EXPECT_EQ(read("---------- Internal Standard Data\nheads\n" + row), "1234 8.84");
    EXPECT_EQ(read("          INTERNAL STANDARD DATA          ----\n\n" + row), "1234 8.84");
    EXPECT_EQ(read("---------Internal Standard Data\nheads\n" + row), " ") << "too far left";
    EXPECT_EQ(read("---------- Internal Standard Data ----\nheads\n" + row), " ");
    EXPECT_EQ(read("---------- Internal Standard Data\n" + row), " ");
    EXPECT_EQ(read("---------- Internal Standard Data\nheads\n " + row), " ");
}

TEST(InternalStandards, OfTheStandardHaveNoLimitsWithoutNumbers) {
    LineReader other("1;chlorobenzene-d5;3;4;5;6;7;8;9;many;late\n");
    const auto none = FieldsAre("", "", "", "", "", "");
    EXPECT_THAT(StandardFromCheckReport(other),
                ElementsAre(FieldsAre("many", "late", "", "", "", ""), none, none));
    EXPECT_FALSE(OutsideLimits("3", "", ""));
    const auto flag = [](const char* area) {
        return OutsideLimits(area, "500", "2000") ? "*" : "";
    };
    EXPECT_EQ(Joined({"499", "500", "2000", "2001", "n/a", ""}, flag), "*|||*||");
    EXPECT_EQ(ScaleText("1001", 0.5, 0), "500") << "to even, as ever";
}

}  // namespace
}  // namespace qfr::test
