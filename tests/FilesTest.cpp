// What the host system's files are to the program: read, found, replaced.
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/LineReader.h"
#include "platform/SettingsDir.h"
#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;

TEST(LineReader, SplitsLinesOfEveryOrigin) {
    const TempDir dir;
    const auto lines = [&dir](const std::string& content) {
        LineReader reader = LineReader::Open(dir.Write("lines.txt", content)).value();
        std::string text;
        while (const auto line = reader.Next()) {
            text += *line + "$";
        }
        return text;
    };
    EXPECT_EQ(Joined({"", "\n", "a\nb", "a\r\nb\r\n", "a\n\n\nb\n", "a\r", "a\rb\n"}, lines),
              "|$|a$b$|a$b$|a$$$b$|a$|a\rb$");
    EXPECT_EQ(lines("\xEF\xBB\xBFM\xC3\xBCller\n"), "Müller$");
    EXPECT_EQ(lines("M\xFCller\n\x80\n"), "Müller$€$");
    EXPECT_EQ(lines(std::string("a\0b\n\0", 5)), "a b$ $");
}

TEST(LineReader, RefusesWhatIsNoReadableFile) {
    const TempDir dir;
    const fs::path secret = dir.Write("secret.txt", "a\n");
    fs::permissions(secret, fs::perms::none);
    const fs::path pipe = dir.Path() / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0666), 0);
    const fs::path large = dir.Write("large.txt", "");
    fs::resize_file(large, LineReader::kMaxFileSize + 1);

    const auto user = OrdinaryUser();
    for (const fs::path& file :
         {dir.Path(), dir.Path() / "missing", secret, pipe, large, fs::path("/dev/zero")}) {
        EXPECT_FALSE(LineReader::Open(file)) << file;
    }
}

TEST(FileLookup, FindsNamesInAnyCaseAndWithEitherSeparator) {
    const TempDir dir;
    for (const std::string_view file :
         {"Lab Data/VBLK01.PRN", "Lab Data/Mixed.Prn", "Lab Data/MÜLLER.prn", "odd\\name.prn",
          "twice/A.prn", "twice/a.PRN", "both/other.txt", "Both/Only.txt", "here/vblk01.prn"}) {
        dir.Write(file, "x");
    }
    const std::string root = TextOf(dir.Path()) + "/";
    const auto find = [&](const std::string& name, const std::string& folder) {
        const auto path = FindFileBeside(name, folder);
        return path ? TextOf(fs::relative(*path, dir.Path())) : "-";
    };
    const auto below = [&](const std::string& name) { return find(root + name, ""); };
    EXPECT_EQ(Joined({"lab data/vblk01.prn", "LAB DATA\\MIXED.PRN", "lab data\\müller.prn"}, below),
              "Lab Data/VBLK01.PRN|Lab Data/Mixed.Prn|Lab Data/MÜLLER.prn");
    EXPECT_EQ(Joined({"odd\\name.prn", "twice/a.prn", "both/only.txt"}, below),
              "odd\\name.prn|twice/A.prn|Both/Only.txt");
    EXPECT_EQ(below("./lab data/../lab data/vblk01.prn"), "Lab Data/VBLK01.PRN");
    EXPECT_EQ(Joined({"lab data/vblk01.prn/more", "lab data/vblk0"}, below), "-|-");
    EXPECT_EQ(below(std::string("Lab Data/VBLK01.PRN\0", 20)), "-");

    const auto moved = [&](const std::string& name) { return find(name, root + "Lab Data"); };
    EXPECT_EQ(Joined({"c:\\gone\\vblk01.prn", "/gone/vblk01.prn", "c:\\gone\\", ""}, moved),
              "Lab Data/VBLK01.PRN|Lab Data/VBLK01.PRN|-|-");
    EXPECT_EQ(moved(root + "here/vblk01.prn"), "here/vblk01.prn");
    EXPECT_EQ(find("c:\\gone\\vblk01.prn", ""), "-");
}

auto CountIn(const fs::path& folder) {
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

// A save that fails leaves the old file whole and nothing beside it.
void ExpectOldFileKept(const fs::path& file, std::string_view content) {
    EXPECT_NE(ReplaceFile(file, content).value_or(""), "");
    EXPECT_EQ(ReadAll(file), "old");
    EXPECT_EQ(CountIn(file.parent_path()), 1);
}

TEST(FileReplace, WritesNewFilesAndReplacesOldOnes) {
    const TempDir dir;
    const fs::path file = dir.Path() / std::string(255, 'n');
    const fs::perms usual = fs::status(dir.Write("usual", "")).permissions();
    fs::remove(dir.Path() / "usual");
    EXPECT_EQ(ReplaceFile(file, "old"), std::nullopt);
    EXPECT_EQ(fs::status(file).permissions(), usual);

    fs::permissions(file, fs::perms(0640));
    for (const std::string& content : {std::string(3'000'000, 'x'), std::string()}) {
        EXPECT_EQ(ReplaceFile(file, content), std::nullopt);
        EXPECT_EQ(ReadAll(file), content);
    }
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
    EXPECT_EQ(CountIn(dir.Path()), 1);
}

TEST(FileReplace, KeepsTheOldFileWhenItCannotWriteAllOfTheNew) {
    const TempDir dir;
    const std::string file = dir.Write("batch.qff", "old");
    struct rlimit usual {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &usual), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit small { 10'000, usual.rlim_max };
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    ExpectOldFileKept(file, std::string(1'000'000, 'x'));
    ::setrlimit(RLIMIT_FSIZE, &usual);
    std::signal(SIGXFSZ, handler);

    fs::permissions(file, fs::perms(0666));
    fs::permissions(dir.Path(), fs::perms(0555));
    const auto user = OrdinaryUser();
    ExpectOldFileKept(file, "new");
}

TEST(SettingsDir, HoldsSettingsBesideTheProgramOrElseTheUsersOwnCopy) {
    const TempDir dir;
    const fs::path program = fs::path(dir.Write("program/p.txt", "shipped")).parent_path();
    const fs::path home = dir.Path() / "home";
    dir.Write("home/.qfr/p.txt", "user's");
    const SettingsDir settings(program, home / ".qfr");
    EXPECT_EQ(settings.ProgramDir(), TextOf(program) + "/");
    EXPECT_EQ(settings.ForReading("p.txt"), program / "p.txt");
    EXPECT_EQ(settings.ForWriting("p.txt"), program / "p.txt");

    fs::permissions(program, fs::perms(0555));
    fs::permissions(home, fs::perms(0777));
    const auto user = OrdinaryUser();
    EXPECT_EQ(ReadAll(settings.ForReading("p.txt")), "user's");
    const SettingsDir fresh(program / "", home / ".config" / "qfr");
    EXPECT_EQ(fresh.ProgramDir(), TextOf(program) + "/");
    EXPECT_EQ(ReadAll(fresh.ForReading("p.txt")), "shipped");
    EXPECT_EQ(fresh.ForWriting("p.txt"), home / ".config" / "qfr" / "p.txt");
    EXPECT_TRUE(fs::is_directory(home / ".config" / "qfr"));
}

}  // namespace
}  // namespace qfr::test
