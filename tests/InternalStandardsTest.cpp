#include <gmock/gmock.h>

#include "data/InternalStandards.h"
#include "tests/CalibratedRun.h"

namespace qfr::test {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::FieldsAre;

TEST(InternalStandards, WhatCannotBeComparedIsInside) {
    EXPECT_TRUE(OutsideLimits(" 7.76 ", "6.75", "7.75"));
    const struct {
        const char* value;
        const char* lower;
        const char* upper;
    } cases[] = {{"", "1", "2"}, {"3", "", "2"}, {"3", "1", " "}, {"x", "1", "2"}, {"3", "x", "2"}};
    for (const auto& c : cases) {
        EXPECT_FALSE(OutsideLimits(c.value, c.lower, c.upper)) << c.value << c.lower << c.upper;
    }
    EXPECT_EQ(ScaleText("1001", 0.5, 0), "500") << "to even, as ever";
    EXPECT_EQ(ShiftText(" 0.3 ", -0.5, 2), "-0.20");
}

TEST(InternalStandards, SamplesBlockIsFoundByItsHeading) {
    const std::string row = "Chlorobenzene-D5 (IS);1234.9; 8.84 \n";
    const struct {
        std::string text;
        const char* area;
    } cases[] = {
        {"---------- Internal Standard Data\nheads\n" + row, "1234"},
        {"          INTERNAL STANDARD DATA          ----\nheads\n" + row, "1234"},
        {"---------Internal Standard Data\nheads\n" + row, ""},  // a column too far left
        {"---------- Internal Standard Data ----\nheads\n" + row, ""},
        {"---------- Internal Standard Data\n" + row, ""},
        {"---------- Internal Standard Data\nheads\n " + row, ""},
        {"", ""},
    };
    for (const auto& c : cases) {
        LineReader report(c.text);
        const SampleISData data = ReadISBlock(report);
        EXPECT_THAT(data.Area, ElementsAre(c.area, "", "")) << c.text;
        EXPECT_EQ(data.RT[0], c.area[0] == '\0' ? "" : "8.84") << c.text;
    }
}

// Area 1000.9 is cut to 1000: 2000 and 500. RT 7.25: 7.75 and 6.75. Level 3 has 3000.9.
TEST(InternalStandards, StandardIsReadFromEitherReport) {
    CalibratedRun run(3, 1);
    LineReader check(run.check);
    EXPECT_THAT(StandardFromCheckReport(check),
                Each(FieldsAre("1000", "7.25", "2000", "500", "7.75", "6.75")));
    LineReader other("1;chlorobenzene-d5;3;4;5;6;7;8;9;many;late\n");
    EXPECT_THAT(StandardFromCheckReport(other),
                ElementsAre(FieldsAre("many", "late", "", "", "", ""),
                            FieldsAre("", "", "", "", "", ""), FieldsAre("", "", "", "", "", "")));
    CalibrationTables tables;
    tables.LevelCount = 3;
    tables.LevelAmount = {"10", "20", "30", "left over"};
    LineReader report(run.calibration);
    EXPECT_THAT(*StandardFromCalibration(report, tables, "30", {"7.255", "6", "late"}, run.host),
                ElementsAre(FieldsAre("3000", "7.25", "6000", "1500", "7.75", "6.75"),
                            FieldsAre("3000", "6.00", "6000", "1500", "6.50", "5.50"),
                            FieldsAre("3000", "late", "6000", "1500", "", "")));
    EXPECT_FALSE(StandardFromCalibration(report, tables, "left over", {}, run.host));
    EXPECT_THAT(run.host.messages.TakeTexts(),
                ElementsAre("A left over ug/L concentration was not found. Return to\nForm 8 entry "
                            "to enter the appropriate concentration."));
}

}  // namespace
}  // namespace qfr::test
