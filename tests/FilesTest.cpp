// What the host system's files are to the program: read, found, replaced.
#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/LineReader.h"
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

}  // namespace
}  // namespace qfr::test
