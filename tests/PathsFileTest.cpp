#include <gmock/gmock.h>

#include "app/PathsFile.h"
#include "platform/FileLookup.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Paths {
    TempDir dir;
    SettingsDir settings{dir.Path(), dir.Path() / "user"};
    MessageLog messages;
    PathsFile paths{settings, messages};
    std::string File() const { return ReadAll(dir.Path() / "QFRpaths.txt"); }
};

TEST(PathsFile, ReadsFourLines) {
    const std::string longLine(120, 'x');
    const struct {
        std::string content;
        std::array<std::string, 4> slots;
        std::size_t messages;
    } cases[] = {
        {" a \r\nb\nc\nd\ne\n", {"a", "b", "c", "d"}, 0},
        {"a\nb\n", {"a", "b", "b", "b"}, 2},
        {"", {"", "", "", ""}, 4},
        {longLine + "\nb\nc\n", {std::string(99, 'x'), std::string(21, 'x'), "b", "c"}, 0},
    };
    for (const auto& c : cases) {
        Paths p;
        p.dir.Write("QFRpaths.txt", c.content);
        for (int slot = 1; slot <= 4; ++slot) {
            EXPECT_EQ(p.paths.ReadPath(slot), c.slots.at(static_cast<std::size_t>(slot) - 1))
                << c.content;
        }
        EXPECT_EQ(p.messages.shown.size(), 4 * c.messages);
    }
}

TEST(PathsFile, InstallPathIsTheExample) {
    Paths p;
    p.dir.Write("QFRpaths.txt", "installPath\ninstallPath\ninstallPath\ninstallPath\n");
    EXPECT_EQ(PathOf(p.paths.ReadPath(3)), p.dir.Path() / "example" / "");
    p.paths.RememberDir("/data/a.cal", FileKind::kCalibration);
    EXPECT_EQ(p.File(), "installPath\n/data\ninstallPath\ninstallPath\n");
}

TEST(PathsFile, AMissingFileIsReportedAndCreated) {
    Paths p;
    EXPECT_EQ(p.paths.ReadPath(1), p.settings.ProgramDir());
    EXPECT_THAT(p.messages.TakeTexts(), ElementsAre("Pathfile missing.  Creating new pathfile."));
    EXPECT_EQ(p.paths.ReadPath(4), p.settings.ProgramDir());
    EXPECT_THAT(p.messages.TakeTexts(), IsEmpty());
}

TEST(PathsFile, RemembersADirectoryByTheFilterOfItsDialog) {
    const struct {
        FileKind filter;
        const char* file;
        const char* content;
    } cases[] = {
        {FileKind::kQuantReport, "/new/x.prn", "/new\nb\nc\nd\n"},
        {FileKind::kCalibration, "/new/x.cal", "a\n/new\nc\nd\n"},
        {FileKind::kCheckReport, "c:\\new\\x.check", "c:\\new\nb\nc\nd\n"},
        {FileKind::kBatch, "/new/x.qff", "a\nb\nc\n/new\n"},
        {FileKind::kText, "/new/x.txt", "a\nb\n/new\nd\n"},
        {FileKind::kAny, "/new/x", "a\nb\nc\nd\n"},
        {FileKind::kText, "/100%/50%% off/%5.2lfx/%d%/x.txt", "a\nb\n/10050% off/x/\nd\n"},
        {FileKind::kText, "/tail%/x.txt", "a\nb\n/tail\nd\n"},
    };
    for (const auto& c : cases) {
        Paths p;
        p.dir.Write("QFRpaths.txt", "a\nb\nc\nd\n");
        p.paths.ReadPath(1);
        p.paths.RememberDir(c.file, c.filter);
        EXPECT_EQ(p.File(), c.content) << c.file;
    }
}

}  // namespace
}  // namespace qfr::test
