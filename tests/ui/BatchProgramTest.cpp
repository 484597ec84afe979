#include <gmock/gmock.h>
#include <sstream>

#include "app/QtBatchPlatform.h"
#include "tests/ui/PdfSupport.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;

class BatchProgram : public testing::Test {
  protected:
    int Run(const std::vector<std::string>& arguments) {
        std::ostringstream out;
        std::ostringstream err;
        QtBatchPlatform platform;
        const int code = RunBatchCommand(arguments, out, err, platform);
        messages_ = err.str();
        return code;
    }
    std::string Name(const std::string& file) const { return TextOf(dir_.Path() / PathOf(file)); }

    TempDir dir_;
    const std::string example_ = TextOf(ExampleDir() / "example.qff");
    std::string messages_;
};

TEST_F(BatchProgram, PrintsTheExampleJoinedAndApart) {
    ASSERT_EQ(Run({"print", example_, "-o", Name("all.pdf")}), 0) << messages_;
    ASSERT_EQ(Run({"print", example_, "--output-dir", Name("apart")}), 0) << messages_;
    EXPECT_EQ(messages_, "");
    int pages = 0;
    for (const auto& file : fs::directory_iterator(dir_.Path() / "apart")) {
        pages += PagesOf(ReadAll(file.path()));
    }
    EXPECT_EQ(PagesOf(ReadAll(Name("all.pdf"))), pages);
    EXPECT_THAT(
        OutlineOf(ReadAll(Name("all.pdf"))),
        testing::MatchesRegex("Form I VOA 1 \\[VBLK01 1 .*\\]Form I VOA-TIC 31 .*, internal "
                              "standard summary 46 "));
    EXPECT_TRUE(fs::exists(dir_.Path() / "apart" / "Form 1 VBLK01.pdf"));
}

TEST_F(BatchProgram, SaysWhatItCannotPrintOn) {
    EXPECT_EQ(Run({"print", example_, "-o", TextOf(dir_.Path())}), 1);
    EXPECT_THAT(messages_, testing::HasSubstr(" could not be written.\n"));
    EXPECT_EQ(Run({"print", example_, "--printer", "no such queue"}), 2);
    EXPECT_THAT(messages_, testing::StartsWith("qfrbatch: there is no printer \"no such queue\""));
}

}  // namespace
}  // namespace qfr::test
