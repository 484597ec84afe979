#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

#include "app/QtBatchPlatform.h"
#include "platform/FileLookup.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;

std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

std::size_t PagesOf(const fs::path& pdf) {
    const std::string content = ReadAll(pdf);
    EXPECT_THAT(content, testing::StartsWith("%PDF-"));
    EXPECT_THAT(content, testing::EndsWith("%%EOF\n"));
    return Count(content, "/Type /Page\n");
}

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
    std::size_t pages = 0;
    for (const auto& file : fs::directory_iterator(dir_.Path() / "apart")) {
        SCOPED_TRACE(file.path());
        pages += PagesOf(file.path());
    }
    EXPECT_EQ(PagesOf(dir_.Path() / "all.pdf"), pages);
    for (const char* name : {"Form 1 VBLK01.pdf", "Form 2.pdf", "Form 6.pdf"}) {
        EXPECT_TRUE(fs::exists(dir_.Path() / "apart" / name)) << name;
    }
}

TEST_F(BatchProgram, PrintsWhatItLoads) {
    const auto example = [](const char* name) { return TextOf(ExampleDir() / name); };
    ASSERT_EQ(Run({"load", "--blank", example("VBLK01.PRN"), "--cal", example("VOA0516.CAL"),
                   "--check", example("VSTD050C.CHECK"), "--defaults", example("DefaultInfo.txt"),
                   "-o", Name("day.qff"), example("ZA101.PRN")}),
              0)
        << messages_;
    ASSERT_EQ(Run({"print", Name("day.qff"), "--forms", "1", "--sample", "ZA101", "-o",
                   Name("loaded.pdf")}),
              0);
    ASSERT_EQ(
        Run({"print", example_, "--forms", "1", "--sample", "ZA101", "-o", Name("restored.pdf")}),
        0);
    EXPECT_EQ(PagesOf(Name("loaded.pdf")), PagesOf(Name("restored.pdf")));
}

TEST_F(BatchProgram, LeavesNoPartOfAFileBehind) {
    fs::create_directory(dir_.Path() / "x.pdf");
    EXPECT_EQ(Run({"print", example_, "-o", Name("x.pdf")}), 1);
    EXPECT_THAT(messages_, testing::StartsWith("File Error: x.pdf could not be written.\n"));
    EXPECT_EQ(std::distance(fs::directory_iterator(dir_.Path()), {}), 1);
    EXPECT_EQ(Run({"print", example_, "--printer", "no such queue"}), 2);
    EXPECT_THAT(messages_, testing::StartsWith("qfrbatch: there is no printer \"no such queue\""));
}

}  // namespace
}  // namespace qfr::test
