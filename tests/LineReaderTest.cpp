#include <sys/stat.h>

#include "platform/LineReader.h"
#include "tests/Support.h"

namespace qfr {
namespace {

std::vector<std::string> AllLines(LineReader reader) {
    std::vector<std::string> lines;
    while (auto line = reader.Next()) {
        lines.push_back(*line);
    }
    return lines;
}

TEST(LineReader, SplitsLinesOfEveryOrigin) {
    using Lines = std::vector<std::string>;
    const std::pair<std::string, Lines> cases[] = {
        {"", {}},
        {"\n", {""}},
        {"a\nb", {"a", "b"}},
        {"a\r\nb\r\n", {"a", "b"}},
        {"a\n\n\nb\n", {"a", "", "", "b"}},
        {"a\r", {"a"}},
        {"a\rb\n", {"a\rb"}},
        {"\xEF\xBB\xBFM\xC3\xBCller\n", {"Müller"}},
        {"M\xFCller\n\x80\n", {"Müller", "€"}},
        {std::string("a\0b\n\0", 5), {"a b", " "}},
    };
    const test::TempDir dir;
    for (const auto& [content, lines] : cases) {
        EXPECT_EQ(AllLines(LineReader(content)), lines) << content;
        const auto file = LineReader::Open(dir.Write("lines.txt", content));
        ASSERT_TRUE(file);
        EXPECT_EQ(AllLines(*file), lines) << "from a file: " << content;
    }
}

TEST(LineReader, ReadsTheRestOfALongLineAsTheNextPiece) {
    LineReader reader("äbcde\r\nxyz\n\nlast");
    EXPECT_EQ(reader.NextPiece(3), "äbc");
    EXPECT_EQ(reader.NextPiece(3), "de");
    EXPECT_EQ(reader.NextPiece(3), "xyz") << "a piece that fills its room takes the line end along";
    EXPECT_EQ(reader.NextPiece(3), "");
    EXPECT_EQ(reader.NextPiece(3), "las");
    EXPECT_EQ(reader.NextPiece(3), "t");
    EXPECT_EQ(reader.NextPiece(3), std::nullopt);
    EXPECT_EQ(reader.NextOrEmpty(), "");
}

TEST(LineReader, ReturnsToAPlace) {
    LineReader reader("a\nb\nc\n");
    reader.Next();
    const std::size_t place = reader.Position();
    reader.Next();
    reader.Next();
    EXPECT_TRUE(reader.AtEnd());
    reader.Seek(place);
    EXPECT_EQ(reader.Next(), "b");
    reader.Rewind();
    EXPECT_EQ(reader.Next(), "a");
}

TEST(LineReader, CutsAnEndlessLineBetweenCharacters) {
    std::string content = test::EndlessLine();
    content[0] = '\xC3';
    content[1] = '\xBC';
    LineReader reader(content + "\nnext\n");
    const std::string line = reader.NextOrEmpty();
    EXPECT_EQ(line.size(), LineReader::kMaxLineLength + 1);
    EXPECT_EQ(reader.Next(), "next") << "the rest of the long line is dropped";
}

TEST(LineReader, RefusesWhatIsNoReadableFile) {
    const test::TempDir dir;
    const std::string secret = dir.Write("secret.txt", "a\n");
    std::filesystem::permissions(secret, std::filesystem::perms::none);
    const std::filesystem::path pipe = dir.Path() / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0666), 0);
    const std::filesystem::path large = dir.Write("large.txt", "");
    std::filesystem::resize_file(large, LineReader::kMaxFileSize + 1);

    const test::OrdinaryUser user;
    for (const auto& file : {dir.Path(), dir.Path() / "missing", std::filesystem::path(secret),
                             pipe, large, std::filesystem::path("/dev/zero")}) {
        EXPECT_FALSE(LineReader::Open(file)) << file;
    }
}

}  // namespace
}  // namespace qfr
