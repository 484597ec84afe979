// Monitoring compound recoveries: their ranges, the sections of the reports, and Form II.
#include "data/EntryTables.h"
#include "data/MonitoringRecoveries.h"
#include "data/RecoveryRanges.h"
#include "forms/Form2.h"
#include "platform/Numbers.h"
#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

using namespace ::testing;
using Texts = std::vector<std::string>;

constexpr char kTwo[] =
    "RECOVERY RANGES of May\r\n 2 \n Toluene-d8 ;80;120.5;70;130;60; 140 \nBromo;1;2;3;4;5;6";

TEST(RecoveryRanges, TakeTheChosenKindOnly) {
    const TempDir dir;
    MessageLog messages;
    const auto load = [&](const std::string& content, RecoveryLimits limits) {
        dir.Write("R.txt", content);
        // Moved, and named as batches name files.
        const auto ranges =
            LoadRecoveryRanges("c:\\lab\\r.txt", dir.Path().string(), limits, messages).value();
        std::string text;
        for (const RecoveryRange& range : ranges) {
            text += range.Name + " " + FormatShortest(range.Low) + "-" +
                    FormatShortest(range.High) + " ";
        }
        return text;
    };
    EXPECT_EQ(load(kTwo, RecoveryLimits::kWater), "Toluene-d8 80-120.5 Bromo 1-2 ");
    EXPECT_EQ(load(kTwo, RecoveryLimits::kSoil), "Toluene-d8 70-130 Bromo 3-4 ");
    EXPECT_EQ(load(kTwo, RecoveryLimits::kOil), "Toluene-d8 60-140 Bromo 5-6 ");
    EXPECT_EQ(load("t\n1\na;1;2;x\nb", RecoveryLimits::kWater), "a 1-2 ");
    EXPECT_EQ(load("t\n0\n", RecoveryLimits::kOil), "");
    const std::string row = "a;1;2;3;4;5;6\n";
    for (const std::string& rest :
         {std::string(), "many\n" + row, "-1\n" + row, "99999999999\n" + row, "2147483647\n" + row,
          "2\n" + row, std::string("1\na;1;2;3;4;5\n"), std::string("1\na;1;2;x;4;5;6\n"),
          std::string("1\na;1;2;3;4;5;6;\n"), std::string("1\na\0;\0;2;3;4;5;6\n", 17)}) {
        const std::string file = dir.Write("r.txt", "recovery ranges\n" + rest);
        EXPECT_FALSE(LoadRecoveryRanges(file, "", RecoveryLimits::kOil, messages)) << rest;
        EXPECT_THAT(messages.TakeTexts(),
                    ElementsAre("r.txt could not be read as a recovery ranges file."));
    }
    const std::string file = dir.Write("r.txt", "recovery range\n");
    EXPECT_EQ(CheckRangesFile(file).value().Message.text,
              file + " is not a recovery ranges file.\nPlease select another file.");
    EXPECT_FALSE(CheckRangesFile(dir.Write("r.txt", "recovery ranges")));
    Entries entries;
    entries.Ranges.FileName = "  ";
    EXPECT_EQ(CheckEntries(kRangesTable, entries).value().Message.text,
              "Please select a file for ranges.");
}

TEST(RecoveryFlag, MarksWhatIsOutsideTheFirstMatchingRange) {
    const std::vector<RecoveryRange> ranges = {{" D8", 80, 120}, {"d8", 0, 1}, {"", 0, 1}};
    const auto flag = [&](const char* recovery) { return RecoveryFlag("D8 ", recovery, ranges); };
    EXPECT_EQ(Joined({"79.9", "80", "120", "120.1", "n/a", ""}, flag), "*|||*||");
    const auto unknown = [&](const char* name) { return RecoveryFlag(name, "500", ranges); };
    EXPECT_EQ(Joined({"d6", ""}, unknown), "|");
}

TEST(MonitoringRecoveries, AreReadFromTheirSection) {
    std::string endless = "volatile\nheads\n";
    for (int i = 0; i < 100; ++i) {
        endless += "1;a;5\n";
    }
    const TempDir dir;
    MessageLog messages;
    Batch batch;
    const auto load = [&](const std::string& report) {
        const SampleRecord sample = CompleteRecord("s", dir.Write("r.prn", report));
        batch.SampleList = {sample, sample};
        const auto records = LoadMonitoringRecoveries(batch, messages);
        EXPECT_EQ(records.size(), 2U);
        EXPECT_THAT(records.back().Names, IsEmpty()) << "only the first report names compounds";
        return records.front();
    };
    const MonitoringRecoveries full =
        load("x\nVOLATILE compounds\r\nheads;a;b\n1; D8 ;99.5;z\nno fields\n2;b;-3.7\n \n3;c;1\n");
    EXPECT_THAT(full.Names, ElementsAre("d8", "b"));
    EXPECT_THAT(full.Recoveries, ElementsAre("100", "-3"));
    const MonitoringRecoveries half = load("volatile\nheads\n1;a; n/a ;\n2;b\n;;\n");
    EXPECT_THAT(half.Names, ElementsAre("a", "b", ""));
    EXPECT_THAT(half.Recoveries, ElementsAre("n/a", "", ""));
    EXPECT_THAT(load("volatile").Recoveries, IsEmpty());
    EXPECT_THAT(load(endless).Recoveries, SizeIs(21));
    const std::string good = dir.Write("good.prn", "volatile\nheads\n1;a;50\n");
    batch.SampleList = {CompleteRecord("s1", "c:\\gone.prn"), CompleteRecord("s2", good),
                        CompleteRecord("s3", dir.Write("bad.prn", "nothing\n")),
                        CompleteRecord("s4", good)};
    const auto records = LoadMonitoringRecoveries(batch, messages);
    ASSERT_EQ(records.size(), 1U) << "a gone one is skipped, one without the section the last";
    EXPECT_EQ(records[0].SampleNo, "s2");
    EXPECT_THAT(records[0].Names, IsEmpty());
    EXPECT_THAT(messages.TakeTexts(), ElementsAre("Did not find keyword, volatile"));
}

// A batch whose reports list compounds c1, c2, ... with recoveries 101, 102, ...
struct Recoveries {
    Recoveries(std::size_t samples, int compounds) {
        std::string report = "volatile\nheads\n";
        for (int i = 1; i <= compounds; ++i) {
            report += "1;C" + std::to_string(i) + ";" + std::to_string(100 + i) + ";\n";
        }
        host.batch.SampleList.emplace(samples, CompleteRecord("S", dir.Write("r.prn", report)));
        host.entries.Ranges.FileName =
            dir.Write("Ranges.txt", "recovery ranges\n2\nc2;82.5;101\nc8;80;108\n");
    }
    const std::vector<JobPage>& Pages() {
        Form2MCRClick(host);
        return host.sink.jobs.at(0).pages;
    }
    TempDir dir;
    ScriptedHost host;
};

TEST(Form2, PagesOfSamplesAndOfCompounds) {
    // Letter and number of each page, "-" for an empty one, and the footer of the first other one.
    const auto pages = [](std::size_t samples, int compounds) {
        Recoveries form(samples, compounds);
        std::string summary;
        for (const JobPage& page : form.Pages()) {
            const Texts lines = TextsAt(page, 3.6);
            summary += lines.empty() ? "- " : lines[0].substr(1, 1) + lines[0].substr(17) + " ";
        }
        return summary + TextsAt(form.Pages().at(1), 0.9).back();
    };
    EXPECT_EQ(pages(1, 0), "- A1 - Page 1 of 1");
    EXPECT_EQ(pages(30, 7), "- A1 - Page 1 of 2");
    EXPECT_EQ(pages(61, 1), "- A1 A2 A3 - Page 1 of 3");
    EXPECT_EQ(pages(31, 8), "- A1 A2 - B1 B2 - Page 1 of 2");
    EXPECT_EQ(pages(1, 15), "- A1 - B1 - C1 - Page 1 of 1");
    EXPECT_EQ(pages(1, 22), "- A1 - B1 - C1 - Page 1 of 1");
}

TEST(Form2, WithoutRangesNothingPrints) {
    Recoveries form(2, 2);
    form.host.ok = false;
    Form2MCRClick(form.host);
    form.host.ok = true;
    form.host.entries.Ranges.FileName = "c:\\gone.txt";
    Form2MCRClick(form.host);
    EXPECT_THAT(form.host.messages.TakeTitles(), ElementsAre("Incorrect File Type"));
    EXPECT_THAT(form.host.sink.begun, IsEmpty());
}

}  // namespace
}  // namespace qfr::test
