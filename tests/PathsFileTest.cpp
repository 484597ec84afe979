#include "app/PathsFile.h"
#include "platform/FileLookup.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;
using namespace ::testing;

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
    const struct {
        FileKind kind;
        std::string file;
        std::string content;
    } cases[] = {
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
    for (const auto& c : cases) {
        // The file is read before it is written, whatever has been chosen before.
        Write("a\nb\ninstallPath\nd\n");
        paths_.RememberDir(c.file, c.kind);
        EXPECT_EQ(ReadAll(dir_.Path() / "QFRpaths.txt"), c.content) << c.file;
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
