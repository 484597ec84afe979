#include <gmock/gmock.h>

#include <QClipboard>
#include <QGuiApplication>

#include "dialogs/EntryGrid.h"
#include "dialogs/TicForm.h"
#include "tests/ui/DialogRig.h"

namespace qfr::test {
namespace {

using testing::ElementsAre;

TicEntry Tic(const std::string& name) {
    return {{"71-43-2", name, "10.25", "12", ""}};
}

struct TicRig : DialogRig<TTICForm> {
    TicRig() { form.Batch().SampleList.emplace(2); }

    EntryGrid& Grid() { return Get<EntryGrid>("StringGrid1"); }
    std::optional<TicListType>& List(std::size_t sample) { return Samples().at(sample).TicList; }
    // The compound names of the grid's first rows.
    std::vector<std::string> Names(int rows) {
        std::vector<std::string> names;
        for (int row = 0; row < rows; ++row) {
            names.push_back(Grid().Cell(row, 1));
        }
        return names;
    }
    void Ok() { Press(Qt::Key_O, Qt::AltModifier); }
    void Cancel() { Press(Qt::Key_C, Qt::AltModifier); }
    void PasteText(const char* text) {
        QGuiApplication::clipboard()->setText(text);
        Press(QKeySequence::Paste);
    }
};

TEST(TicForm, StoresCompleteRowsTypedFromCellToCell) {
    TicRig rig;
    EXPECT_TRUE(rig.Run(
        [&] {
            EXPECT_EQ(rig.Get<QLineEdit>("ZOVEdit").text(), "ZA101");
            EXPECT_EQ(rig.Grid().rowCount(), 29);
            rig.TypeAlong({"71-43-2", " Benzene ", "10.25", "12", "JN"});
            rig.TypeAlong({"100-41-4", "No Time", "", "12", "J"});
            rig.TypeAlong({"108-88-3", "TOLUENE", "11"});
            rig.Type("7");
            rig.Ok();
        },
        1U, "ZA101"));
    EXPECT_EQ(rig.List(0), std::nullopt);
    EXPECT_THAT(rig.List(1).value(),
                ElementsAre(TicEntry{{"71-43-2", "benzene", "10.25", "12", "JN"}},
                            TicEntry{{"108-88-3", "toluene", "11", "7", ""}}));
    EXPECT_TRUE(rig.Run([&] { rig.Ok(); }, 0U, "ZA102"));
    EXPECT_EQ(rig.List(0), std::nullopt);
}

TEST(TicForm, CancelLeavesTheListAndNoOtherSampleGetsWhatWasTyped) {
    TicRig rig;
    rig.List(1) = TicListType(1, Tic("benzene"));
    for (const bool byEscape : {false, true}) {
        EXPECT_FALSE(rig.Run(
            [&] {
                rig.TypeAlong({"1-1-1", "Phenol", "1", "2", "", "108-88-3", "Toluene", "3", "4"});
                if (byEscape) {
                    rig.Press(Qt::Key_Escape);  // the cell
                    rig.Press(Qt::Key_Escape);
                } else {
                    rig.Cancel();
                }
            },
            1U, "ZA101"));
        EXPECT_THAT(rig.List(1).value(), ElementsAre(Tic("benzene")));
        EXPECT_TRUE(rig.Run([&] { rig.Ok(); }, 0U, "ZA102"));
        EXPECT_EQ(rig.List(0), std::nullopt);
    }
}

TEST(TicForm, DeletesAndAddsRows) {
    TicRig rig;
    rig.List(0) = TicListType{Tic("a"), Tic("b"), Tic("c")};
    EXPECT_TRUE(rig.Run(
        [&] {
            rig.Press(Qt::Key_Down);
            rig.Press(Qt::Key_D, Qt::AltModifier);
            EXPECT_THAT(rig.Names(4), ElementsAre("a", "c", "", ""));
            rig.Press(Qt::Key_A, Qt::AltModifier);
            EXPECT_EQ(rig.Grid().rowCount(), 30);
            rig.Grid().setCurrentCell(29, 0);
            rig.TypeAlong({"5-5-5", "Last", "1", "2", ""});
            EXPECT_EQ(rig.Focus(), "AddButton");
            rig.Press(Qt::Key_Tab, Qt::ShiftModifier);
            EXPECT_EQ(rig.Focus(), "StringGrid1");
            rig.Press(Qt::Key_D, Qt::AltModifier);
            EXPECT_EQ(rig.Grid().Cell(29, 1), "");
            EXPECT_EQ(rig.Grid().rowCount(), 30);
            rig.Ok();
        },
        0U, "ZA101"));
    EXPECT_THAT(rig.List(0).value(), ElementsAre(Tic("a"), Tic("c")));
    rig.List(1) = TicListType(30, Tic("x"));
    EXPECT_FALSE(rig.Run(
        [&] {
            EXPECT_EQ(rig.Grid().rowCount(), 31);
            rig.Cancel();
        },
        1U, "ZA102"));
}

TEST(TicForm, PastesRowsOfASpreadsheet) {
    TicRig rig;
    std::string many;
    for (int i = 0; i < 40; ++i) {
        many += "71-43-2\tBenzene\t10.25\t12\t\r\n";
    }
    EXPECT_TRUE(rig.Run(
        [&] {
            rig.PasteText(many.c_str());
            EXPECT_EQ(rig.Grid().rowCount(), 40);
            rig.Press(Qt::Key_Tab);
            rig.Type("typed before");
            rig.PasteText("Phenol\t9\nCumene\t8\t7\tX\tbeyond the grid\n");
            rig.Press(Qt::Key_Tab);
            rig.Type("1");
            rig.PasteText("1");
            rig.Ok();
        },
        0U, "ZA101"));
    const TicListType& list = rig.List(0).value();
    ASSERT_EQ(list.size(), 40U);
    EXPECT_EQ(list[0], (TicEntry{{"71-43-2", "phenol", "11", "12", ""}}));
    EXPECT_EQ(list[1], (TicEntry{{"71-43-2", "cumene", "8", "7", "X"}}));
    EXPECT_EQ(list[39], Tic("benzene"));
}

TEST(TicForm, OpensItsHelpFromACell) {
    TicRig rig;
    rig.Run(
        [&] {
            rig.Type("7");
            rig.Press(Qt::Key_F1);
            rig.Cancel();
        },
        0U, "ZA101");
    EXPECT_THAT(rig.topics, ElementsAre(420));
}

}  // namespace
}  // namespace qfr::test
