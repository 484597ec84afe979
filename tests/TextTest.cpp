#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr {
namespace {

TEST(Text, TrimsBlanksAndControlCharacters) {
    EXPECT_EQ(Trim("\t \x01 a b\x1F\r\n"), "a b");
    EXPECT_EQ(TrimRight(" a \t"), " a");
    EXPECT_EQ(Trim(" \x01 "), "");
    EXPECT_EQ(Trim("\u00A0a"), "\u00A0a") << "a no-break blank belongs to the text";
}

TEST(Text, LowersLettersOfEveryLaboratorysAlphabet) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"C:\\Data\\VBLK01.PRN", "c:\\data\\vblk01.prn"},
        {"ÀÉÖ×ØÞß÷", "àéö×øþß÷"},
        {"ĀāŁłŇňŊŸŽž", "āāłłňňŋÿžž"},
        {"ΆΈΌΎΑΡΣΫω", "άέόύαρσϋω"},
        {"ЀЏАЯЁґҐяѠ", "ѐџаяёґґяѡ"},
        {"İıĸŉ", "İıĸŉ"},
        {"A\xC9\xFF\xC3", "a\xC9\xFF\xC3"},
        {"漢字Ａ😀", "漢字Ａ😀"},
    };
    for (const auto& [text, lower] : cases) {
        EXPECT_EQ(LowerCase(text), lower);
        EXPECT_EQ(LowerCase(lower), lower) << "lowering twice";
    }
}

TEST(Text, CountsCharactersNotBytes) {
    EXPECT_EQ(FirstCharacters("äöü", 2), "äö");
    EXPECT_EQ(FirstCharacters("äöü", 9), "äöü");
    EXPECT_EQ(FirstCharacters("a😀b", 2), "a😀");
    EXPECT_EQ(CharacterRange("05/12/2005 14:05", 12, 16), "14:05");
    EXPECT_EQ(CharacterRange("ä1ö2", 2, 3), "1ö");
    EXPECT_EQ(CharacterRange("abc", 3, 9), "c");
    EXPECT_EQ(CharacterRange("abc", 4, 9), "");
    EXPECT_EQ(CharacterRange("abc", 0, 2), "");
}

TEST(Text, RecognisesBeginningsAndEndsInAnyCase) {
    EXPECT_TRUE(BeginsWith("COMPound#;x", "compound#"));
    EXPECT_FALSE(BeginsWith("compound", "compound#"));
    EXPECT_TRUE(EndsWith("by Tallyworks VERSION 4.2", "version 4.2"));
    EXPECT_FALSE(EndsWith("Version 4.21", "version 4.2"));
}

TEST(Text, CutsPathsAtTheirLastSeparator) {
    struct Case {
        std::string_view path, folder, name;
    };
    for (const auto& [path, folder, name] : {
             Case{"C:\\data\\a.prn", "C:\\data", "a.prn"},
             Case{"/home/lab/a.prn", "/home/lab", "a.prn"},
             Case{"C:\\data/2005\\a/b.prn", "C:\\data/2005", "a/b.prn"},
             Case{"a.prn", "", "a.prn"},
             Case{"C:\\data\\", "C:\\data", ""},
         }) {
        EXPECT_EQ(FileNameOnly(path), name);
        EXPECT_EQ(FolderOnly(path), folder);
    }
}

TEST(Text, GetFieldTakesTheLastFieldOfAShortRow) {
    EXPECT_EQ(GetField("a; b ;c", 1), "a");
    EXPECT_EQ(GetField("a; b ;c", 2), "b");
    EXPECT_EQ(GetField("a;b", 5), "b");
    EXPECT_EQ(GetField("a;b;", 3), "");
    EXPECT_EQ(GetField("", 2), "");
}

TEST(Text, TakeFieldKeepsBlanksAndEmptiesTheRest) {
    std::string_view rest = "a ;;c";
    EXPECT_EQ(TakeField(rest), "a ");
    EXPECT_EQ(TakeField(rest), "");
    EXPECT_EQ(TakeField(rest), "c");
    EXPECT_EQ(rest, "");
    EXPECT_EQ(TakeField(rest), "");
}

TEST(Text, ReadsEverythingThatIsNoUtf8AsWindows1252) {
    EXPECT_EQ(ToUtf8("Müller 😀"), "Müller 😀");
    EXPECT_EQ(ToUtf8("M\xFCller \x80 \x93 \x9F \x81"), "Müller € “ Ÿ \u0081");
    for (const std::string_view broken :
         {"\xC3", "\x80", "\xC0\xAF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
          "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82"}) {
        EXPECT_FALSE(IsUtf8(broken));
        EXPECT_TRUE(IsUtf8(ToUtf8(std::string(broken))));
    }
}

TEST(Text, PutsAMessageOnOneLine) {
    EXPECT_EQ(OneLine("a\nb\r\nc\rd"), "a b c d");
}

}  // namespace
}  // namespace qfr
