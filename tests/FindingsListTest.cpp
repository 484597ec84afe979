// The printed list of findings, and the help's entry for each rule.
#include "review/FindingsList.h"
#include "review/Review.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

TEST(FindingsList, WrapsLongLinesAndStaysOnThePage) {
    ScriptedHost host;
    std::vector<std::string> lines = {"short", std::string(300, 'W'), "", "a;\nb"};
    for (int i = 0; i < 100; ++i) {
        lines.push_back("error header.empty: form 1: ZA" + std::to_string(i) +
                        ": Lab Name is empty, and so is much else that a reviewer would have liked "
                        "to read there. [Form 1 Header, Lab Name]");
    }
    PrintFindings(host.page, "REVIEW: 100 errors", lines);
    ASSERT_EQ(host.sink.jobs.size(), 1U);
    const PrintJob& job = host.sink.jobs.front();
    EXPECT_EQ(job.title, "Review");
    ASSERT_EQ(job.pages.size(), 5U);
    std::string texts;
    for (const JobPage& page : job.pages) {
        for (const PageItem& item : page.items) {
            if (const auto* text = std::get_if<TextItem>(&item)) {
                EXPECT_TRUE(text->x > 0 && text->x + text->width < page.width &&
                            text->y + text->height < page.height)
                    << text->text;
                texts += text->text + "|";
            }
        }
    }
    EXPECT_THAT(texts, testing::StartsWith("REVIEW: 100 errors|Page 1 of 5|short|WWW"));
    EXPECT_EQ(std::ranges::count(texts, 'W'), 300 + 5) << "each heading has one";
    EXPECT_THAT(texts, testing::HasSubstr("ZA99: Lab Name is empty"));
    EXPECT_THAT(texts, testing::EndsWith("Lab Name]|"));

    host.chooses = false;
    host.page.PrinterChosen = false;
    PrintFindings(host.page, "REVIEW", {"line"});
    EXPECT_EQ(host.sink.jobs.size(), 1U) << "the printer setup was cancelled";
}

TEST(FindingsList, FindsEachRuleInTheHelp) {
    const std::string page = ReadAll(ExampleDir().parent_path() / "help" / "review.html");
    for (const Rule& rule : ReviewRules()) {
        const std::string head = "<b>" + std::string(rule.Title) + "</b> (<code>" +
                                 std::string(rule.Id) + "</code>, " +
                                 std::string(SeverityName(rule.Severity));
        const std::size_t entry = page.find(head);
        EXPECT_NE(page.find(std::string(rule.Why) + "<br>", entry), std::string::npos) << head;
    }
}

}  // namespace
}  // namespace qfr::test
