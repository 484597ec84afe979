// What the host system's files are to the program: read, found, replaced.
#include "app/PathsFile.h"
#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/LineReader.h"
#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;
using namespace ::testing;

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
    const fs::path large = dir.Write("large.txt", "");
    fs::resize_file(large, LineReader::kMaxFileSize + 1);
    for (const fs::path& file : {dir.Path(), dir.Path() / "missing", large}) {
        EXPECT_FALSE(LineReader::Open(file)) << file;
    }
    fs::resize_file(large, LineReader::kMaxFileSize);
    EXPECT_TRUE(LineReader::Open(large));
}

TEST(FileLookup, FindsNamesInAnyCaseAndWithEitherSeparator) {
    const TempDir dir;
    for (const std::string_view file :
         {"Lab Data/VBLK01.PRN", "Lab Data/Mixed.Prn", "Lab Data/MÜLLER.prn", "odd\\name.prn",
          "both/other.txt", "Both/Only.txt", "here/vblk01.prn"}) {
        dir.Write(file, file);
    }
    const std::string root = TextOf(dir.Path()) + "/";
    const auto find = [&](const std::string& name, const std::string& folder) {
        const auto path = FileFinder().FindBeside(name, folder);
        return path ? ReadAll(*path) : "-";
    };
    const auto below = [&](const std::string& name) { return find(root + name, ""); };
    EXPECT_EQ(Joined({"lab data/vblk01.prn", "LAB DATA\\MIXED.PRN", "lab data\\müller.prn"}, below),
              "Lab Data/VBLK01.PRN|Lab Data/Mixed.Prn|Lab Data/MÜLLER.prn");
    EXPECT_EQ(Joined({"odd\\name.prn", "both/only.txt"}, below), "odd\\name.prn|Both/Only.txt");
    EXPECT_EQ(below("./lab data/../lab data/vblk01.prn"), "Lab Data/VBLK01.PRN");
    EXPECT_EQ(Joined({"lab data/vblk01.prn/more", "lab data/vblk0"}, below), "-|-");
    EXPECT_EQ(below(std::string("Lab Data/VBLK01.PRN\0", 20)), "-");

    const auto moved = [&](const std::string& name) { return find(name, root + "Lab Data"); };
    EXPECT_EQ(Joined({"c:\\gone\\vblk01.prn", "/gone/vblk01.prn", "c:\\gone\\", ""}, moved),
              "Lab Data/VBLK01.PRN|Lab Data/VBLK01.PRN|-|-");
    EXPECT_EQ(moved(root + "here/vblk01.prn"), "here/vblk01.prn");
    EXPECT_EQ(find("c:\\gone\\vblk01.prn", ""), "-");
}

TEST(FileReplace, WritesNewFilesAndReplacesOldOnes) {
    const TempDir dir;
    const fs::path file = dir.Path() / PathOf(std::string(190, 'n') + "Größe");
    for (const std::string& content :
         {std::string("old"), std::string(3'000'000, '\n'), std::string()}) {
        EXPECT_EQ(ReplaceFile(file, content), std::nullopt);
        EXPECT_EQ(ReadAll(file), content);
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.Path()), {}), 1);
}

class Paths : public testing::Test {
  protected:
    void Write(const std::string& content) { dir_.Write("QFRpaths.txt", content); }

    TempDir dir_;
    SettingsDir settings_{dir_.Path(), dir_.Path() / "user"};
    MessageLog messages_;
    PathsFile paths_{settings_, messages_};
};

TEST_F(Paths, AreFourLines) {
    const std::string full(99, 'x');
    const std::pair<std::string, std::string> cases[] = {
        {" a \r\nb\nc\nd\ne\n", "a|b|c|d"},
        {full + "yz\nb\nc\n", full + "|yz|b|c"},
        {"a\nb\n", "a|b|b|b"},
    };
    for (const auto& [content, lines] : cases) {
        Write(content);
        messages_.shown.clear();
        EXPECT_EQ(Joined({FileKind::kQuantReport, FileKind::kCalibration, FileKind::kText,
                          FileKind::kBatch},
                         [&](FileKind kind) { return paths_.ReadPath(kind); }),
                  lines);
    }
    EXPECT_THAT(messages_.TakeTexts(), SizeIs(8)) << "two lines miss each time";
    Write("installPath\ninstallPath\ninstallPath\ninstallPath\n");
    EXPECT_EQ(PathOf(paths_.ReadPath(FileKind::kText)), dir_.Path() / "example" / "");
    EXPECT_THAT(messages_.shown, IsEmpty());
}

TEST_F(Paths, AreCreatedAfterAMessageWhenTheyAreMissing) {
    EXPECT_EQ(paths_.ReadPath(FileKind::kQuantReport), settings_.ProgramDir());
    EXPECT_THAT(messages_.TakeTexts(), ElementsAre("Pathfile missing.  Creating new pathfile."));
    EXPECT_EQ(paths_.ReadPath(FileKind::kBatch), settings_.ProgramDir());
    EXPECT_THAT(messages_.shown, IsEmpty());
}

TEST_F(Paths, AreRememberedByTheKindOfFile) {
    std::string longest = "/";
    for (int letters = 1; letters < 99; ++letters) {
        longest += "ä";
    }
    const std::tuple<FileKind, std::string, std::string> cases[] = {
        {FileKind::kQuantReport, "/new/x.prn", "/new\nb\ninstallPath\nd\n"},
        {FileKind::kCalibration, "/new/x.cal", "a\n/new\ninstallPath\nd\n"},
        {FileKind::kCheckReport, "c:\\new\\x.check", "c:\\new\nb\ninstallPath\nd\n"},
        {FileKind::kBatch, "/new/x.qff", "a\nb\ninstallPath\n/new\n"},
        {FileKind::kText, "/new/x.txt", "a\nb\n/new\nd\n"},
        {FileKind::kAny, "/new/x", "a\nb\ninstallPath\nd\n"},
        {FileKind::kText, "/100%/50%% off/%5.2lfx/%d%/x.txt", "a\nb\n/10050% off/x/\nd\n"},
        {FileKind::kText, "/tail%/x.txt", "a\nb\n/tail\nd\n"},
        {FileKind::kText, longest + "/x.txt", "a\nb\n" + longest + "\nd\n"},
        {FileKind::kText, longest + "ü/x.txt", "a\nb\ninstallPath\nd\n"},
        {FileKind::kText, "/a\xFF/x.txt", "a\nb\ninstallPath\nd\n"},
        {FileKind::kText, "/a\nb/x.txt", "a\nb\ninstallPath\nd\n"},
    };
    for (const auto& [kind, file, content] : cases) {
        // The file is read before it is written, whatever has been chosen before.
        Write("a\nb\ninstallPath\nd\n");
        paths_.RememberDir(file, kind);
        EXPECT_EQ(ReadAll(dir_.Path() / "QFRpaths.txt"), content) << file;
    }
    EXPECT_THAT(messages_.shown, IsEmpty());
}

TEST_F(Paths, AreToldToBeMissingOnceWhenReportsAreDropped) {
    for (int drop = 0; drop < 2; ++drop) {
        fs::remove(dir_.Path() / "QFRpaths.txt");
        paths_.RememberDir("/new/x.prn", FileKind::kQuantReport);
        const std::string& own = settings_.ProgramDir();
        EXPECT_EQ(paths_.ReadPath(FileKind::kQuantReport) + paths_.ReadPath(FileKind::kBatch),
                  "/new" + own);
        EXPECT_THAT(messages_.TakeTexts(), SizeIs(drop == 0 ? 1 : 0));
    }
}

}  // namespace
}  // namespace qfr::test
