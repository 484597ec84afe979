#include <gmock/gmock.h>

#include "data/CalibrationTables.h"
#include "tests/CalibratedRun.h"

namespace qfr::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

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
    EXPECT_TRUE(messages.shown.empty());
}

TEST(CalibrationTables, UsesTheLevelsThatTheMaskNames) {
    const struct {
        const char* line;
        const char* used;  // factors, mean and %RSD; nothing when the table cannot be had
    } cases[] = {
        {"a;;;;1;;;;;;2;;;;;;3;;;101;c", "1 - 3 2 50.00"},
        {"a;;;;1;;;;;;2;;;;;;3;;;1;c", "1 - - 1 0.00"},
        {"a;;;;1;;;;;;2;;;;;;x;;;;c", "- - - - -"},
        {"a;;;;1;;;111;c", "1 - - 1 0.00"},
        {"a;;;;0.4;;;;;;0;;;;;;;;;111;c", "0 0 - 0 -"},  // no mean to be relative to
        {"a;;;;1;;;;;;2;;;;;;x;;;111;c", ""},
        {"a", "- - - - -"},
    };
    for (const auto& c : cases) {
        MessageLog messages;
        LineReader report("title\n\nheads\n\n" + std::string(c.line) + "\nline 2\nA\n");
        std::string used;
        if (const auto table = BuildRFTable(report, 3, messages)) {
            const CalibrationRecord& record = table->at(0);
            for (const std::string& text :
                 {record.RF[0], record.RF[1], record.RF[2], record.MeanRF, record.RSD}) {
                used += (used.empty() ? "" : " ") + (text.empty() ? "-" : text);
            }
            EXPECT_THAT(messages.shown, IsEmpty());
        } else {
            EXPECT_THAT(messages.TakeTexts(),
                        ElementsAre("The response factor \"x\" of\na\nis not a number."));
        }
        EXPECT_EQ(used, c.used) << c.line;
    }
}

TEST(CalibrationTables, ChoosesTheAmountThatMostAnalytesShare) {
    const struct {
        std::vector<std::pair<char, const char*>> records;
        const char* amount;
    } cases[] = {
        {{}, ""},
        {{{'S', "7"}}, "7"},
        {{{'S', "7"}, {'A', " 2.50 "}}, "2.5"},
        {{{'A', "5.000"}, {'A', "5.000"}, {'A', "9"}}, "5"},
        {{{'A', "5"}, {'A', "7"}, {'A', "9"}}, "9"},
        {{{'A', "5.0"}, {'A', "5.0"}, {'A', "5.0"}, {'A', "9"}}, "5"},
        // The agreements of all candidates count: 1, 2, and 3 of 4 at the third.
        {{{'A', "1"}, {'A', "2"}, {'A', "1"}, {'A', "2"}}, "1"},
        {{{'A', "100"}}, "1"},
        {{{'A', "0"}}, ""},
        {{{'A', "50."}}, "50"},
        {{{'A', "0.0"}}, "0"},
        {{{'A', "x00"}}, "x"},
    };
    for (const auto& c : cases) {
        std::vector<CalibrationRecord> table;
        for (const auto& [type, amount] : c.records) {
            table.emplace_back().Type = type;
            table.back().Amount[3] = amount;
        }
        EXPECT_EQ(ChooseLevelAmount(table, 3), c.amount);
    }
}

TEST(CalibrationDataFiles, MissingOnesAreForTheUserToComplete) {
    CalibratedRun run(3, 0);
    run.dir.Write("OTHER.D", "OTHER FILE\n05/16/2005 11:00\nC:\\OTHER.D\n");
    run.dir.Write("UNDATED.D", "Data File\nyesterday\nC:\\SEEN.D");
    const struct {
        const char* list;
        bool entered;
        const char* taken;  // levels, IDs, hours of the first and the last standard, messages
    } cases[] = {
        {"", false, "0 abc f l 0"},
        {"STD3.D;STD1.D", false, "2 STD3.DSTD1.Dc 01:00 03:00 0"},
        {"GONE.D;STD1.D;GONE2.D;", false, "3    :     :   1"},
        {"GONE.D;STD1.D;", true, "2 STD1.Dbc 01:00 l 0"},
        {"; ;", false, "2    :     :   1"},
        {"STD2.D;OTHER.D;UNDATED.D;", false, "3 STD2.DbSEEN.D 02:00 l 0"},
        {"UNDATED.D;STD2.D;", false, "2 SEEN.DSTD2.Dc f 02:00 0"},
        {"1;2;3;4;5;6;7;8;9;10;11;", true, "10 abc f l 1"},
    };
    for (const auto& c : cases) {
        InitialCalibrationEntry entry{"f", "l", {"a", "b", "c"}};
        LineReader report("Date\n Data File(s): \n" + std::string(c.list) + "\n");
        const int levels =
            ReadCalibrationDataFiles(report, run.dir.Path().string(), c.entered, entry, run.host);
        const auto hour = [](const std::string& text) {
            return " " + text.substr(text.size() < 16 ? 0 : 11);
        };
        EXPECT_EQ(std::to_string(levels) + " " + entry.LabFileIds[0] + entry.LabFileIds[1] +
                      entry.LabFileIds[2] + hour(entry.FirstStandard) + hour(entry.LastStandard) +
                      " " + std::to_string(run.host.messages.TakeTexts().size()),
                  c.taken)
            << c.list;
    }
}

// Whatever is left of a report, what can be read of it is read.
TEST(CalibrationTables, TakesDamagedReportsAsFarAsTheyGo) {
    CalibratedRun run(3, 4);
    for (std::size_t cut = 0; cut <= run.calibration.size(); ++cut) {
        LineReader report(run.calibration.substr(0, cut));
        const auto table = BuildRFTable(report, 3, run.host);
        EXPECT_TRUE(table && table->size() <= 4);
    }
    LineReader binary(std::string("\0\xff\n\n\n;;;\1\n\nA\n", 13) + std::string(5000, ';'));
    EXPECT_EQ(BuildRFTable(binary, 10, run.host)->size(), 1U);
    EXPECT_TRUE(ReadDataFileList(binary).empty());
    EXPECT_THAT(run.host.messages.shown, IsEmpty());
}

}  // namespace
}  // namespace qfr::test
