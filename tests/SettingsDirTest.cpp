#include "platform/FileLookup.h"
#include "platform/SettingsDir.h"
#include "tests/Support.h"

namespace qfr {
namespace {

namespace fs = std::filesystem;

TEST(SettingsDir, KeepsSettingsBesideTheProgramWhileItCan) {
    const test::TempDir dir;
    dir.Write("user/QFRpaths.txt", "user's");
    const SettingsDir settings(dir.Path(), dir.Path() / "user");
    EXPECT_EQ(settings.ProgramDir(), TextOf(dir.Path()) + "/");
    EXPECT_EQ(settings.ForReading("QFRpaths.txt"), dir.Path() / "QFRpaths.txt");
    EXPECT_EQ(settings.ForWriting("QFRpaths.txt"), dir.Path() / "QFRpaths.txt");
}

TEST(SettingsDir, FallsBackToTheUsersOwnCopy) {
    const test::TempDir dir;
    const fs::path program = fs::path(dir.Write("program/QFRpaths.txt", "shipped")).parent_path();
    const fs::path home = fs::path(dir.Write("home/x", "")).parent_path();
    fs::permissions(program, fs::perms(0555));
    fs::permissions(home, fs::perms(0777));
    const SettingsDir settings(program / "", home / ".config" / "qfr");
    const test::OrdinaryUser user;
    EXPECT_EQ(settings.ProgramDir(), TextOf(program) + "/");
    EXPECT_EQ(test::ReadAll(settings.ForReading("QFRpaths.txt")), "shipped");

    const fs::path written = settings.ForWriting("QFRpaths.txt");
    EXPECT_EQ(written, home / ".config" / "qfr" / "QFRpaths.txt");
    EXPECT_TRUE(fs::is_directory(written.parent_path()));
    dir.Write("home/.config/qfr/QFRpaths.txt", "user's");
    EXPECT_EQ(test::ReadAll(settings.ForReading("QFRpaths.txt")), "user's");
}

}  // namespace
}  // namespace qfr
