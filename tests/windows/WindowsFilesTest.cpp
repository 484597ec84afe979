// What only Windows can show of the program's files.
#include <chrono>
#include <fstream>
#include <thread>
#include <windows.h>
#undef ReplaceFile

#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/LineReader.h"
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

TEST(WindowsFiles, KeepDriveServerAndShareInTheirFullNames) {
    const auto full = [](const char* name) { return TextOf(FullPathOf(PathOf(name))); };
    EXPECT_EQ(Joined({"C:\\Lab\\.\\a.prn", "c:/lab\\x/../a.prn", "\\\\host\\share\\x\\..\\a.prn",
                      "//host/share/a.prn", "\\\\?\\C:\\a.prn", "C:\\"},
                     full),
              "C:\\Lab\\a.prn|c:\\lab\\a.prn|\\\\host\\share\\a.prn|\\\\host\\share\\a.prn|"
              "\\\\?\\C:\\a.prn|C:\\");
    EXPECT_EQ(full("a.prn"), TextOf(std::filesystem::current_path() / "a.prn"));
    const auto root = [](const char* name) { return TextOf(RootOf(PathOf(name))); };
    EXPECT_EQ(
        Joined({"C:\\Lab\\a.prn", "\\\\host\\share\\a.prn", "//host/share", "\\a.prn", "a"}, root),
        "C:\\|\\\\host\\share\\|//host/share|\\|");
}

TEST(WindowsFiles, OfAServerAreNotLookedForOnTheDrive) {
    const TempDir dir;
    const std::string file = TextOf(PathOf(dir.Write("A.prn", "")).relative_path());
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(dir.Path());
    EXPECT_TRUE(FindFile("\\" + file));
    EXPECT_FALSE(FindFile("\\\\" + file));
    std::filesystem::current_path(before);
}

TEST(WindowsFiles, AreWrittenUnderEveryNameThatIsNoDevice) {
    const TempDir dir;
    const std::string deep = "deep/" + std::string(120, 'a') + "/" + std::string(120, 'b') + "/";
    std::filesystem::create_directories(dir.Path() / deep);
    for (const std::string& name : {std::string("\u0394\u03b5\u03af\u03b3\u03bc\u03b1.qff"),
                                    std::string("\u65e5\u672c.qff"), deep + "x.qff"}) {
        const std::filesystem::path file = dir.Path() / PathOf(name);
        EXPECT_EQ(ReplaceFile(file, "a\nb\n"), std::nullopt) << name;
        EXPECT_EQ(ReadAll(file), "a\nb\n") << name;
        EXPECT_TRUE(FindFile(TextOf(file))) << name;
    }
    for (const char* const name : {"NUL", "con.pdf", "deep/COM1.pdf"}) {
        EXPECT_NE(ReplaceFile(dir.Path() / name, "new").value_or(""), "") << name;
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.Path()), {}), 3);
}

TEST(WindowsFiles, ThatNobodyElseMayReadAreNotRead) {
    const TempDir dir;
    const std::filesystem::path file = PathOf(dir.Write("a.prn", "text"));
    HANDLE const held =
        ::CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_FALSE(LineReader::Open(file));
    ::CloseHandle(held);
    EXPECT_TRUE(LineReader::Open(file));
}

TEST(WindowsFiles, ThatAreReadOnlyStayOrAreReplacedAsAsked) {
    const TempDir dir;
    const std::filesystem::path file = PathOf(dir.Write("batch.qff", "old"));
    ::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    {
        const std::ifstream other(file);
        EXPECT_NE(ReplaceFile(file, "new", ReadOnlyFile::kIsReplaced).value_or(""), "");
    }
    EXPECT_NE(ReplaceFile(file, "new").value_or(""), "") << "it is read-only still";
    EXPECT_EQ(ReadAll(file), "old");
    EXPECT_EQ(ReplaceFile(file, "new", ReadOnlyFile::kIsReplaced), std::nullopt);
    EXPECT_EQ(ReadAll(file), "new");
}

}  // namespace
}  // namespace qfr::test
