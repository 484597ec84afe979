// Form I VOA and its TIC sheet.
#include <algorithm>
#include <set>

#include "forms/Form1Tic.h"
#include "forms/Form1Voa.h"
#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

using namespace ::testing;

TEST(SignificantFigures, AreRoundedAsTheFormsShowThem) {
    const auto two = [](const char* text) { return ToSignificantFigures(text, 2); };
    EXPECT_EQ(Joined({"5.04", "5.05", "12.4", "12.5", "99.5", "9.96", "1", "10", "1000"}, two),
              "5.0|5.1|12|13|100|10|1.0|10|1000");
    EXPECT_EQ(Joined({"123", "125", "1234", "0.53", "0.053", "0.004", "0.95", "0", "0.000"}, two),
              "120|130|1200|0.5|0.1|0.0|1.0|0.00|0.00");
    EXPECT_EQ(Joined({" 5.04 ", "n/a", "", "5.0 J"}, two), "5.0|n/a||5.0 J");
}

TEST(VoaRow, TakesTheReportsRowApart) {
    const auto row = [](const std::string& line, bool inBlank = false) {
        LineReader report(line + "\n");
        const VoaRow r = ReadVoaRow(report, inBlank);
        return r.CasNumber + "," + r.Compound + "," + r.Concentration + "," + r.Qualifier;
    };
    EXPECT_EQ(row("1; benzene ;12.4;x;y;J;z; 71-43-2 "), "71-43-2, benzene ,12,J");
    EXPECT_EQ(row("1;benzene;12.4;x;y;;71-43-2", true), "71-43-2,benzene,12,B");
    EXPECT_EQ(row("1;benzene;12.4;x;y;E;71-43-2", true), "71-43-2,benzene,12,EB");
    EXPECT_EQ(row("1;benzene;U;x;y;J;71-43-2", true), "71-43-2,benzene,,U");
    EXPECT_EQ(row("1;benzene;U5.04;x;y;;71-43-2"), "71-43-2,benzene,5.0,U");
    EXPECT_EQ(row("1;benzene;UU;x;y;;71-43-2"), "71-43-2,benzene,,U");
    EXPECT_EQ(row("1;benzene;12.4"), "12.4,benzene,12,");
    EXPECT_EQ(row(""), ",,,");
}

// A host with a lab blank and a sample whose report has these compound names.
struct VoaSheets {
    explicit VoaSheets(const std::vector<std::string>& names) {
        std::string report = "QUANTITATION REPORT VERSION 4.2\nCompound#;Name;Conc\n";
        for (const std::string& name : names) {
            report += "1;" + name + ";12.4;;;;71-43-2\n";
        }
        SampleRecord record = CompleteRecord("MW-1", dir.Write("a.prn", report + "\n"));
        record.CompoundCount = static_cast<std::int32_t>(names.size());
        host.batch.SampleList = {record, record};
    }
    // The job's pages for the sample.
    const std::vector<JobPage>& Pages() {
        PrintFormIVoa(host, 1);
        return host.sink.jobs.at(0).pages;
    }
    TempDir dir;
    ScriptedHost host;
};

TEST(Form1Voa, EveryPageHasTwentyFiveRuledRows) {
    const std::pair<std::size_t, std::size_t> cases[] = {{0, 1}, {25, 1}, {26, 2}, {51, 3}};
    for (const auto& [compounds, count] : cases) {
        VoaSheets sheets(std::vector<std::string>(compounds, "benzene"));
        const std::vector<JobPage>& pages = sheets.Pages();
        EXPECT_THAT(sheets.host.sink.begun, ElementsAre("Form 1 MW-1"));
        ASSERT_EQ(pages.size(), count);
        for (std::size_t i = 0; i < pages.size(); ++i) {
            EXPECT_EQ(TextsAt(pages[i], 1.0).size(),
                      1 + std::min<std::size_t>(compounds - 25 * i, 25));
            // One more for the top of the head box.
            EXPECT_EQ(RulesAcross(pages[i], 0.9, 7.8).size(), 26U);
            EXPECT_EQ(FindText(pages[i], "MW-1").size, 14);
            const char* const lines[] = {"1A - FORM I VOA-1", "1B - FORM I VOA-2",
                                         "1C - FORM I VOA-3"};
            EXPECT_TRUE(HasText(pages[i], lines[i]));
        }
    }
    // 43 characters in two lines; each row is 2 x (83/600 + 0.025) + 0.025 inch high.
    VoaSheets tall(std::vector<std::string>(24, "1,1,2-trichloro-1,2,2-trifluoro-octylethane"));
    ASSERT_EQ(tall.Pages().size(), 2U);
    EXPECT_EQ(TextsAt(tall.Pages()[0], 1.0).size(), 1U + 17U);
    EXPECT_EQ(TextsAt(tall.Pages()[1], 1.0).size(), 1U + 7U);
}

TEST(Form1Voa, MarksBlankHitsOfSamplesOnly) {
    VoaSheets sheets({"benzene", "toluene"});
    sheets.host.batch.BlankHitFlags = {true};
    (*sheets.host.batch.SampleList)[1].CompoundCount = 3;
    PrintFormIVoa(sheets.host, 0);
    PrintFormIVoa(sheets.host, 1);
    EXPECT_THAT(TextsAt(sheets.host.sink.jobs.at(0).pages.at(0), 7.3), IsEmpty());
    const JobPage& page = sheets.host.sink.jobs.at(1).pages.at(0);
    EXPECT_THAT(TextsAt(page, 7.3), ElementsAre("B"));
    EXPECT_THAT(TextsAt(page, 2.3), ElementsAre("COMPOUND", "benzene", "toluene"));
    EXPECT_EQ(RulesAcross(page, 0.9, 7.8).size(), 26U) << "the counted row that is not there";

    (*sheets.host.batch.SampleList)[1].FileName = "c:\\gone\\mw-1.x";
    PrintFormIVoa(sheets.host, 1);
    EXPECT_EQ(sheets.host.sink.begun.size(), 2U);
    EXPECT_THAT(sheets.host.messages.TakeTexts(),
                ElementsAre("c:\\gone\\mw-1.x\ncould not be found.  Use Data Files|Load Files menu "
                            "option\nto relocate file"));
}

PrintJob PrintTics(std::size_t count) {
    ScriptedHost host;
    host.batch.SampleList = {CompleteRecord("MW-1")};
    host.batch.SampleList->front().Header[HeaderField::kPurgeVolume] = "25 millilitres, about";
    PrintFormITic(host, 0);
    EXPECT_THAT(host.messages.TakeTitles(), ElementsAre("TIC Compounds Not Entered"));
    TicListType& tics = host.batch.SampleList->front().TicList.emplace();
    for (std::size_t i = 1; i <= count; ++i) {
        tics.push_back({{"c", "tic" + std::to_string(i), "1", "9", "N"}});
    }
    PrintFormITic(host, 0);
    EXPECT_THAT(host.sink.begun, ElementsAre("Form 1 TIC MW-1"));
    return host.sink.jobs.at(0);
}

TEST(Form1Tic, PagesFollowTheCountAndEveryPageStartsTheListAgain) {
    const std::pair<std::size_t, std::vector<std::size_t>> cases[] = {
        {0, {0}}, {12, {12}}, {30, {30, 0}}, {31, {30, 1}}, {60, {30, 30, 0}}};
    for (const auto& [tics, slots] : cases) {
        const PrintJob job = PrintTics(tics);
        ASSERT_EQ(job.pages.size(), slots.size()) << tics;
        for (std::size_t i = 0; i < job.pages.size(); ++i) {
            std::vector<std::string> numbers;
            for (std::size_t slot = 1; slot <= slots[i]; ++slot) {
                numbers.push_back(std::to_string(slot));
            }
            EXPECT_EQ(TextsAt(job.pages[i], 0.65), numbers) << tics << " page " << i;
            EXPECT_EQ(HasText(job.pages[i], "tic1"), !numbers.empty());
            EXPECT_EQ(FindText(job.pages[i], "Total Alkanes").size, 8);
            // The top of the head box and 31 rows.
            const auto rules = RulesAcross(job.pages[i], 0.9, 7.8);
            EXPECT_EQ(rules.size(), 32U);
            EXPECT_NEAR(rules.back(), 4.1 + 31 * 0.181, 0.002);
        }
    }
}

// Twelve pages: the numbers of the last are wider than the line that covers them. The cells of this
// typeface end at the level of the rules, those of real ones below it.
TEST(Form1Tic, NothingOfTheSheetBelowShows) {
    for (const JobPage& page : PrintTics(331).pages) {
        std::set<std::string> hidden;  // beginnings of texts, and levels of rules
        for (auto item = page.items.begin(); item != page.items.end(); ++item) {
            const auto* text = std::get_if<TextItem>(&*item);
            const auto* rule = std::get_if<RuleItem>(&*item);
            const int left = text ? text->x : rule->x1 - 3;
            const int right = text ? text->x + text->width : rule->x2 + 3;
            const int top = text ? text->y : rule->y1 - 3;
            const int bottom = text ? text->y + text->height : top;
            if (std::any_of(item + 1, page.items.end(), [=](const PageItem& later) {
                    const auto* cell = std::get_if<TextItem>(&later);
                    return cell != nullptr && cell->x <= left && cell->x + cell->width >= right &&
                           cell->y <= top && cell->y + cell->height >= bottom;
                })) {
                hidden.insert(text ? text->text.substr(text->text.starts_with("1") ? 2 : 0, 14)
                                   : std::to_string(rule->y1));
            }
        }
        EXPECT_THAT(hidden, IsSupersetOf({" - FORM I VOA-", "Purge Volume:", "25 millilitres",
                                          "(mL)", "2220"}));
    }
}

}  // namespace
}  // namespace qfr::test
