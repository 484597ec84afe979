#include "platform/DateTime.h"
#include "tests/Support.h"

namespace qfr {
namespace {

TEST(DateTime, ReadsWhatReportsAndMasksHold) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"05/12/2005 14:23", "05/12/2005 14:23"},
        {"5/2/05 9:05", "05/02/2005 09:05"},
        {" 1/ 2/2005  9:05", "01/02/2005 09:05"},
        {"1 /2 /05    : 0:00", ""},
        {"12/31/49", "12/31/2049 00:00"},
        {"1/1/50", "01/01/1950 00:00"},
        {"02/29/2004 23:59:59", "02/29/2004 23:59"},
        {"5/12/2005 12:10 am", "05/12/2005 00:10"},
        {"5/12/2005 12:10:30PM", "05/12/2005 12:10"},
        {"5/12/2005 2:05 Pm", "05/12/2005 14:05"},
        {"14:23", "12/30/1899 14:23"},
        {"12/29/1899 23:59", "12/29/1899 23:59"},
        {"01/02/0002", "01/02/0002 00:00"},
        {"02/29/2005", ""},
        {"02/29/1900", ""},
        {"13/01/2005", ""},
        {"00/01/2005", ""},
        {"01/00/2005", ""},
        {"01/32/2005", ""},
        {"01/02/0000", ""},
        {"01/02/205", ""},
        {"01/02/20055", ""},
        {"001/02/2005", ""},
        {"01/02/200514:23", ""},
        {"24:00", ""},
        {"14:60", ""},
        {"1:02:60", ""},
        {"13:00 PM", ""},
        {"0:30 AM", ""},
        {"14", ""},
        {"1/2", ""},
        {"12:", ""},
        {"05/12/2005   :  ", ""},
        {"  /  /       :  ", ""},
        {"  /  /      9:05", ""},
        {"2005-05-12", ""},
        {"12.05.2005", ""},
        {"05/12/2005 14:23 x", ""},
        {"99999999999/1/2005", ""},
        {"", ""},
    };
    for (const auto& [text, formatted] : cases) {
        const auto when = ParseDateTime(text);
        EXPECT_EQ(when ? FormatDateTime(*when) : "", formatted) << text;
        EXPECT_EQ(IsDateTimeText(text), !formatted.empty()) << text;
    }
}

TEST(DateTime, KnowsATimeAloneFromADate) {
    EXPECT_FALSE(ParseDateTime("23:59")->HasDate());
    EXPECT_TRUE(ParseDateTime("12/31/1899")->HasDate());
    EXPECT_TRUE(ParseDateTime("1/1/2000 0:00")->HasDate());
    EXPECT_EQ(ParseDateTime("1/2/2000 11:00")->seconds - ParseDateTime("1/1/2000 23:00")->seconds,
              kTwelveHours);
}

TEST(DateTime, PrintsAnUnfilledMaskAsNothing) {
    for (const std::string_view mask : {kEmptyDateTimeMask, kEmptyDateMask, kEmptyTimeMask}) {
        EXPECT_EQ(PrintableDate(mask), "");
        EXPECT_TRUE(IsEmptyMask(" " + std::string(mask)));
    }
    EXPECT_EQ(PrintableDate("05/12/2005   :  "), "05/12/2005   :  ");
    EXPECT_FALSE(IsEmptyMask(""));
}

}  // namespace
}  // namespace qfr
