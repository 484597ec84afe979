#include <gmock/gmock.h>

#include "forms/Page.h"
#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

using ::testing::ElementsAre;

TEST(Page, ScalesFollowThePaper) {
    const struct {
        Paper paper;
        PageOrientation orientation;
        int horz;
        int vert;
    } cases[] = {
        {kLetterPaper, PageOrientation::kPortrait, 600, 600},
        {kLetterPaper, PageOrientation::kLandscape, 776, 463},
        {{"A4", 8.27, 11.69}, PageOrientation::kPortrait, 583, 637},
    };
    for (const auto& c : cases) {
        ScriptedHost host;
        host.printer.PaperSize = c.paper;
        host.printer.Orientation = c.orientation;
        host.page.SetupPage();
        EXPECT_EQ(host.page.HorzScale, c.horz) << c.paper.name;
        EXPECT_EQ(host.page.VertScale, c.vert) << c.paper.name;
    }
}

TEST(Page, AsksForThePrinterOnceAndAgainWhenItChanged) {
    ScriptedHost host;
    EXPECT_EQ(host.printerSetups, 1);
    host.page.testPrinter();
    EXPECT_EQ(host.printerSetups, 1);
    host.printer.PrinterIndex = 2;
    host.page.testPrinter();
    EXPECT_EQ(host.printerSetups, 2);
    EXPECT_EQ(host.page.ChosenPrinterIndex, 2);
}

TEST(Page, LabelledFieldStandsOnItsUnderline) {
    ScriptedHost host;
    host.printer.BeginDoc();
    // Ten points are 83 pixels, and 41 pixels a character in this typeface.
    host.page.PrintLabelledField("Label:", "val", 1.0, 2.0, 0.5);
    host.page.PrintLabelledField("Empty:", "  /  /       :  ", 1.0, 3.0, 0.5);
    host.printer.EndDoc();
    const JobPage& page = host.sink.jobs.at(0).pages.at(0);
    ASSERT_EQ(page.items.size(), 5U);
    const int width = 6 * 10 * 600 / 72 / 2;
    EXPECT_EQ(std::get<TextItem>(page.items[0]), (TextItem{600, 1117, width, 83, 10, "Label:"}));
    const RuleItem rule = std::get<RuleItem>(page.items[1]);
    EXPECT_NEAR(rule.x1, 600 + width + 60, 1);
    EXPECT_NEAR(rule.x2 - rule.x1, 300, 1);
    EXPECT_EQ(rule.y1, 1200);
    EXPECT_EQ(rule.penWidth, kRulePen);
    const TextItem value = std::get<TextItem>(page.items[2]);
    EXPECT_NEAR(value.x + value.width / 2.0, (rule.x1 + rule.x2) / 2.0, 2);
    EXPECT_NEAR(value.y, 1117 - 30, 1);
}

TEST(Page, SplitsNamesAfterHyphensOnly) {
    // One character is 41/600 inch wide, so 2.6 inches hold 37 characters and 38 do not fit.
    const struct {
        std::string name;
        std::vector<std::string> lines;
    } cases[] = {
        {"", {""}},
        {"1,2-dibromo-3-chloropropane", {"1,2-dibromo-3-chloropropane"}},
        {std::string(37, 'a'), {std::string(37, 'a')}},
        {"1,1,2-trichloro-1,2,2-trifluoroethane-by-gas-chromatography",
         {"1,1,2-trichloro-1,2,2-", "trifluoroethane-by-gas-chromatography"}},
        // Nothing to break at: one line, and the program goes on.
        {std::string(60, 'a'), {std::string(60, 'a')}},
        {std::string(50, 'a') + "-tail", {std::string(50, 'a') + "-tail"}},
        {"head-" + std::string(50, 'b'), {"head-", std::string(50, 'b')}},
        {"--------", {"--------"}},
    };
    for (const auto& c : cases) {
        ScriptedHost host;
        std::vector<std::string> lines;
        host.page.SplitAtHyphens(c.name, lines, 2.6);
        EXPECT_EQ(lines, c.lines) << c.name;
    }
    // A name exactly as wide as the column is split.
    ScriptedHost host;
    std::vector<std::string> lines;
    host.page.SplitAtHyphens("ab-cd", lines, host.page.TextWidthInch("ab-cd"));
    EXPECT_THAT(lines, ElementsAre("ab-", "cd"));
}

TEST(Page, DropsAJobThatTheUserGaveUp) {
    ScriptedHost host;
    host.sink.accept = false;
    host.printer.BeginDoc();
    host.page.TextOutInch("lost", 1, 1);
    host.printer.EndDoc();
    EXPECT_TRUE(host.sink.jobs.empty());
    host.sink.accept = true;
    host.printer.BeginDoc();
    host.printer.EndDoc();
    EXPECT_EQ(host.sink.jobs.size(), 1U);
    EXPECT_TRUE(host.sink.jobs[0].pages.at(0).items.empty());
    host.printer.EndDoc();
    EXPECT_EQ(host.sink.jobs.size(), 1U);
}

TEST(FormPreconditions, FirstCompleteHeaderWinsAndTheFirstGapIsNoted) {
    ScriptedHost host;
    EXPECT_EQ(CheckFormPreconditions(host, "Form 4"), std::nullopt);
    EXPECT_EQ(host.messages.shown.at(0).title, "File Not Specified");

    host.batch.SampleList = SampleListType{CompleteRecord("A"), CompleteRecord("B")};
    (*host.batch.SampleList)[0].Header[HeaderField::kCaseNo] = "  ";
    EXPECT_EQ(CheckFormPreconditions(host, "Form 4"), 1U);
    EXPECT_EQ(host.pendingFocus, HeaderField::kCaseNo);

    (*host.batch.SampleList)[1].Header[HeaderField::kColumnLength] = "";
    EXPECT_EQ(CheckFormPreconditions(host, "Form 4"), std::nullopt);
    EXPECT_EQ(host.pendingFocus, HeaderField::kColumnLength);
    EXPECT_EQ(host.messages.shown.at(1).text,
              "Header information is not complete for Form 4.\nGo to Form1 and enter header "
              "information for at\nleast one quantitation file. Then return and print\n Form 4.");
}

}  // namespace
}  // namespace qfr::test
