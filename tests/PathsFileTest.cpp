#include "app/PathsFile.h"
#include "platform/FileLookup.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

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
    const struct {
        FileKind kind;
        const char* file;
        const char* content;
    } cases[] = {
        {FileKind::kQuantReport, "/new/x.prn", "/new\nb\ninstallPath\nd\n"},
        {FileKind::kCalibration, "/new/x.cal", "a\n/new\ninstallPath\nd\n"},
        {FileKind::kCheckReport, "c:\\new\\x.check", "c:\\new\nb\ninstallPath\nd\n"},
        {FileKind::kBatch, "/new/x.qff", "a\nb\ninstallPath\n/new\n"},
        {FileKind::kText, "/new/x.txt", "a\nb\n/new\nd\n"},
        {FileKind::kAny, "/new/x", "a\nb\ninstallPath\nd\n"},
        {FileKind::kText, "/100%/50%% off/%5.2lfx/%d%/x.txt", "a\nb\n/10050% off/x/\nd\n"},
        {FileKind::kText, "/tail%/x.txt", "a\nb\n/tail\nd\n"},
    };
    for (const auto& c : cases) {
        Write("a\nb\ninstallPath\nd\n");
        paths_.ReadPath(FileKind::kQuantReport);
        paths_.RememberDir(c.file, c.kind);
        EXPECT_EQ(ReadAll(dir_.Path() / "QFRpaths.txt"), c.content) << c.file;
    }
}

}  // namespace
}  // namespace qfr::test
