#include "dialogs/EntryGrid.h"
#include "dialogs/TicForm.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

TicEntry Tic(const std::string& name) {
    return {{"71-43-2", name, "10.25", "12", ""}};
}

struct TicRig : DialogRig<TTICForm> {
    TicRig() { form.Batch().SampleList.emplace(2); }

    EntryGrid& Grid() { return Get<EntryGrid>("StringGrid1"); }
    std::optional<TicListType>& List(std::size_t sample) { return Samples().at(sample).TicList; }
};

TEST(TicForm, StoresCompleteRowsTypedFromCellToCellUnlessCancelled) {
    TicRig rig;
    EXPECT_TRUE(rig.Run(1, [&] {
        EXPECT_EQ(rig.Shown("ZOVEdit"), "|ZA101");
        rig.Type("71-43-2\t Benzene \t10.25\t12\tJN\t");
        rig.Type("100-41-4\tNo Time\t\t12\tJ\t");
        rig.Type("108-88-3\tTOLUENE\t11\t7");
        rig.log.answers = {false, true};
        const char* const kAsked =
            "Row 2 will not be kept, because a cell is missing.\nClose the list without it?";
        rig.Use("&o", kAsked, "StringGrid1");
        EXPECT_EQ(rig.Grid().currentRow() * 10 + rig.Grid().currentColumn(), 12);
        rig.Use("&o", kAsked);
    }));
    const TicListType stored = {{{"71-43-2", "benzene", "10.25", "12", "JN"}},
                                {{"108-88-3", "toluene", "11", "7", ""}}};
    EXPECT_EQ(rig.List(1), stored);
    EXPECT_FALSE(rig.Run(1, [&] {
        rig.Type("1-1-1\tPhenol\t1\t2\t\t108-88-3\tToluene\t3\t4\t");
        rig.Type("\33\33");  // the first Escape leaves the cell
    }));
    EXPECT_EQ(rig.List(1), stored);
    EXPECT_TRUE(rig.Run(0, [&] { rig.Type("&o"); }));
    EXPECT_EQ(rig.List(0), std::nullopt) << "what was typed is no other sample's";
}

TEST(TicForm, DeletesAndAddsRows) {
    TicRig rig;
    rig.List(0) = TicListType{Tic("a"), Tic("b"), Tic("c")};
    EXPECT_TRUE(rig.Run([&] {
        rig.Press(Qt::Key_Down);
        rig.Type("&d");
        rig.Type("&a");
        EXPECT_EQ(rig.Grid().rowCount(), 30);
        rig.Grid().setCurrentCell(29, 0);
        rig.Use("5-5-5\tLast\t1\t2\t\t", "", "AddButton");
        rig.Type("&d&o");
    }));
    EXPECT_EQ(rig.List(0), (TicListType{Tic("a"), Tic("c")}));
}

TEST(TicForm, KeepsNoMoreThanABatchMayHave) {
    TicRig rig;
    rig.List(0) = TicListType(1000, Tic("a"));
    EXPECT_TRUE(rig.Run([&] { rig.Type("&o"); }));
    rig.List(0)->push_back(Tic("b"));
    EXPECT_FALSE(rig.Run([&] {
        rig.Use("&o", "No more than 1,000 TICs can be kept for a sample.");
        rig.dialog.reject();
    }));
}

TEST(TicForm, PastesRowsOfASpreadsheet) {
    TicRig rig;
    std::string many;
    for (int i = 0; i < 40; ++i) {
        many += "71-43-2\tBenzene\t10.25\t12\t\r\n";
    }
    EXPECT_TRUE(rig.Run([&] {
        rig.Paste(many);
        EXPECT_EQ(rig.Grid().rowCount(), 40);
        rig.Type("\ttyped before");
        rig.Paste("Phen;ol\t9\nCumene\t8\t7\tX\tbeyond the grid\n");
        rig.Type("\t1;");
        rig.Paste("1;");
        rig.Type("&o");
    }));
    const TicListType& list = rig.List(0).value();
    ASSERT_EQ(list.size(), 40U);
    EXPECT_EQ(list[0], (TicEntry{{"71-43-2", "phen,ol", "11,", "12", ""}}));
    EXPECT_EQ(list[1], (TicEntry{{"71-43-2", "cumene", "8", "7", "X"}}));
    EXPECT_EQ(list[39], Tic("benzene"));
}

}  // namespace
}  // namespace qfr::test
