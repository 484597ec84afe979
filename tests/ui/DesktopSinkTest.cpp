#include <QDir>

#include "platform/qt/DesktopSink.h"
#include "platform/qt/PrinterQueue.h"
#include "tests/ui/PdfSupport.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

class DesktopSinkTest : public testing::Test {
  protected:
    std::string Path(const char* file) const { return TextOf(directory_.Path() / file); }

    FormFonts fonts_;
    ChooserScript chooser_;
    MessageLog messages_;
    TempDir directory_;
    DesktopSink sink_{fonts_, chooser_, messages_};
    const int pdf_ = static_cast<int>(InstalledPrinters().size());
    const PrintJob job_{"Form 1 VBLK01", kLetterPaper, {LetterPage()}};
};

TEST_F(DesktopSinkTest, APdfJobAsksForItsFileFirst) {
    EXPECT_EQ(sink_.Printers().rbegin()[1], "PDF file");
    EXPECT_FALSE(sink_.BeginJob(pdf_, job_.title)) << "cancelled";
    EXPECT_EQ(chooser_.saved[0].kind, SaveKind::kPdf);
    EXPECT_EQ(chooser_.saved[0].fileName, "Form 1 VBLK01.pdf");
    EXPECT_TRUE(QDir(QString::fromStdString(chooser_.saved[0].directory)).exists());

    chooser_.answers = {{Path("one.pdf")}, {Path("gone/two.pdf")}};
    ASSERT_TRUE(sink_.BeginJob(pdf_, job_.title));
    EXPECT_FALSE(std::filesystem::exists(Path("one.pdf"))) << "not before it is whole";
    sink_.TakeJob(pdf_, job_);
    EXPECT_EQ(PagesOf(ReadAll(Path("one.pdf"))), 1);

    ASSERT_TRUE(sink_.BeginJob(pdf_, "Form 2"));
    EXPECT_EQ(chooser_.saved.back().directory, TextOf(directory_.Path())) << "the last one used";
    sink_.TakeJob(pdf_, job_);
    EXPECT_THAT(messages_.TakeTexts(), testing::ElementsAre("two.pdf could not be written."));
}

TEST_F(DesktopSinkTest, JoinsAPackageWhenItIsFinished) {
    EXPECT_EQ(sink_.BeginPackage(pdf_, "Package"), nullptr) << "cancelled";
    PrintJob second = job_;
    second.form = "Form II";
    second.pages = {LetterPage({RuleBetween(1, 1, 2, 1)})};
    for (const bool finished : {false, true}) {
        chooser_.answers = {{Path("all.pdf")}};
        const auto package = sink_.BeginPackage(pdf_, "Package");
        EXPECT_EQ(chooser_.saved.back().fileName, "Package.pdf");
        EXPECT_FALSE(package->Take(job_) || package->Take(second));
        EXPECT_EQ(package->Printed(), 0U);
        if (finished) {
            package->Finish();
        }
        EXPECT_EQ(package->Printed(), finished ? 2U : 0U);
        EXPECT_EQ(std::filesystem::exists(Path("all.pdf")), finished);
    }
    EXPECT_EQ(OutlineOf(ReadAll(Path("all.pdf"))), "Form II 2 ");
}

}  // namespace
}  // namespace qfr::test
