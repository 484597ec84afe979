#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>

#include "platform/FileLookup.h"
#include "platform/qt/DesktopSink.h"
#include "platform/qt/PrinterQueue.h"
#include "tests/ui/PdfSupport.h"
#include "tests/ui/WindowRig.h"

namespace qfr {
namespace {

class DesktopSinkTest : public testing::Test {
  protected:
    DesktopSinkTest() {
        JobPage page = test::LetterPage();
        page.items.emplace_back(test::TextAt(1, 1, "VBLK01"));
        job_ = {"Form 1 VBLK01", kLetterPaper, {page}};
    }
    int IndexOf(const std::string& printer) {
        const auto& printers = sink_.Printers();
        return static_cast<int>(std::find(printers.begin(), printers.end(), printer) -
                                printers.begin());
    }

    FormFonts fonts_;
    test::ChooserScript chooser_;
    test::MessageLog messages_;
    test::TempDir directory_;
    DesktopSink sink_{fonts_, chooser_, messages_};
    PrintJob job_;
};

TEST_F(DesktopSinkTest, ThePrintersOfTheProgramFollowTheInstalledOnes) {
    std::vector<std::string> expected = InstalledPrinters();
    expected.insert(expected.end(), {"PDF file", "Screen preview"});
    EXPECT_EQ(sink_.Printers(), expected);
}

TEST_F(DesktopSinkTest, APdfJobAsksForItsFileFirst) {
    const int pdf = IndexOf("PDF file");
    chooser_.answers = {{TextOf(directory_.Path() / "one.pdf")}};
    ASSERT_TRUE(sink_.BeginJob(pdf, job_.title));
    ASSERT_EQ(chooser_.saved.size(), 1U);
    EXPECT_EQ(chooser_.saved[0].kind, SaveKind::kPdf);
    EXPECT_EQ(chooser_.saved[0].fileName, "Form 1 VBLK01.pdf");
    EXPECT_TRUE(QDir(QString::fromStdString(chooser_.saved[0].directory)).exists());
    EXPECT_FALSE(std::filesystem::exists(directory_.Path() / "one.pdf"))
        << "not before it is whole";
    sink_.TakeJob(pdf, job_);
    EXPECT_THAT(test::ReadAll(directory_.Path() / "one.pdf"), testing::StartsWith("%PDF"));

    chooser_.answers = {{TextOf(directory_.Path() / "two.pdf")}};
    EXPECT_TRUE(sink_.BeginJob(pdf, "Form 2"));
    EXPECT_EQ(chooser_.saved[1].directory, TextOf(directory_.Path())) << "the last one used";
    EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(DesktopSinkTest, ACancelledChoiceGivesTheJobUp) {
    EXPECT_FALSE(sink_.BeginJob(IndexOf("PDF file"), job_.title));
    EXPECT_TRUE(sink_.BeginJob(IndexOf("Screen preview"), job_.title));
    EXPECT_EQ(chooser_.saved.size(), 1U) << "the preview asks for no file";
}

TEST_F(DesktopSinkTest, TellsOfAFileThatCannotBeWritten) {
    const int pdf = IndexOf("PDF file");
    chooser_.answers = {{TextOf(directory_.Path() / "gone" / "one.pdf")}};
    ASSERT_TRUE(sink_.BeginJob(pdf, job_.title));
    sink_.TakeJob(pdf, job_);
    ASSERT_EQ(messages_.shown.size(), 1U);
    EXPECT_EQ(messages_.shown[0].text, "one.pdf could not be written.");
    EXPECT_EQ(messages_.shown[0].title, "File Error");
}

TEST(FileNameForTitle, HasNothingThatAFileSystemRefuses) {
    const struct {
        std::string title;
        std::string name;
    } cases[] = {
        {"Form 1 VBLK01", "Form 1 VBLK01"},
        {"Form 1 a/b\\c:d*e?f\"g<h>i|j\n", "Form 1 a-b-c-d-e-f-g-h-i-j"},
        {"../../etc", "-..-etc"},
        {"  Form 2. ", "Form 2"},
        {"", "Form"},
        {"...", "Form"},
        {"\xC2\xB5g", "\xC2\xB5g"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(FileNameForTitle(c.title), c.name);
    }
    EXPECT_LE(FileNameForTitle(std::string(5000, 'x')).size(), 200U);
}

TEST(PrintOnQueue, SaysWhyNothingWasPrinted) {
    FormFonts fonts;
    const PrintJob job{"Form 1", kLetterPaper, {test::LetterPage()}};
    const auto reason = PrintOnQueue(job, "no such queue", fonts);
    ASSERT_TRUE(reason);
    const Message message = CouldNotBePrinted(job.title, "no such queue", *reason);
    EXPECT_EQ(message.title, "Printer Error");
    EXPECT_THAT(message.text, testing::HasSubstr("no such queue"));
    EXPECT_THAT(message.text, testing::HasSubstr(*reason));
}

}  // namespace
}  // namespace qfr
