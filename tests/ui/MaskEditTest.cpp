#include "platform/DateTime.h"
#include "platform/qt/MaskEdit.h"
#include "tests/ui/WindowUser.h"

namespace qfr::test {
namespace {

const char* const kDateTimeMask = "!99/99/9999 99:99;1;_";
const char* const kDateMask = "!90/90/0000;1;_";
const char* const kTimeMask = "!90:00;1;_";

TEST(MaskEdit, TakesTextsAndGivesThemBackAsLongAsTheMask) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {kDateTimeMask, "/  /       :", "  /  /       :  "},
        {kDateTimeMask, "1 /2 /2005 9 :05", " 1/ 2/2005  9:05"},
        {kDateTimeMask, "1/2/2005 9:05", "01/02/2005 09:05"},
        {kDateTimeMask, "1/2/05 2:05:30 PM", "01/02/2005 14:05"},
        {kDateTimeMask, "1/2/2005", "01/02/2005   :  "},
        {kDateTimeMask, "9:05", "  /  /      9:05"},
        {kDateMask, "5/12/2005 10:00", "05/12/2005"},
        {kTimeMask, "9:05 PM", "21:05"},
        {kTimeMask, "nonsense", "  :  "},
    };
    for (const auto& [mask, given, text] : cases) {
        MaskEdit edit;
        edit.SetMask(mask);
        edit.SetMaskText("12/31/1999 23:59");
        edit.SetMaskText(given);
        EXPECT_EQ(edit.MaskText(), text) << "from " << given;
    }
}

TEST(MaskEdit, IsTypedInPastedIntoAndErased) {
    MaskEdit edit;
    edit.SetMask(kDateTimeMask);
    edit.show();
    WindowUser user;
    user.Face(edit);
    for (const char* typed :
         {"010220050905", "01/02/2005 09:05", "1/2/2005 9:05", " 1 220050905", "1/2/05  09:05"}) {
        user.Type("^a\b");
        user.Type(typed);
        EXPECT_EQ(ParseDateTime(edit.MaskText()), ParseDateTime("01/02/2005 09:05"))
            << typed << " became " << edit.MaskText();
    }
    user.Type("^a\b");
    user.Paste("  01/02/2005 09:05\n");
    EXPECT_EQ(edit.MaskText(), "01/02/2005 09:05");
    user.Press(Qt::Key_Delete);
    user.Press(Qt::Key_End);
    user.Type("\b");
    EXPECT_EQ(edit.MaskText(), " 1/02/2005 09: 0");
    user.Type("^a\b");
    EXPECT_EQ(edit.MaskText(), kEmptyDateTimeMask);
}

}  // namespace
}  // namespace qfr::test
