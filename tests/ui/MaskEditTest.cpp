#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <QVBoxLayout>

#include "platform/DateTime.h"
#include "platform/qt/MaskEdit.h"

namespace qfr {
namespace {

const std::string kDateTimeMask = "!99/99/9999 99:99;1;_";

TEST(MaskEdit, TakesTextsAndGivesThemBackAsLongAsTheMask) {
    const struct {
        const char* mask;
        const char* given;
        const char* text;
    } cases[] = {
        {"!99/99/9999 99:99;1;_", "", "  /  /       :  "},
        {"!99/99/9999 99:99;1;_", "  /  /       :  ", "  /  /       :  "},
        {"!99/99/9999 99:99;1;_", "/  /       :", "  /  /       :  "},
        {"!99/99/9999 99:99;1;_", "01/02/2005 09:05", "01/02/2005 09:05"},
        {"!99/99/9999 99:99;1;_", " 1/ 2/2005  9: 5", " 1/ 2/2005  9: 5"},
        {"!99/99/9999 99:99;1;_", "1/ 2/2005  9:05", " 1/ 2/2005  9:05"},
        {"!99/99/9999 99:99;1;_", "1 /2 /2005 9 :05", "1 /2 /2005 9 :05"},
        {"!99/99/9999 99:99;1;_", "1/2/2005 9:05", "01/02/2005 09:05"},
        {"!99/99/9999 99:99;1;_", "1/2/05 2:05:30 PM", "01/02/2005 14:05"},
        {"!99/99/9999 99:99;1;_", "12/25/2005", "12/25/2005   :  "},
        {"!99/99/9999 99:99;1;_", "1/2/2005", "01/02/2005   :  "},
        {"!99/99/9999 99:99;1;_", "9:05", "  /  /      9:05"},
        {"!90/90/0000 90:00;1;_", "05/12/2005 10:00", "05/12/2005 10:00"},
        {"!90/90/0000;1;_", "  /  /    ", "  /  /    "},
        {"!90/90/0000;1;_", "5/12/2005 10:00", "05/12/2005"},
        {"!90:00;1;_", "  :  ", "  :  "},
        {"!90:00;1;_", "9:05", " 9:05"},
        {"!90:00;1;_", "9:05 PM", "21:05"},
        {"!90:00;1;_", "nonsense", "  :  "},
    };
    for (const auto& c : cases) {
        MaskEdit edit;
        edit.SetMask(c.mask);
        edit.SetMaskText("12/31/1999 23:59");
        edit.SetMaskText(c.given);
        EXPECT_EQ(edit.MaskText(), c.text) << "from " << c.given;
    }
}

class MaskEditTyping : public testing::Test {
  protected:
    MaskEditTyping() {
        edit_.SetMask(kDateTimeMask);
        auto* const layout = new QVBoxLayout(&window_);
        layout->addWidget(&before_);
        layout->addWidget(&edit_);
        window_.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
        before_.setFocus();
        QTest::keyClick(&before_, Qt::Key_Tab);
    }

    QWidget window_;
    QLineEdit before_;
    MaskEdit edit_;
};

TEST_F(MaskEditTyping, DigitsFlowOverTheLiterals) {
    QTest::keyClicks(&edit_, "010220050905");
    EXPECT_EQ(edit_.MaskText(), "01/02/2005 09:05");
}

TEST_F(MaskEditTyping, ShortPartsReadAsTheDateThatWasMeant) {
    for (const char* typed : {"1/2/2005 9:05", " 1 22005 905", "1/2/05  09:05"}) {
        edit_.SetMaskText("");
        edit_.setCursorPosition(0);
        QTest::keyClicks(&edit_, typed);
        EXPECT_EQ(ParseDateTime(edit_.MaskText()), ParseDateTime("01/02/2005 09:05"))
            << typed << " became " << edit_.MaskText();
    }
}

TEST_F(MaskEditTyping, ErasingEmptiesPlacesAndLeavesTheOthers) {
    edit_.SetMaskText("01/02/2005 09:05");
    edit_.setCursorPosition(0);
    QTest::keyClick(&edit_, Qt::Key_Delete);
    EXPECT_EQ(edit_.MaskText(), " 1/02/2005 09:05");
    edit_.setCursorPosition(16);
    QTest::keyClick(&edit_, Qt::Key_Backspace);
    EXPECT_EQ(edit_.MaskText(), " 1/02/2005 09:0 ");
    edit_.selectAll();
    QTest::keyClick(&edit_, Qt::Key_Delete);
    EXPECT_EQ(edit_.MaskText(), kEmptyDateTimeMask);
}

TEST_F(MaskEditTyping, PastesADateWithBlanksAroundIt) {
    QGuiApplication::clipboard()->setText("  01/02/2005 09:05\n");
    QTest::keySequence(&edit_, QKeySequence::Paste);
    EXPECT_EQ(edit_.MaskText(), "01/02/2005 09:05");
}

TEST_F(MaskEditTyping, AClickIntoTheEmptyMaskStartsAtItsFront) {
    QTest::mouseClick(&edit_, Qt::LeftButton, {}, QPoint(60, edit_.height() / 2));
    QTest::keyClicks(&edit_, "12252005");
    EXPECT_EQ(edit_.MaskText(), "12/25/2005   :  ");
}

}  // namespace
}  // namespace qfr
