#include <gmock/gmock.h>

#include "forms/Form1Tic.h"
#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

PrintJob PrintTics(std::size_t count, const std::string& purge = "5.0") {
    ScriptedHost host;
    SampleRecord record = CompleteRecord("MW-1");
    record.Header[HeaderField::kPurgeVolume] = purge;
    host.batch.SampleList = {record};
    PrintFormITic(host, 0);
    EXPECT_EQ(host.messages.shown.at(0).title, "TIC Compounds Not Entered");
    host.batch.SampleList->front().TicList.emplace(count, TicEntry{{"c", "later", "1", "9", "N"}});
    if (count != 0) {
        host.batch.SampleList->front().TicList->front().cells[1] = "first";
    }
    PrintFormITic(host, 0);
    EXPECT_EQ(host.sink.begun, std::vector<std::string>{"Form 1 TIC MW-1"});
    return host.sink.jobs.at(0);
}

TEST(Form1Tic, PagesFollowTheCountAndEveryPageStartsTheListAgain) {
    const struct {
        std::size_t tics;
        std::vector<std::size_t> slotsOnPages;
    } cases[] = {{0, {0}}, {12, {12}}, {30, {30, 0}}, {31, {30, 1}}, {60, {30, 30, 0}}};
    for (const auto& c : cases) {
        const PrintJob job = PrintTics(c.tics);
        ASSERT_EQ(job.pages.size(), c.slotsOnPages.size()) << c.tics;
        for (std::size_t i = 0; i < job.pages.size(); ++i) {
            std::vector<std::string> numbers;
            for (std::size_t slot = 1; slot <= c.slotsOnPages[i]; ++slot) {
                numbers.push_back(std::to_string(slot));
            }
            EXPECT_EQ(TextsAt(job.pages[i], 0.65), numbers) << c.tics << " page " << i;
            EXPECT_EQ(HasText(job.pages[i], "first"), !numbers.empty());
            EXPECT_EQ(FindText(job.pages[i], "Total Alkanes").size, 8);
            // The top of the head box and 31 rows.
            const auto rules = RulesAcross(job.pages[i], 0.9, 7.8);
            EXPECT_EQ(rules.size(), 32U);
            EXPECT_NEAR(rules.back(), 4.1 + 31 * 0.181, 0.002);
        }
    }
}

// Left, right, top and bottom. The cells of this typeface end at the level of the rules, those of
// real ones below it.
std::array<int, 4> BoxOf(const PageItem& item) {
    if (const auto* text = std::get_if<TextItem>(&item)) {
        return {text->x, text->x + text->width, text->y, text->y + text->height};
    }
    const auto& rule = std::get<RuleItem>(item);
    return {rule.x1 - 3, rule.x2 + 3, rule.y1 - 3, rule.y1 - 3};
}

TEST(Form1Tic, NothingOfTheSheetBelowShows) {
    const std::string purge = "25 millilitres, approximately";
    // Twelve pages: the numbers of the last are wider than the line that covers them.
    for (const JobPage& page : PrintTics(331, purge).pages) {
        int hidden = 0;
        for (std::size_t i = 0; i < page.items.size(); ++i) {
            const auto [left, right, top, bottom] = BoxOf(page.items[i]);
            const auto* text = std::get_if<TextItem>(&page.items[i]);
            const bool row = top > 2100 && bottom < 2250 && left < 2500;
            const bool inRow =
                row && (text == nullptr ? left < 1700
                                        : text->text == purge || text->text == "(mL)" ||
                                              text->text == "Purge Volume:");
            const bool line = text != nullptr && text->text.find(" - FORM I VOA-") == 2 &&
                              !text->text.ends_with("TIC");
            bool covered = false;
            for (std::size_t k = i + 1; k < page.items.size(); ++k) {
                const auto cell = BoxOf(page.items[k]);
                covered |= std::holds_alternative<TextItem>(page.items[k]) && cell[0] <= left &&
                           cell[1] >= right && cell[2] <= top && cell[3] >= bottom;
            }
            hidden += (inRow || line) && covered ? 1 : 0;
        }
        EXPECT_EQ(hidden, 5) << "number line, label, underline, value, unit";
    }
}

}  // namespace
}  // namespace qfr::test
