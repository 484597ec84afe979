// What is entered as a header value: what is made of it, and what is wrong with it.
#include <gtest/gtest.h>
#include <string>

#include "data/HeaderFields.h"
#include "platform/DateTime.h"

namespace qfr::test {
namespace {

using enum HeaderField;

TEST(HeaderFields, TakeWhatABatchCanHold) {
    const std::string open(kEmptyDateTimeMask);
    struct Case {
        HeaderField field;
        const char* entered;
        std::string text;
        const char* fault = "";
    };
    const Case cases[] = {
        {kContract, " 68;W\r\n1\r\n", " 68,W 1"},
        {kContract, "5/18/2005", "5/18/2005"},
        {kDateReceived, "", open},
        {kDateAnalyzed, " / /  : ", " / /  : ", "Date Analyzed is no date."},
        {kDateAnalyzed, "5/8/05 9:05:59 PM", "05/08/2005 21:05"},
        {kDateAnalyzed, " 5/ 8/2005  9:05", " 5/ 8/2005  9:05"},
        {kDateAnalyzed, "050820052105", "05/08/2005 21:05"},
        {kDateAnalyzed, "05082005", "05/08/2005", "Date Analyzed has no time."},
        {kDateAnalyzed, "05/08/2005   :  ", "05/08/2005   :  ", "Date Analyzed has no time."},
        {kDateAnalyzed, "2/30/2005 10:00", "2/30/2005 10:00",
         "Date Analyzed is no date. 02/30/2005 does not exist: February 2005 has 28 days."},
        {kDateReceived, "05/08/2005   :  ", "05/08/2005"},
        {kDateReceived, " 5/8/2005 ", "05/08/2005"},
        {kDateReceived, "10:00", "10:00", "Date Received is no date."},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.entered);
        EXPECT_EQ(HeaderText(each.field, each.entered), each.text);
        EXPECT_EQ(HeaderFault(each.field, each.text).value_or(""), each.fault);
    }
    EXPECT_EQ(HeaderText(kLabName, std::string(500, 'x')), std::string(400, 'x'));
}

TEST(HeaderFields, TellWhatIsToBeLookedAt) {
    EXPECT_EQ(HeaderHeading(kColumnId), "Column ID (mm)");
    EXPECT_EQ(PlaceholderDoubt(kLabCode, "xxx "),
              "Lab Code is \"XXX\", as the dialog has it at first.");
    EXPECT_FALSE(PlaceholderDoubt(kGcColumn, "Vocol")) << "a value that many laboratories keep";
    EXPECT_EQ(ChoiceDoubt(kLevel, "med"), "Level is \"med\", none of TRACE, LOW and MED.");
    EXPECT_FALSE(ChoiceDoubt(kLevel, " MED") || ChoiceDoubt(kLevel, "") ||
                 ChoiceDoubt(kLabName, "x"));
    EXPECT_TRUE(IsListedChoice("Y") && !IsListedChoice(""));
}

}  // namespace
}  // namespace qfr::test
