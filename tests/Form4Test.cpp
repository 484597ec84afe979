#include <gmock/gmock.h>

#include "forms/Form4.h"
#include "forms/SampleChecks.h"
#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST(TwelveHourFlag, MarksOneMinuteBeyondEitherEnd) {
    const DateTime start = ParseDateTime("05/18/2005 09:00").value();
    for (const char* inside :
         {"05/18/2005 09:00", "05/18/2005 21:00", " 5/18/2005  9:05", "  /  /       :  ", ""}) {
        EXPECT_EQ(TwelveHourFlag(inside, start), "") << inside;
    }
    for (const char* outside : {"05/18/2005 08:59", "05/18/2005 21:01", "05/19/2005 09:00"}) {
        EXPECT_EQ(TwelveHourFlag(outside, start), "*") << outside;
    }
}

// A lab blank analyzed at 09:00 on 5/18/2005 and samples with this analysis date.
struct BlankSummary {
    explicit BlankSummary(std::size_t samples, const std::string& date = "05/18/2005 21:01") {
        host.batch.Files.LabBlank = "c:\\lab\\vblk01.prn";
        host.batch.SampleList.emplace(1 + samples, CompleteRecord("S"));
        for (SampleRecord& record : *host.batch.SampleList) {
            record.Header[HeaderField::kDateAnalyzed] = date;
        }
        Blank()[HeaderField::kZovSampleNo] = "VBLK01";
        Blank()[HeaderField::kDateAnalyzed] = "05/18/2005 09:00";
    }
    SampleHeader& Blank() { return host.batch.SampleList->front().Header; }
    void Print(bool ok = true) {
        host.dialogs.emplace_back([ok](EntryDialog) { return ok; });
        Form4MBSClick(host);
    }
    ScriptedHost host;
};

TEST(Form4, NumbersItsRowsAndPages) {
    const struct {
        std::size_t samples;
        std::vector<std::size_t> rowsOnPages;
        const char* footer;
    } cases[] = {{0, {0}, "Page 1 of 1"},
                 {3, {3}, "Page 1 of 1"},
                 {30, {30}, "Page 1 of 1"},
                 {31, {30, 1}, "Page 2 of 2"},
                 {61, {30, 30, 1}, "Page 3 of 3"}};
    for (const auto& c : cases) {
        BlankSummary form(c.samples);
        form.Print();
        const PrintJob& job = form.host.sink.jobs.at(0);
        ASSERT_EQ(job.pages.size(), c.rowsOnPages.size()) << c.samples;
        EXPECT_TRUE(HasText(job.pages.back(), c.footer));
        for (std::size_t i = 0; i < job.pages.size(); ++i) {
            std::vector<std::string> numbers;
            for (std::size_t row = 1; row <= 30; ++row) {
                numbers.push_back(std::to_string(30 * i + row + (row > c.rowsOnPages[i] ? 1 : 0)));
            }
            EXPECT_EQ(TextsAt(job.pages[i], 1.45), numbers) << c.samples;
            EXPECT_EQ(TextsAt(job.pages[i], 1.85).size(), c.rowsOnPages[i]) << c.samples;
        }
    }
}

TEST(Form4, ShowsTheBlankItsSamplesAndTwoCommentLines) {
    BlankSummary form(31);
    form.host.batch.SampleList->at(31).Header[HeaderField::kDateAnalyzed] = "  /  /       :  ";
    form.host.entries.Comments.Lines = {"one", "two", "three"};
    form.Print();
    EXPECT_EQ(form.host.sink.begun, std::vector<std::string>{"Form 4 VBLK01"});
    const std::vector<JobPage>& pages = form.host.sink.jobs.at(0).pages;
    EXPECT_TRUE(HasText(pages[0], "05/18/2005 21:01") && HasText(pages[0], "*"));
    EXPECT_TRUE(TextsAt(pages[1], 5.6).empty() && !HasText(pages[1], "*"));
    EXPECT_TRUE(HasText(pages[1], "05/18/2005") && HasText(pages[1], "09:00"));
    EXPECT_TRUE(HasText(pages[1], "4B - FORM IV VOA-2"));
    EXPECT_THAT(TextsAt(pages[1], 2.1), ElementsAre("one", "two"));
    const double bottom = RulesAcross(pages[1], 1.75, 6.75).back();
    EXPECT_NEAR(bottom, 3.375 + 32 * 83 / 600.0 + 30 * 0.025, 0.003);
    EXPECT_NEAR(FindText(pages[1], "two").y / 600.0, bottom + 0.3, 0.003);
}

TEST(Form4, SaysWhatIsMissingAndPrintsNothing) {
    const struct {
        void (*spoil)(BlankSummary&);
        const char* title;
    } cases[] = {
        {[](BlankSummary& f) { f.host.batch.Files.LabBlank = " "; }, "Lab Blank Not Specified"},
        {[](BlankSummary& f) { f.Blank()[HeaderField::kDateAnalyzed] = " "; },
         "Analysis Date Not Specified"},
        {[](BlankSummary& f) { f.host.batch.SampleList.reset(); }, "File Not Specified"},
    };
    for (const auto& c : cases) {
        BlankSummary form(0);
        c.spoil(form);
        Form4MBSClick(form.host);
        EXPECT_TRUE(form.host.sink.begun.empty());
        EXPECT_EQ(form.host.messages.shown.at(0).title, c.title);
    }
}

TEST(Form4, ABadAnalysisDateOnAnyPageStopsTheJob) {
    BlankSummary form(40, "");
    form.host.batch.SampleList->at(39).Header[HeaderField::kZovSampleNo] = "MW-7";
    form.host.batch.SampleList->at(39).Header[HeaderField::kDateAnalyzed] = "13/32/2005 10:00";
    form.Print();
    form.Print(false);
    EXPECT_TRUE(form.host.sink.begun.empty());
    EXPECT_EQ(form.host.messages.shown.at(0).title, "Incorrect Time Format");
    EXPECT_THAT(form.host.messages.TakeTexts(),
                ElementsAre(AllOf(HasSubstr("MW-7"), HasSubstr("13/32/2005 10:00"))));
}

}  // namespace
}  // namespace qfr::test
