#include "platform/FileLookup.h"
#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr {
namespace {

// Where the lookup finds a name, relative to the directory; "-" when it does not.
std::string Found(const test::TempDir& dir, const std::optional<std::filesystem::path>& path) {
    return path ? TextOf(std::filesystem::relative(*path, dir.Path())) : "-";
}

TEST(FileLookup, FindsNamesInAnyCaseAndWithEitherSeparator) {
    const test::TempDir dir;
    for (const std::string_view file :
         {"Lab Data/VBLK01.PRN", "Lab Data/Mixed.Prn", "Lab Data/MÜLLER.prn", "odd\\name.prn",
          "twice/A.prn", "twice/a.PRN", "both/other.txt", "Both/Only.txt"}) {
        dir.Write(file, "x");
    }
    const std::pair<std::string, std::string_view> cases[] = {
        {"Lab Data/VBLK01.PRN", "Lab Data/VBLK01.PRN"},
        {"lab data/vblk01.prn", "Lab Data/VBLK01.PRN"},
        {"LAB DATA\\MIXED.PRN", "Lab Data/Mixed.Prn"},
        {"lab data\\müller.prn", "Lab Data/MÜLLER.prn"},
        {"odd\\name.prn", "odd\\name.prn"},
        {"twice/a.prn", "twice/A.prn"},
        {"both/only.txt", "Both/Only.txt"},
        {"lab data", "Lab Data"},
        {"./lab data/../lab data/vblk01.prn", "Lab Data/VBLK01.PRN"},
        {"lab data/vblk01.prn/more", "-"},
        {"lab data/vblk0", "-"},
        {"c:\\lab data\\vblk01.prn", "-"},
        {std::string("Lab Data/VBLK01.PRN\0", 20), "-"},
    };
    for (const auto& [name, expected] : cases) {
        EXPECT_EQ(Found(dir, FindFile(TextOf(dir.Path()) + "/" + name)), expected) << name;
    }
    EXPECT_EQ(FindFile(""), std::nullopt);
}

TEST(FileLookup, LooksBesideTheFileThatNamesIt) {
    const test::TempDir dir;
    dir.Write("Moved/VBLK01.PRN", "x");
    const std::string here = dir.Write("Here/vblk01.prn", "x");
    const std::string folder = TextOf(dir.Path() / "Moved");
    EXPECT_EQ(Found(dir, FindFileBeside("c:\\gone\\vblk01.prn", folder)), "Moved/VBLK01.PRN");
    EXPECT_EQ(Found(dir, FindFileBeside("/gone/vblk01.prn", folder)), "Moved/VBLK01.PRN");
    EXPECT_EQ(Found(dir, FindFileBeside(here, folder)), "Here/vblk01.prn");
    EXPECT_EQ(FindFileBeside("c:\\gone\\vblk01.prn", ""), std::nullopt);
    EXPECT_EQ(FindFileBeside("c:\\gone\\", folder), std::nullopt);
    EXPECT_EQ(FindFileBeside("", folder), std::nullopt);
}

TEST(FileLookup, ListsAFolderOnceInACommand) {
    const test::TempDir dir;
    dir.Write("A1.PRN", "x");
    FileFinder finder;
    const std::string folder = TextOf(dir.Path());
    EXPECT_EQ(Found(dir, finder.Find(folder + "/a1.prn")), "A1.PRN");
    dir.Write("A2.PRN", "x");
    EXPECT_EQ(finder.FindBeside("c:\\gone\\a2.prn", folder), std::nullopt);
    EXPECT_EQ(Found(dir, finder.FindBeside("c:\\gone\\A2.PRN", folder)), "A2.PRN");
}

TEST(FileLookup, GivesUpInATangleOfLinks) {
    const test::TempDir dir;
    std::filesystem::create_directory_symlink(".", dir.Path() / "loop");
    std::filesystem::create_directory_symlink(".", dir.Path() / "LOOP");
    std::filesystem::create_directory_symlink(".", dir.Path() / "Loop");
    std::string name = TextOf(dir.Path());
    for (int i = 0; i < 12; ++i) {
        name += "\\loop";
    }
    EXPECT_EQ(FindFile(name + "\\missing.prn"), std::nullopt);
    EXPECT_TRUE(FindFile(name));
}

}  // namespace
}  // namespace qfr
