#include <gmock/gmock.h>

#include "dialogs/EntryGrid.h"
#include "dialogs/TuneForm.h"
#include "tests/ui/DialogRig.h"

namespace qfr::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const char* const kNoValue = "Please enter a value.";
const char* const kNoDate = "Enter the date/time format as\n MM/DD/YYYY or HH:MI";

struct TuneRig : DialogRig<TTuneForm> {
    TuneRig() { form.Batch().SampleList.emplace(2)[1].Header[HeaderField::kInstrumentId] = "GC 2"; }

    TuneEntry& Stored() { return form.Entries().Tune; }
    // An entry with nothing to complain about.
    void Fill() {
        Stored() = {"BFB01", "", "B0516.D", "05/16/2005", "08:30", {}};
        Stored().Abundances.fill("20");
    }
    std::string Cell() { return Get<EntryGrid>("StringGrid1").currentItem()->text().toStdString(); }
};

TEST(TuneForm, IsFilledByKeyboardAlone) {
    TuneRig rig;
    EXPECT_TRUE(rig.Run(
        [&] {
            EXPECT_EQ(rig.Focus(), "SampleEdit");
            rig.TypeAlong({"BFB01", "", "05162005", "B0516.D", "0830"});
            EXPECT_EQ(rig.Focus(), "StringGrid1");
            rig.TypeAlong({"20.1", "45.2", "100", "6.5", "0.4", "80", "6"});
            rig.Type("98.5");
            rig.Press(Qt::Key_Return);
            rig.TypeAlong({"6.1"});
            EXPECT_EQ(rig.Focus(), "OkButton");
            rig.Press(Qt::Key_Return);
        },
        1U));
    EXPECT_THAT(rig.Told(), IsEmpty());
    EXPECT_EQ(rig.Stored(),
              (TuneEntry{"BFB01",
                         "GC 2",
                         "B0516.D",
                         "05/16/2005",
                         "08:30",
                         {"20.1", "45.2", "100", "6.5", "0.4", "80", "6", "98.5", "6.1"}}));
}

TEST(TuneForm, HoldsTheUserAtAWrongEntryThatIsLeft) {
    const struct {
        const char* control;
        const char* typed;
        const char* message;
    } cases[] = {
        {"SampleEdit", " ", kNoValue},        {"InstrEdit", "", kNoValue},
        {"FileEdit", "", kNoValue},           {"MaskEdit1", "02302005", kNoDate},
        {"MaskEdit1", "__________", kNoDate}, {"MaskEdit2", "2570", kNoDate},
    };
    for (const auto& test : cases) {
        for (const bool byMouse : {false, true}) {
            TuneRig rig;
            rig.Fill();
            EXPECT_FALSE(rig.Run(
                [&] {
                    auto& edit = rig.Get<QLineEdit>(test.control);
                    edit.setFocus();
                    rig.Press(QKeySequence::SelectAll);
                    rig.Press(Qt::Key_Delete);
                    rig.Press(Qt::Key_Home);
                    rig.Type(test.typed);
                    if (byMouse) {
                        rig.Click(rig.dialog, "OkButton");
                    } else {
                        rig.Press(Qt::Key_Tab);
                    }
                    EXPECT_EQ(rig.Focus(), test.control);
                    EXPECT_THAT(rig.Told(), ElementsAre(test.message)) << test.control;
                    rig.Click(rig.dialog, "HelpButton");
                    EXPECT_THAT(rig.topics, ElementsAre(130));
                    rig.log.shown.clear();
                    rig.Click(rig.dialog, "CancelButton");
                },
                0U));
            EXPECT_THAT(rig.Told(), IsEmpty()) << test.control;
        }
    }
}

TEST(TuneForm, OkGoesToTheFirstWrongEntryAndItsRow) {
    TuneRig rig;
    rig.Fill();
    rig.Stored().SampleNo = "";
    rig.Stored().LabFileId = "";
    rig.Stored().Abundances[3] = "5,5";
    rig.Stored().Abundances[8] = "";
    EXPECT_TRUE(rig.Run(
        [&] {
            rig.Get<QLineEdit>("FileEdit").setFocus();
            rig.Press(Qt::Key_Return);
            EXPECT_THAT(rig.Told(), ElementsAre(kNoValue));
            EXPECT_EQ(rig.Focus(), "SampleEdit");
            rig.Type("BFB02");
            rig.Press(Qt::Key_Return);
            EXPECT_THAT(rig.Told(), ElementsAre(kNoValue));
            EXPECT_EQ(rig.Focus(), "FileEdit");
            rig.Type("B2.D");
            rig.Press(Qt::Key_O, Qt::AltModifier);
            EXPECT_THAT(rig.Told(), ElementsAre("Entry must be a valid real number."));
            EXPECT_EQ(rig.Cell(), "5,5");
            rig.Type("5.5");
            rig.Press(Qt::Key_O, Qt::AltModifier);
            EXPECT_THAT(rig.Told(), ElementsAre("Entry must be a valid real number."));
            EXPECT_EQ(rig.Cell(), "");
            rig.Type("7");
            rig.Press(Qt::Key_O, Qt::AltModifier);
        },
        1U));
    EXPECT_EQ(rig.Stored().LabFileId, "B2.D");
    EXPECT_EQ(rig.Stored().Abundances[3], "5.5");
    EXPECT_EQ(rig.Stored().Abundances[8], "7");
}

TEST(TuneForm, CancelKeepsWhatWasTypedButNotTheInstrument) {
    TuneRig rig;
    rig.Fill();
    EXPECT_FALSE(rig.Run(
        [&] {
            rig.TypeAlong({"BFB9", "Other", "1"});  // leaves a date that is none
            EXPECT_THAT(rig.Told(), ElementsAre(kNoDate));
            rig.Press(Qt::Key_Escape);
        },
        1U));
    EXPECT_EQ(rig.Stored().SampleNo, "BFB9");
    EXPECT_EQ(rig.Stored().InjectionDate, "15/16/2005");
    EXPECT_EQ(rig.Stored().InstrumentId, "Other");
    EXPECT_FALSE(rig.Run(
        [&] {
            EXPECT_EQ(rig.Get<QLineEdit>("InstrEdit").text(), "GC 2");
            EXPECT_EQ(rig.Get<QLineEdit>("SampleEdit").text(), "BFB9");
            // A click beside a value means the value, and Escape leaves the cell first.
            auto& grid = rig.Get<EntryGrid>("StringGrid1");
            QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                              grid.visualRect(grid.model()->index(4, 1)).center());
            QTest::qWait(0);
            rig.Type("1.9");
            rig.Press(Qt::Key_Down);
            rig.Type("88");
            rig.Press(Qt::Key_C, Qt::AltModifier);
        },
        1U));
    EXPECT_EQ(rig.Stored().Abundances[4], "1.9");
    EXPECT_EQ(rig.Stored().Abundances[5], "88");
    EXPECT_EQ(rig.Get<EntryGrid>("StringGrid1").Cell(4, 1), "Less than 2.0% of mass 174");
}

}  // namespace
}  // namespace qfr::test
