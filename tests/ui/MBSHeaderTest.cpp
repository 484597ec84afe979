#include <gmock/gmock.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QPlainTextEdit>

#include "dialogs/MBSHeader.h"
#include "tests/ui/DialogRig.h"

namespace qfr::test {
namespace {

using testing::ElementsAre;

struct CommentsRig : DialogRig<TMBSHeader> {
    std::vector<std::string>& Lines() { return form.Entries().Comments.Lines; }
};

TEST(MBSHeader, KeepsTheLinesThatWereTyped) {
    CommentsRig rig;
    EXPECT_TRUE(rig.Run([&] { rig.Press(Qt::Key_O, Qt::AltModifier); }, 0U));
    EXPECT_THAT(rig.Lines(), ElementsAre(""));
    EXPECT_FALSE(rig.Run(
        [&] {
            rig.Type("Trap changed.");
            rig.Press(Qt::Key_Return);
            rig.Press(Qt::Key_Return);
            rig.Type("Third");
            rig.Press(Qt::Key_F1);
            rig.Press(Qt::Key_Escape);
        },
        0U));
    EXPECT_THAT(rig.Lines(), ElementsAre("Trap changed.", "", "Third"));
    EXPECT_THAT(rig.topics, ElementsAre(122));
    EXPECT_TRUE(rig.Run(
        [&] {
            rig.Type(" line");
            rig.Press(Qt::Key_Tab);
            EXPECT_EQ(rig.Focus(), "OkButton");
            rig.Press(Qt::Key_Return);
        },
        0U));
    EXPECT_THAT(rig.Lines(), ElementsAre("Trap changed.", "", "Third line"));
}

TEST(MBSHeader, HasRoomFor256Characters) {
    const std::string full = std::string(100, 'a') + "\n" + std::string(155, 'b');
    const struct {
        Qt::Key goTo;
        const char* typed;
        const char* pasted;
    } cases[] = {{Qt::Key_End, "x", "yz"}, {Qt::Key_Home, "x", "y\nz"}};
    for (const auto& test : cases) {
        CommentsRig rig;
        rig.Lines() = {full.substr(0, 100), full.substr(101)};
        rig.Run(
            [&] {
                rig.Press(test.goTo, Qt::ControlModifier);
                rig.Type(test.typed);
                rig.Press(Qt::Key_Return);
                QGuiApplication::clipboard()->setText(test.pasted);
                rig.Press(QKeySequence::Paste);
                EXPECT_EQ(rig.Get<QPlainTextEdit>("RichEdit1").toPlainText().toStdString(), full);
                rig.Press(Qt::Key_Escape);
            },
            0U);
    }
    CommentsRig rig;
    rig.Run(
        [&] {
            rig.Type("Note: ");
            QGuiApplication::clipboard()->setText(QString::fromStdString(full));
            rig.Press(QKeySequence::Paste);
            rig.Press(Qt::Key_Escape);
        },
        0U);
    EXPECT_THAT(rig.Lines(), ElementsAre("Note: " + std::string(100, 'a'), std::string(149, 'b')));
}

}  // namespace
}  // namespace qfr::test
