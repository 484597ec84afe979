#include <gmock/gmock.h>

#include "forms/Form2.h"
#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

using ::testing::ElementsAre;

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
    const PrintJob& Print(bool ok = true) {
        host.dialogs.emplace_back([ok](EntryDialog) { return ok; });
        Form2MCRClick(host);
        static const PrintJob kNone;
        return host.sink.jobs.empty() ? kNone : host.sink.jobs[0];
    }
    TempDir dir;
    ScriptedHost host;
};

TEST(Form2, PagesOfSamplesAndOfCompounds) {
    const struct {
        std::size_t samples;
        int compounds;
        const char* pages;   // letter and number of each; "-" is an empty page
        const char* footer;  // of the first that is not empty
    } cases[] = {
        {1, 0, " - A1 -", "Page 1 of 1"},
        {30, 7, " - A1 -", "Page 1 of 2"},
        {61, 1, " - A1 A2 A3 -", "Page 1 of 3"},
        {31, 8, " - A1 A2 - B1 B2 -", "Page 1 of 2"},
        {1, 15, " - A1 - B1 - C1 -", "Page 1 of 1"},
        {1, 22, " - A1 - B1 - C1 -", "Page 1 of 1"},
    };
    for (const auto& c : cases) {
        Recoveries form(c.samples, c.compounds);
        const PrintJob& job = form.Print();
        std::string pages;
        std::size_t rows = 0;
        for (const JobPage& page : job.pages) {
            const auto lines = TextsAt(page, 3.6);
            pages += lines.empty() ? " -" : " " + lines[0].substr(1, 1) + lines[0].substr(17);
            rows += RulesAcross(page, 0.9, 7.6).size() - (lines.empty() ? 0 : 1);
        }
        EXPECT_EQ(pages, c.pages) << c.samples << " " << c.compounds;
        EXPECT_EQ(rows % 30, 0U);
        EXPECT_TRUE(HasText(job.pages.at(1), c.footer)) << c.samples;
    }
}

TEST(Form2, EightCompoundsOfThirtyOneSamples) {
    Recoveries form(31, 8);
    const std::vector<JobPage>& pages = form.Print().pages;
    EXPECT_THAT(TextsEndingAt(pages[2], 3.25), ElementsAre("102"));
    EXPECT_THAT(TextsAt(pages[2], 3.45), ElementsAre("#", "*"));
    EXPECT_TRUE(HasText(pages[2], "31") && HasText(pages[2], "60"));
    EXPECT_TRUE(HasText(pages[2], "VMC1 = c1")) << "without limits, but listed";
    EXPECT_THAT(TextsAt(pages[2], 6.1), ElementsAre("(82.5-101)"));
    // Rows are as high as ten points and 0.05 inch; eight points are 67 pixels.
    const double bottom = RulesAcross(pages[2], 0.9, 7.6).back();
    EXPECT_NEAR(bottom, 2.2375 + 32 * 83 / 600.0 + 30 * 0.05, 0.003);
    EXPECT_NEAR(FindText(pages[2], "QC LIMITS").y / 600.0, bottom + 0.2 - 67 / 600.0, 0.003);
    EXPECT_TRUE(HasText(pages[5], "VMC14")) << "all heads, one compound";
    EXPECT_THAT(TextsEndingAt(pages[5], 2.45), ElementsAre("108"));
    EXPECT_THAT(TextsAt(pages[5], 2.65), ElementsAre("#")) << "a limit itself is inside";
    EXPECT_THAT(TextsAt(pages[5], 6.1), ElementsAre("(80-108)"));
}

TEST(Form2, WithoutTheFirstReportNothingIsNamedOrFlagged) {
    Recoveries form(2, 2);
    form.host.batch.SampleList->front().FileName = "c:\\gone\\r.prn";
    const JobPage& page = form.Print().pages.at(1);
    EXPECT_THAT(TextsEndingAt(page, 3.25), ElementsAre("102"));
    EXPECT_TRUE(HasText(page, "VMC2 = "));
    EXPECT_THAT(TextsAt(page, 3.45), ElementsAre("#"));
}

TEST(Form2, PrintsNothingAfterCancelOrWithoutRanges) {
    Recoveries form(1, 1);
    form.Print(false);
    form.host.entries.Ranges.FileName = "c:\\lab\\limits.txt";
    form.Print();
    EXPECT_TRUE(form.host.sink.begun.empty());
    EXPECT_EQ(form.host.messages.shown.size(), 1U);
}

}  // namespace
}  // namespace qfr::test
