#include "platform/qt/DesktopSink.h"
#include "platform/qt/PrinterQueue.h"
#include "platform/qt/PrinterSetupDialog.h"
#include "tests/ui/PdfSupport.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

class DesktopSinkTest : public testing::Test, protected WindowRig {
  protected:
    DesktopSink desktop_{fonts, chooser, log};
    const int pdf_ = static_cast<int>(InstalledPrinters().size());
    const PrintJob job_{"Form 1 VBLK01", kLetterPaper, {LetterPage()}};
};

TEST_F(DesktopSinkTest, APdfJobAsksForItsFileFirst) {
    EXPECT_EQ(desktop_.Printers().rbegin()[1], "PDF file");
    EXPECT_FALSE(desktop_.BeginJob(pdf_, job_.title)) << "cancelled";
    EXPECT_EQ(chooser.saved[0].kind, SaveKind::kPdf);
    EXPECT_EQ(chooser.saved[0].fileName, "Form 1 VBLK01.pdf");
    desktop_.BeginJob(pdf_, ".a/b\x1B\u202E?.");
    EXPECT_EQ(chooser.saved[1].fileName,
              "a-b??"
              "-.pdf");

    chooser.answers = {{Path("one.pdf")}, {Path("gone/two.pdf")}};
    ASSERT_TRUE(desktop_.BeginJob(pdf_, job_.title));
    EXPECT_FALSE(std::filesystem::exists(Path("one.pdf"))) << "not before it is whole";
    desktop_.TakeJob(pdf_, job_);
    EXPECT_EQ(PagesOf(Read("one.pdf")), 1);

    ASSERT_TRUE(desktop_.BeginJob(pdf_, "Form 2"));
    EXPECT_EQ(chooser.saved.back().directory, TextOf(dir.Path())) << "the last one used";
    desktop_.TakeJob(pdf_, job_);
    EXPECT_THAT(log.TakeTexts(), testing::ElementsAre("two.pdf could not be written."));
}

TEST_F(DesktopSinkTest, JoinsAPackageWhenItIsFinished) {
    EXPECT_EQ(desktop_.BeginPackage(pdf_, "Package"), nullptr) << "cancelled";
    for (const bool finished : {false, true}) {
        chooser.answers = {{Path("all.pdf")}};
        const auto package = desktop_.BeginPackage(pdf_, "Package");
        EXPECT_FALSE(package->Take(job_) || package->Take(job_));
        if (finished) {
            package->Finish();
        }
        EXPECT_EQ(package->Printed(), finished ? 2U : 0U);
        EXPECT_EQ(std::filesystem::exists(Path("all.pdf")), finished);
    }
    EXPECT_EQ(PagesOf(Read("all.pdf")), 2);
}

TEST(PrinterSetup, GivesThePrinterWhatIsChosen) {
    using Choice = std::pair<Paper, const char*>;
    const Choice letter{kLetterPaper, "Letter (8.5 x 11 in)"};
    const Choice a4{{"A4", 8.27, 11.69}, "A4 (8.27 x 11.69 in)"};
    const Choice label{{"Label", 4, 6}, "Label (4 x 6 in)"};  // in no list
    const std::tuple<Choice, Choice, bool> cases[] = {
        {letter, a4, true}, {label, label, true}, {label, letter, true}, {a4, letter, false}};
    TimesMetrics metrics;
    JobLog sink;
    for (const auto& [before, chosen, accepted] : cases) {
        TPrinter printer(metrics, sink);
        printer.Printers = {"Lab", "PDF file", "Screen preview"};
        printer.PrinterIndex = 1;
        printer.PaperSize = before.first;
        PrinterSetupDialog dialog(printer, nullptr);
        dialog.show();
        WindowUser user;
        user.Face(dialog);
        EXPECT_EQ(user.Shown("PrinterCombo", "PaperCombo"),
                  "|PDF file|" + std::string(before.second));
        user.Press(Qt::Key_Down);
        user.Get<QComboBox>("PaperCombo").setCurrentText(chosen.second);
        user.Click(accepted ? "OkButton" : "CancelButton");
        EXPECT_EQ(printer.PaperSize, accepted ? chosen.first : before.first);
        EXPECT_EQ(printer.PrinterIndex, accepted ? 2 : 1);
    }
}

}  // namespace
}  // namespace qfr::test
