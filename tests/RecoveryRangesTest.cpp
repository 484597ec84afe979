#include <gmock/gmock.h>

#include "data/MonitoringRecoveries.h"
#include "data/RecoveryRanges.h"
#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kTwo[] =
    "RECOVERY RANGES of May\r\n 2 \n Toluene-d8 ;80;120.5;70;130;60; 140 \nBromo;1;2;3;4;5;6";

TEST(RecoveryRanges, TakesTheChosenKindOnly) {
    const struct {
        std::string content;
        RecoveryLimits limits;
        std::vector<RecoveryRange> ranges;
    } cases[] = {
        {kTwo, RecoveryLimits::kWater, {{"Toluene-d8", 80, 120.5}, {"Bromo", 1, 2}}},
        {kTwo, RecoveryLimits::kSoil, {{"Toluene-d8", 70, 130}, {"Bromo", 3, 4}}},
        {kTwo, RecoveryLimits::kOil, {{"Toluene-d8", 60, 140}, {"Bromo", 5, 6}}},
        {"t\n1\na;1;2;x\nb", RecoveryLimits::kWater, {{"a", 1, 2}}},
        {"t\n0\n", RecoveryLimits::kOil, {}},
    };
    const TempDir dir;
    MessageLog messages;
    for (const auto& c : cases) {
        dir.Write("R.txt", c.content);
        // Moved, and named as batches name files.
        EXPECT_EQ(LoadRecoveryRanges("c:\\lab\\r.txt", dir.Path().string(), c.limits, messages),
                  c.ranges);
    }
    EXPECT_THAT(messages.shown, IsEmpty());
}

TEST(RecoveryRanges, AnUnreadableFileIsNamed) {
    const std::string row = "a;1;2;3;4;5;6\n";
    const TempDir dir;
    MessageLog messages;
    for (const std::string& rest :
         {std::string(), "many\n" + row, "-1\n" + row, "99999999999\n" + row, "2147483647\n" + row,
          "2\n" + row, std::string("1\na;1;2;3;4;5\n"), std::string("1\na;1;2;x;4;5;6\n"),
          std::string("1\na;1;2;3;4;5;6;\n"), std::string("1\na\0;\0;2;3;4;5;6\n", 17),
          "1\n" + std::string(1 << 21, '7')}) {
        const std::string file = dir.Write("r.txt", "recovery ranges\n" + rest);
        EXPECT_FALSE(LoadRecoveryRanges(file, "", RecoveryLimits::kOil, messages));
    }
    EXPECT_FALSE(LoadRecoveryRanges("c:\\x\\r.txt", "", RecoveryLimits::kOil, messages));
    ASSERT_EQ(messages.shown.size(), 12U);
    for (const Message& message : messages.shown) {
        EXPECT_EQ(message.text, "r.txt could not be read as a recovery ranges file.");
        EXPECT_EQ(message.title, "Incorrect File Type");
    }
}

TEST(RecoveryRanges, TheDialogWantsAFileWithTheTitle) {
    const TempDir dir;
    EXPECT_FALSE(CheckRangesFile(dir.Write("r.txt", kTwo)));
    EXPECT_FALSE(CheckRangesFile(dir.Write("r.txt", "recovery ranges")));
    EXPECT_TRUE(CheckRangesFile(dir.Write("r.txt", "")));
    const std::string file = dir.Write("r.txt", "recovery range\n");
    EXPECT_EQ(CheckRangesFile(file).value().Message.text,
              file + " is not a recovery ranges file.\nPlease select another file.");
    EXPECT_FALSE(CheckRanges({file}));
    EXPECT_EQ(CheckRanges({"  "}).value().Message.text, "Please select a file for ranges.");
}

TEST(RecoveryFlag, MarksWhatIsOutsideTheFirstMatchingRange) {
    const std::vector<RecoveryRange> ranges = {{" D8", 80, 120}, {"d8", 0, 1}, {"", 0, 1}};
    for (const char* inside : {"80", "120", "n/a", ""}) {
        EXPECT_EQ(RecoveryFlag("d8", inside, ranges), "") << inside;
    }
    EXPECT_EQ(RecoveryFlag("d8", "79", ranges), "*");
    EXPECT_EQ(RecoveryFlag("D8 ", "121", ranges), "*");
    EXPECT_EQ(RecoveryFlag("d6", "500", ranges), "") << "without a range";
    EXPECT_EQ(RecoveryFlag("", "500", ranges), "") << "without a name";
}

TEST(MonitoringRecoveries, ReadsTheSection) {
    std::string endless = "volatile\nheads\n";
    for (int i = 0; i < 100; ++i) {
        endless += "1;a;5\n";
    }
    const struct {
        std::string report;
        std::vector<std::string> names;
        std::vector<std::string> recoveries;
    } cases[] = {
        {"x\nVOLATILE compounds\r\nheads;a;b\n1; D8 ;99.5;z\nno fields\n2;b;-3.7\n \n3;c;1\n",
         {"d8", "b"},
         {"100", "-3"}},
        {"volatile\nheads\n1;a; n/a ;\n2;b\n;;\n", {"a", "b", ""}, {"n/a", "", ""}},
        {"volatile", {}, {}},
        {endless, std::vector<std::string>(21, "a"), std::vector<std::string>(21, "5")},
    };
    const TempDir dir;
    MessageLog messages;
    for (const auto& c : cases) {
        const SampleRecord sample = CompleteRecord("s", dir.Write("r.prn", c.report));
        Batch batch;
        batch.SampleList = {sample, sample};
        const auto records = LoadMonitoringRecoveries(batch, messages);
        ASSERT_EQ(records.size(), 2U);
        EXPECT_EQ(records[0].Names, c.names) << c.report;
        EXPECT_EQ(records[1].Recoveries, c.recoveries) << c.report;
        EXPECT_THAT(records[1].Names, IsEmpty()) << "only the first report names compounds";
    }
}

TEST(MonitoringRecoveries, SkipsGoneReportsAndStopsAtOneWithoutTheSection) {
    const TempDir dir;
    const std::string good = dir.Write("good.prn", "volatile\nheads\n1;a;50\n");
    Batch batch;
    batch.SampleList = {CompleteRecord("s1", "c:\\gone.prn"), CompleteRecord("s2", good),
                        CompleteRecord("s3", dir.Write("bad.prn", "nothing\n")),
                        CompleteRecord("s4", good)};
    MessageLog messages;
    const auto records = LoadMonitoringRecoveries(batch, messages);
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].SampleNo, "s2");
    EXPECT_THAT(records[0].Names, IsEmpty());
    EXPECT_THAT(messages.TakeTexts(), ElementsAre("Did not find keyword, volatile"));
}

}  // namespace
}  // namespace qfr::test
