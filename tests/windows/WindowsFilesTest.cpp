// What only Windows can show of the program's files.
#include <chrono>
#include <fstream>
#include <thread>

#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

TEST(WindowsFiles, HaveNoNameThatIsNoText) {
    EXPECT_EQ(PathOf("a\xFF"), "");
    EXPECT_EQ(TextOf(L"a\xD800"), "");
}

TEST(WindowsFiles, StayWhileAnotherProgramHoldsThemOpen) {
    const TempDir dir;
    const std::filesystem::path file = PathOf(dir.Write("batch.qff", "old"));
    const std::ifstream other(file);
    EXPECT_NE(ReplaceFile(file, "new").value_or(""), "");
    EXPECT_EQ(ReadAll(file), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.Path()), {}), 1);
}

TEST(WindowsFiles, AreReplacedWhenTheOtherProgramLetsThemGo) {
    const TempDir dir;
    const std::filesystem::path file = PathOf(dir.Write("batch.qff", "old"));
    std::ifstream other(file);
    std::thread scanner([&other] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        other.close();
    });
    EXPECT_EQ(ReplaceFile(file, "new"), std::nullopt);
    scanner.join();
    EXPECT_EQ(ReadAll(file), "new");
}

}  // namespace
}  // namespace qfr::test
