#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

using ::testing::ElementsAre;

TEST(Page, ScalesFollowThePaper) {
    ScriptedHost host;
    const auto scales = [&host](const Paper& paper) {
        host.printer.PaperSize = paper;
        host.page.SetupPage();
        return std::to_string(host.page.HorzScale) + " x " + std::to_string(host.page.VertScale);
    };
    EXPECT_EQ(scales({"A4", 8.27, 11.69}), "583 x 637");
    host.printer.Orientation = PageOrientation::kLandscape;
    EXPECT_EQ(scales({"A4", 8.27, 11.69}), "825 x 451");
}

TEST(Page, AsksForThePrinterOnceAndAgainWhenItChanged) {
    ScriptedHost host;
    EXPECT_TRUE(host.page.testPrinter());
    EXPECT_EQ(host.printerSetups, 1);
    host.printer.PrinterIndex = 2;
    host.chooses = false;
    EXPECT_FALSE(host.page.testPrinter() || host.page.testPrinter());
    EXPECT_EQ(host.printerSetups, 3) << "cancelled, it comes up again";
    host.chooses = true;
    EXPECT_TRUE(host.page.testPrinter() && host.page.testPrinter());
    EXPECT_EQ(host.printerSetups, 4);
}

TEST(Page, SplitsNamesAfterHyphensOnly) {
    ScriptedHost host;
    const auto split = [&host](const std::string& name, double width = 2.6) {
        std::vector<std::string> lines;
        host.page.SplitAtHyphens(name, lines, width);
        return lines;
    };
    // 2.6 inches hold 37 letters b and not 38.
    EXPECT_THAT(split("1,1,2-trichloro-1,2,2-trifluoroethane-by-gas-chromatography"),
                ElementsAre("1,1,2-trichloro-1,2,2-trifluoroethane-by-gas-", "chromatography"));
    const std::string tail(50, 'b');
    EXPECT_THAT(split("head-" + tail), ElementsAre("head-", tail));
    // Nothing to break at: one line, and the program goes on.
    for (const std::string& name :
         {std::string(), "b-" + std::string(35, 'b'), tail, tail + "-tail", std::string(8, '-')}) {
        EXPECT_THAT(split(name), ElementsAre(name));
    }
    const double asWide = host.page.TextWidthInch("ab-cd");
    EXPECT_THAT(split("ab-cd", asWide), ElementsAre("ab-", "cd"));
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
    host.printer.EndDoc();
    ASSERT_EQ(host.sink.jobs.size(), 1U);
    EXPECT_TRUE(host.sink.jobs[0].pages.at(0).items.empty());
}

TEST(FormPreconditions, FirstCompleteHeaderWinsAndTheFirstGapIsNoted) {
    ScriptedHost host;
    host.batch.SampleList = SampleListType{CompleteRecord("A"), CompleteRecord("B")};
    (*host.batch.SampleList)[0].Header[HeaderField::kCaseNo] = "  ";
    EXPECT_EQ(CheckFormPreconditions(host, "Form 4"), 1U);
    EXPECT_EQ(host.pendingFocus, HeaderField::kCaseNo);
    (*host.batch.SampleList)[1].Header[HeaderField::kColumnLength] = "";
    EXPECT_EQ(CheckFormPreconditions(host, "Form 4"), std::nullopt);
    EXPECT_EQ(host.pendingFocus, HeaderField::kColumnLength);
    host.batch.SampleList.reset();
    EXPECT_EQ(CheckFormPreconditions(host, "Form 4"), std::nullopt);
    EXPECT_THAT(host.messages.TakeTexts(),
                ElementsAre("Header information is not complete for Form 4.\nGo to Form1 and enter "
                            "header information for at\nleast one quantitation file. Then return "
                            "and print\n Form 4.",
                            "Please use Data Files|Load Files menu selections\nto specify files."));
}

}  // namespace
}  // namespace qfr::test
