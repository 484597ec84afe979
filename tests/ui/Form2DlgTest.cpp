#include <gmock/gmock.h>

#include "dialogs/Form2Dlg.h"
#include "tests/ui/DialogRig.h"

namespace qfr::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct RangesRig : DialogRig<TForm2Dlg> {
    RangesEntry& Stored() { return form.Entries().Ranges; }
    std::string File() { return Get<QLineEdit>("FileEdit").text().toStdString(); }
};

TEST(Form2Dlg, TakesKindAndFileByKeyboardAlone) {
    const struct {
        Qt::Key key;
        RecoveryLimits limits;
    } cases[] = {{Qt::Key_S, RecoveryLimits::kSoil},
                 {Qt::Key_I, RecoveryLimits::kOil},
                 {Qt::Key_W, RecoveryLimits::kWater}};
    RangesRig rig;
    for (const auto& test : cases) {
        rig.Stored().FileName = "";
        EXPECT_TRUE(rig.Run(
            [&] {
                rig.Press(test.key, Qt::AltModifier);
                rig.Press(Qt::Key_O, Qt::AltModifier);
                EXPECT_THAT(rig.Told(), ElementsAre("Please select a file for ranges."));
                EXPECT_EQ(rig.Focus(), "FileEdit");
                rig.Type(" ");
                rig.Press(Qt::Key_Return);
                EXPECT_THAT(rig.Told(), ElementsAre("Please select a file for ranges."));
                rig.Type("r.txt");
                rig.Press(Qt::Key_Return);
            },
            0U));
        EXPECT_EQ(rig.Stored(), (RangesEntry{"r.txt", test.limits}));
        EXPECT_FALSE(rig.Run(
            [&] {
                EXPECT_EQ(rig.File(), "r.txt");
                EXPECT_TRUE(static_cast<QAbstractButton*>(rig.dialog.focusWidget())->isChecked());
                rig.Press(Qt::Key_R, Qt::AltModifier);
                rig.Type("typed");
                rig.Press(Qt::Key_Escape);
            },
            0U));
        EXPECT_EQ(rig.Stored(), (RangesEntry{"typed", test.limits}));
    }
}

TEST(Form2Dlg, BrowsesForARangesFileOnly) {
    RangesRig rig;
    rig.Write("good.txt", "RECOVERY RANGES of spring\n0\n");
    rig.Write("other.txt", " recovery ranges\n0\n");
    rig.chooser.answers = {{rig.Path("good.txt")}, {rig.Path("other.txt")}};
    EXPECT_FALSE(rig.Run(
        [&] {
            rig.Press(Qt::Key_B, Qt::AltModifier);
            EXPECT_EQ(rig.File(), rig.Path("good.txt"));
            EXPECT_THAT(rig.Told(), IsEmpty());
            rig.Press(Qt::Key_B, Qt::AltModifier);
            EXPECT_THAT(rig.Told(),
                        ElementsAre(rig.Path("other.txt") + " is not a recovery ranges file.\n" +
                                    "Please select another file."));
            EXPECT_EQ(rig.File(), "");
            EXPECT_EQ(rig.Focus(), "FileEdit");
            rig.Type("kept");
            rig.Press(Qt::Key_B, Qt::AltModifier);  // cancelled
            EXPECT_EQ(rig.File(), "kept");
            rig.Press(Qt::Key_H, Qt::AltModifier);
            rig.Press(Qt::Key_Escape);
        },
        0U));
    EXPECT_EQ(rig.chooser.opened.at(0).filter, 5);
    EXPECT_EQ(rig.chooser.opened.at(0).directory, "/texts");
    EXPECT_EQ(rig.chooser.opened.at(1).directory, rig.dir.path().toStdString());
    EXPECT_THAT(rig.topics, ElementsAre(121));
}

}  // namespace
}  // namespace qfr::test
