#include <csignal>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "tests/Support.h"

namespace qfr {
namespace {

namespace fs = std::filesystem;
using test::ReadAll;

std::vector<std::string> NamesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
        names.push_back(TextOf(entry.path().filename()));
    }
    return names;
}

// A save that fails leaves the old file whole and nothing beside it.
void ExpectOldFileKept(const fs::path& file, std::string_view content) {
    EXPECT_NE(ReplaceFile(file, content).value_or(""), "");
    EXPECT_EQ(ReadAll(file), "old");
    EXPECT_EQ(NamesIn(file.parent_path()), std::vector{TextOf(file.filename())});
}

TEST(FileReplace, WritesNewFilesAndReplacesOldOnes) {
    const test::TempDir dir;
    const fs::path file = dir.Path() / std::string(255, 'n');
    EXPECT_EQ(ReplaceFile(file, "old"), std::nullopt);
    const fs::perms usual = fs::status(dir.Write("usual", "")).permissions();
    EXPECT_EQ(fs::status(file).permissions(), usual);
    fs::remove(dir.Path() / "usual");

    fs::permissions(file, fs::perms(0640));
    const std::string content(3'000'000, 'x');
    EXPECT_EQ(ReplaceFile(file, content), std::nullopt);
    EXPECT_EQ(ReadAll(file), content);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
    EXPECT_EQ(ReplaceFile(file, ""), std::nullopt);
    EXPECT_EQ(fs::file_size(file), 0u);
    EXPECT_EQ(NamesIn(dir.Path()).size(), 1u);
}

TEST(FileReplace, WritesThroughLinks) {
    const test::TempDir dir;
    const std::string file = dir.Write("real/batch.qff", "old");
    fs::create_symlink("real/batch.qff", dir.Path() / "link");
    fs::create_symlink("link", dir.Path() / "second");
    fs::create_symlink("real/later.qff", dir.Path() / "dangling");
    fs::create_symlink("loop", dir.Path() / "loop");
    EXPECT_EQ(ReplaceFile(dir.Path() / "second", "new"), std::nullopt);
    EXPECT_EQ(ReadAll(file), "new");
    EXPECT_TRUE(fs::is_symlink(dir.Path() / "second") && fs::is_symlink(dir.Path() / "link"));
    EXPECT_EQ(ReplaceFile(dir.Path() / "dangling", "later"), std::nullopt);
    EXPECT_EQ(ReadAll(dir.Path() / "real/later.qff"), "later");
    EXPECT_TRUE(ReplaceFile(dir.Path() / "loop", "x"));
}

TEST(FileReplace, RefusesWhatIsNoFile) {
    const test::TempDir dir;
    fs::create_directory(dir.Path() / "folder");
    ASSERT_EQ(::mkfifo((dir.Path() / "pipe").c_str(), 0666), 0);
    EXPECT_TRUE(ReplaceFile(dir.Path() / "folder", "x"));
    EXPECT_TRUE(ReplaceFile(dir.Path() / "pipe", "x"));
    EXPECT_TRUE(fs::is_fifo(dir.Path() / "pipe"));
    EXPECT_TRUE(ReplaceFile(dir.Path() / "missing/batch.qff", "x"));
}

TEST(FileReplace, KeepsTheOldFileInAFolderThatMayNotBeWritten) {
    const test::TempDir dir;
    const std::string file = dir.Write("batch.qff", "old");
    fs::permissions(file, fs::perms(0666));
    fs::permissions(dir.Path(), fs::perms(0555));
    const test::OrdinaryUser user;
    ExpectOldFileKept(file, "new");
}

TEST(FileReplace, KeepsTheOldFileWhenWritingStopsHalfWay) {
    const test::TempDir dir;
    const std::string file = dir.Write("batch.qff", "old");
    struct rlimit usual {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &usual), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit small { 10'000, usual.rlim_max };
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    ExpectOldFileKept(file, std::string(1'000'000, 'x'));
    ::setrlimit(RLIMIT_FSIZE, &usual);
    std::signal(SIGXFSZ, handler);
}

TEST(FileReplace, KeepsTheOldFileOnAFullDisk) {
    const test::TempDir dir;
    if (::mount("tmpfs", dir.Path().c_str(), "tmpfs", 0, "size=64k") != 0) {
        GTEST_SKIP() << "mounting a small disk takes an administrator";
    }
    ExpectOldFileKept(dir.Write("batch.qff", "old"), std::string(1'000'000, 'x'));
    EXPECT_EQ(::umount(dir.Path().c_str()), 0);
}

}  // namespace
}  // namespace qfr
