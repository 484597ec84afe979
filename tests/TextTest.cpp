// What reports and dialogs hold as text: fields, paths, numbers, dates.
#include <cmath>

#include "platform/DateTime.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

TEST(Text, IsTrimmedCutAndSplit) {
    // A no-break blank belongs to the text.
    EXPECT_EQ(Joined({"\t \x01 a b\x1F\r\n", " \x01 ", "\u00A0a"}, Trim), "a b||\u00A0a");
    EXPECT_EQ(TrimRight(" a \t"), " a");
    EXPECT_EQ(FirstCharacters("äöü", 2), "äö");
    EXPECT_EQ(FirstCharacters("a😀b", 2), "a😀");
    EXPECT_EQ(CharacterRange("05/12/2005 14:05", 12, 16), "14:05");
    EXPECT_EQ(CharacterRange("ä1ö2", 2, 3), "1ö");
    EXPECT_EQ(CharacterRange("abc", 3, 9), "c");
    EXPECT_EQ(CharacterRange("abc", 4, 9) + CharacterRange("abc", 0, 2), "");
    const auto fieldOf = [](const char* row) { return [row](int k) { return GetField(row, k); }; };
    EXPECT_EQ(Joined({1, 2, 3, 9}, fieldOf("a; b ;c")), "a|b|c|c") << "a short row's last field";
    EXPECT_EQ(Joined({2, 3}, fieldOf("a;b;")), "b|");
    std::string_view row = "a ;;c";
    EXPECT_EQ(Joined({1, 2, 3, 4}, [&row](int) { return TakeField(row); }), "a ||c|");
    EXPECT_EQ(Joined({"a\nb\r\nc\rd", "a\n"}, OneLine), "a b c d|a ");
    EXPECT_EQ(EnteredText("a;\r\nb\n") + EnteredField("a;\r\nb\n"), "a; ba, b");
    EXPECT_EQ(Enumerated({"1"}) + Enumerated({"1", "2", "3"}), "11, 2 and 3");
    EXPECT_EQ(Joined({"\x1F ~\x7F", "\u0080\u009F\u00A0é😀", "\u061C\u200D\u200E\u200F\u2010",
                      "\u2029\u202A\u202E\u202F", "\u2065\u2066\u2069\u206A", "a\x9B\xE4z"},
                     Visible),
              "? ~?|??\u00A0é😀|?\u200D??\u2010|\u2029??\u202F|\u2065??\u206A|a??z");
    EXPECT_TRUE(BeginsWith("COMPound#;x", "compound#") && EndsWith("VERSION 4.2", "version 4.2"));
    EXPECT_FALSE(BeginsWith("compound", "compound#") || EndsWith("Version 4.21", "version 4.2"));
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

TEST(Numbers, AreDecimalsOnly) {
    const std::pair<std::string_view, double> good[] = {
        {"12.5", 12.5}, {" -3 ", -3}, {"+.5", 0.5}, {"5.", 5}, {"1e3", 1000}, {"1.5E-2", 0.015}};
    for (const auto& [text, value] : good) {
        EXPECT_EQ(ParseNumber(text), value) << text;
    }
    for (const std::string_view bad : {"", " ", ".", "-", "+-5", "--5", "1,5", "1.2.3", "5 6",
                                       "U5.0", "0x10", "inf", "nan", "1e", "1e999", "12.5J"}) {
        EXPECT_EQ(ParseNumber(bad), std::nullopt) << bad;
    }
    EXPECT_EQ(ParseInteger(" +2147483647"), 2147483647);
    EXPECT_EQ(ParseInteger("-2147483648"), -2147483647 - 1);
    for (const std::string_view bad : {"", "2147483648", "99999999999", "x1", "1x", "1.0", "+-1"}) {
        EXPECT_EQ(ParseInteger(bad), std::nullopt) << bad;
    }
}

TEST(Numbers, AreWrittenInFourWays) {
    EXPECT_EQ(Joined({0.0, 1e5, 0.1 + 0.2, -2.0 / 3, 123456789012345.0, 1e15}, FormatGeneral),
              "0|100000|0.3|-0.666666666666667|123456789012345|1E15");
    EXPECT_EQ(Joined({1e-5, 1.5e-6, 9.9999999999999999}, FormatGeneral), "0.00001|1.5E-6|10");
    EXPECT_EQ(Joined({0.0, 82.5, -2.0 / 3, 1e15, 1.5e-6}, FormatShortest),
              "0|82.5|-0.6666666666666666|1000000000000000|0.0000015");
    EXPECT_EQ(FormatShortest(-1e308).size(), 310u);
    EXPECT_EQ(
        Joined({13.608276, -0.004, 5.0, double{NAN}}, [](double x) { return FormatFixed(x, 2); }),
        "13.61|-0.00|5.00|nan");
    EXPECT_EQ(FormatFixed(5, 0), "5");
    EXPECT_EQ(FormatFixed(1e308, 3).size(), 313u);
    EXPECT_EQ(Joined({"12.5", "12.49", "-3.7", "-0.4", " 7 ", "1e3", " x ", ""}, RoundToWhole),
              "13|12|-3|0|7|1000| x |");
}

TEST(DateTime, ReadsWhatReportsAndMasksHold) {
    const std::pair<std::string_view, std::string_view> good[] = {
        {"05/12/2005 14:23", "05/12/2005 14:23"}, {"5/2/05 9:05", "05/02/2005 09:05"},
        {" 1/ 2/2005  9:05", "01/02/2005 09:05"}, {"12/31/49", "12/31/2049 00:00"},
        {"2/29/04 23:59:59", "02/29/2004 23:59"}, {"1/1/50", "01/01/1950 00:00"},
        {"5/12/05 12:10 am", "05/12/2005 00:10"}, {"5/2/05 2:05 Pm", "05/02/2005 14:05"},
        {"5/2/05 12:1:30PM", "05/02/2005 12:01"}, {"14:23", "12/30/1899 14:23"},
        {"12/29/1899 23:59", "12/29/1899 23:59"}, {"01/02/0002", "01/02/0002 00:00"}};
    for (const auto& [text, formatted] : good) {
        const auto when = ParseDateTime(text);
        EXPECT_EQ(when ? FormatDateTime(*when) : "", formatted) << text;
        EXPECT_TRUE(IsDateTimeText(text));
    }
    std::vector<std::string_view> bad = {"02/29/2005",  "02/29/1900",  "13/01/2005", "00/01/2005",
                                         "01/00/2005",  "01/32/2005",  "01/02/0000", "01/02/205",
                                         "01/02/20055", "001/02/2005", "2005-05-12", "12.05.2005"};
    bad.insert(bad.end(), {"24:00", "14:60", "1:02:60", "13:00 PM", "0:30 AM", "14", "1/2", "12:"});
    bad.insert(bad.end(), {"1 /2 /05    : 0:00", "01/02/200514:23", "05/12/2005   :  ", "",
                           "  /  /       :  ", "  /  /      9:05", "05/12/2005 14:23 x",
                           "99999999999/1/2005"});
    for (const std::string_view text : bad) {
        EXPECT_FALSE(ParseDateTime(text) || IsDateTimeText(text)) << text;
    }
    EXPECT_TRUE(ParseDateTime("12/31/1899")->HasDate() && !ParseDateTime("23:59")->HasDate());
    EXPECT_EQ(ParseDateTime("1/2/2000 11:00")->seconds - ParseDateTime("1/1/2000 23:00")->seconds,
              kTwelveHours);
    for (const std::string_view mask : {kEmptyDateTimeMask, kEmptyDateMask, kEmptyTimeMask}) {
        EXPECT_EQ(PrintableDate(mask), "");
        EXPECT_TRUE(IsEmptyMask(" " + std::string(mask)) && !IsEmptyMask(""));
    }
    EXPECT_EQ(PrintableDate("05/12/2005   :  "), "05/12/2005   :  ");
    EXPECT_EQ(Joined({"05/12/2005   :  ", "05/12/2005 :", "05/12/2005  8:  ", "  /  /       :  ",
                      "02/30/2005   :  ", "05/12/2005 08:30"},
                     WithoutUnfilledTime),
              "05/12/2005|05/12/2005|05/12/2005  8:  |  /  /       :  |02/30/2005   :  |"
              "05/12/2005 08:30");
}

}  // namespace
}  // namespace qfr::test
