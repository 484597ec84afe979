#include <gmock/gmock.h>

#include "data/TicRules.h"

namespace qfr::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(TicRules, OnlyCompleteRowsBecomeEntries) {
    const TicEntry complete{{" 76-14-2 ", " 1,2-DiChloro Ethane", "1.41 ", " 9.2", " NJ "}};
    std::vector<TicEntry> rows = {{}, complete, {{"", "name", "1", "2", "J"}}};
    for (std::size_t cell = 0; cell < 5; ++cell) {
        rows.push_back(complete);
        rows.back().cells[cell] = "  ";
    }
    const auto list = TicListFromRows(rows);
    ASSERT_TRUE(list);
    const TicEntry stored{{"76-14-2", "1,2-dichloro ethane", "1.41", "9.2", "NJ"}};
    TicEntry unqualified = stored;
    unqualified.cells[4] = "";
    EXPECT_THAT(*list, ElementsAre(stored, unqualified));
}

TEST(TicRules, WithoutACompleteRowThereIsNoList) {
    EXPECT_EQ(TicListFromRows({}), std::nullopt);
    EXPECT_EQ(TicListFromRows({{{"76-14-2", "name", "", "9.2", "NJ"}}}), std::nullopt);
}

TEST(TicRules, PastedRowsKeepTheirEmptyCells) {
    EXPECT_THAT(PastedCells("a\tb\r\n\t\tc\t\nd\n\ne"),
                ElementsAre(ElementsAre("a", "b"), ElementsAre("", "", "c", ""), ElementsAre("d"),
                            ElementsAre(""), ElementsAre("e")));
    EXPECT_THAT(PastedCells(""), IsEmpty());
}

}  // namespace
}  // namespace qfr::test
