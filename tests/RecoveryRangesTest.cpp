#include <gmock/gmock.h>

#include "data/MonitoringRecoveries.h"
#include "data/RecoveryRanges.h"
#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kTwoCompounds[] =
    "RECOVERY RANGES of May\n 2 \n Toluene-d8 ;80;120.5;70;130;60; 140 \nBromo;1;2;3;4;5;6\n";

TEST(RecoveryRanges, TakesTheChosenKindOnly) {
    const struct {
        const char* content;
        RecoveryLimits limits;
        std::vector<RecoveryRange> ranges;
    } cases[] = {
        {kTwoCompounds, RecoveryLimits::kWater, {{"Toluene-d8", 80, 120.5}, {"Bromo", 1, 2}}},
        {kTwoCompounds, RecoveryLimits::kSoil, {{"Toluene-d8", 70, 130}, {"Bromo", 3, 4}}},
        {kTwoCompounds, RecoveryLimits::kOil, {{"Toluene-d8", 60, 140}, {"Bromo", 5, 6}}},
        {"t\n1\na;1;2;x\nb", RecoveryLimits::kWater, {{"a", 1, 2}}},
        {"t\r\n1\r\na;1;2\r\n", RecoveryLimits::kWater, {{"a", 1, 2}}},
        {"t\n0\n", RecoveryLimits::kOil, {}},
    };
    const TempDir dir;
    MessageLog messages;
    for (const auto& c : cases) {
        const std::string file = dir.Write("r.txt", c.content);
        EXPECT_EQ(LoadRecoveryRanges(file, "", c.limits, messages), c.ranges) << c.content;
    }
    EXPECT_TRUE(messages.shown.empty());
}

TEST(RecoveryRanges, AnUnreadableFileIsNamed) {
    using std::string_literals::operator""s;
    const std::string cases[] = {
        "",
        "recovery ranges",
        "recovery ranges\nmany\na;1;2;3;4;5;6\n",
        "recovery ranges\n-1\n",
        "recovery ranges\n99999999999\na;1;2;3;4;5;6\n",
        "recovery ranges\n2147483647\na;1;2;3;4;5;6\n",
        "recovery ranges\n2\na;1;2;3;4;5;6\n",
        "recovery ranges\n1\na;1;2;3;4;5\n",
        "recovery ranges\n1\na;1;2;x;4;5;6\n",
        "recovery ranges\n1\na;1;2;3;4;5;6;\n",
        "recovery ranges\n1\n\0\0;\0;2;3;4;5;6\n"s,
        "recovery ranges\n1\n" + std::string(1 << 21, '7'),
    };
    const TempDir dir;
    MessageLog messages;
    const auto load = [&](const std::string& file) {
        EXPECT_EQ(LoadRecoveryRanges(file, "", RecoveryLimits::kOil, messages), std::nullopt);
        ASSERT_EQ(messages.shown.size(), 1U) << file;
        EXPECT_EQ(messages.shown[0].title, "Incorrect File Type");
        EXPECT_EQ(messages.TakeTexts()[0], "r.txt could not be read as a recovery ranges file.");
    };
    for (const std::string& content : cases) {
        load(dir.Write("r.txt", content));
    }
    load("c:\\gone\\r.txt");
    std::filesystem::create_directories(dir.Path() / "d" / "r.txt");
    load((dir.Path() / "d" / "r.txt").string());
}

TEST(RecoveryRanges, AMovedFileIsFoundInTheBatchFolder) {
    const TempDir dir;
    dir.Write("Ranges.txt", kTwoCompounds);
    MessageLog messages;
    const auto ranges = LoadRecoveryRanges("c:\\lab\\ranges.txt", dir.Path().string(),
                                           RecoveryLimits::kWater, messages);
    ASSERT_TRUE(ranges);
    EXPECT_EQ(ranges->size(), 2U);
}

TEST(RecoveryRanges, BrowseAcceptsItsTitleInAnyCase) {
    const struct {
        const char* content;
        bool accepted;
    } cases[] = {{kTwoCompounds, true},
                 {"recovery ranges", true},
                 {"recovery range\n", false},
                 {" recovery ranges", false},
                 {"", false}};
    const TempDir dir;
    for (const auto& c : cases) {
        const std::string file = dir.Write("r.txt", c.content);
        const auto fault = CheckRangesFile(file);
        EXPECT_EQ(!fault, c.accepted) << c.content;
        if (fault) {
            EXPECT_EQ(fault->Message.text,
                      file + " is not a recovery ranges file.\nPlease select another file.");
            EXPECT_EQ(fault->Control, "FileEdit");
        }
    }
    EXPECT_TRUE(CheckRangesFile("c:\\gone\\r.txt"));
}

TEST(RecoveryRanges, OkNeedsAFile) {
    EXPECT_FALSE(CheckRanges({"r.txt"}));
    const auto fault = CheckRanges({"  "});
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->Message.text, "Please select a file for ranges.");
    EXPECT_EQ(fault->Message.title, "No File Specified");
}

TEST(RecoveryFlag, MarksWhatIsOutsideTheFirstMatchingRange) {
    const std::vector<RecoveryRange> ranges = {
        {" Toluene-D8", 80, 120}, {"toluene-d8", 0, 1}, {"", 0, 1}};
    const struct {
        const char* compound;
        const char* recovery;
        const char* flag;
    } cases[] = {
        {"toluene-d8", "80", ""},   {"toluene-d8", "79", "*"},   {"toluene-d8", "120", ""},
        {"toluene-d8", "121", "*"}, {"TOLUENE-D8 ", "121", "*"}, {"toluene-d8", "n/a", ""},
        {"toluene-d8", "", ""},     {"benzene-d6", "500", ""},   {"", "500", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(RecoveryFlag(c.compound, c.recovery, ranges), c.flag)
            << c.compound << " " << c.recovery;
    }
}

// Loads reports of these contents; an empty content is a report that is gone.
std::vector<MonitoringRecoveries> Load(const std::vector<std::string>& reports,
                                       MessageLog& messages) {
    const TempDir dir;
    Batch batch;
    batch.SampleList.emplace();
    for (const std::string& report : reports) {
        const std::string name = "s" + std::to_string(batch.SampleList->size());
        batch.SampleList->push_back(CompleteRecord(
            name, report.empty() ? "c:\\gone\\r.prn" : dir.Write(name + ".prn", report)));
    }
    return LoadMonitoringRecoveries(batch, messages);
}

TEST(MonitoringRecoveries, ReadsTheSection) {
    const struct {
        const char* report;
        std::vector<std::string> names;
        std::vector<std::string> recoveries;
    } cases[] = {
        {"x\nVOLATILE compounds\nheads;a;b\n1; Toluene-D8 ;99.5;z\nno fields\n2;b;-3.7\n \n3;c;1\n",
         {"toluene-d8", "b"},
         {"100", "-3"}},
        {"volatile\r\nheads\r\n1;a; n/a ;\r\n", {"a"}, {"n/a"}},
        {"volatile\nheads\n1;a\n;;\n", {"a", ""}, {"", ""}},
        {"volatile\nheads", {}, {}},
        {"volatile", {}, {}},
    };
    for (const auto& c : cases) {
        MessageLog messages;
        const auto records = Load({c.report, c.report}, messages);
        ASSERT_EQ(records.size(), 2U);
        EXPECT_EQ(records[0].Names, c.names) << c.report;
        EXPECT_EQ(records[1].Recoveries, c.recoveries) << c.report;
        EXPECT_THAT(records[1].Names, IsEmpty()) << "only the first report names compounds";
        EXPECT_TRUE(messages.shown.empty());
    }
}

TEST(MonitoringRecoveries, KeepsTwentyOneCompounds) {
    std::string report = "volatile\nheads\n";
    for (int i = 0; i < 100; ++i) {
        report += "1;name;" + std::to_string(i) + "\n";
    }
    MessageLog messages;
    const auto records = Load({report}, messages);
    EXPECT_EQ(records.at(0).Recoveries.size(), 21U);
    EXPECT_EQ(records.at(0).Recoveries.back(), "20");
}

TEST(MonitoringRecoveries, SkipsGoneReportsAndStopsAtOneWithoutTheSection) {
    const std::string good = "volatile\nheads\n1;a;50\n";
    MessageLog messages;
    const auto records = Load({"", good, "no such section\n", good}, messages);
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].SampleNo, "s1");
    EXPECT_THAT(records[0].Names, IsEmpty());
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, "");
    EXPECT_THAT(messages.TakeTexts(), ElementsAre("Did not find keyword, volatile"));
}

}  // namespace
}  // namespace qfr::test
