#include <gmock/gmock.h>

#include "data/TicRules.h"

namespace qfr::test {
namespace {

using ::testing::ElementsAre;

TEST(TicRules, OnlyCompleteRowsBecomeEntries) {
    const TicEntry complete{{" 76-14-2 ", " 1,2-DiChloro Ethane", "1.41 ", " 9.2", " NJ "}};
    std::vector<TicEntry> rows;
    for (std::size_t cell = 0; cell < 4; ++cell) {
        rows.push_back(complete);
        rows.back().cells[cell] = "  ";
    }
    EXPECT_EQ(TicListFromRows(rows), std::nullopt);
    rows.push_back(complete);
    rows.push_back({{"N/A", "unknown", "2", "3", ""}});
    const auto list = TicListFromRows(rows);
    ASSERT_TRUE(list);
    EXPECT_THAT(*list,
                ElementsAre(TicEntry{{"76-14-2", "1,2-dichloro ethane", "1.41", "9.2", "NJ"}},
                            TicEntry{{"N/A", "unknown", "2", "3", ""}}));
}

TEST(TicRules, PastedRowsKeepTheirEmptyCells) {
    EXPECT_THAT(PastedCells("a\tb\r\n\t\tc\t\n\ne"),
                ElementsAre(ElementsAre("a", "b"), ElementsAre("", "", "c", ""), ElementsAre(""),
                            ElementsAre("e")));
}

}  // namespace
}  // namespace qfr::test
