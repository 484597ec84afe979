#include "platform/JobText.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

JobPage PageOf(std::vector<PageItem> items) {
    return {PageOrientation::kPortrait, 5100, 6600, std::move(items)};
}
TextItem At(int x, int y, const std::string& text) {
    return {x, y, 40 * static_cast<int>(text.size()), 100, 10, text};
}

TEST(JobText, IsFoundAsItIsRead) {
    const JobPage first = PageOf({At(900, 900, "Toluene-d8"), RuleItem{0, 0, 9, 9, 6},
                                  At(100, 900, "TOLUENE and toluene"), At(100, 100, "H\u00C9LIUM"),
                                  At(100, 2000, "hidden"), At(90, 2000, "             ")});
    const JobPage second = PageOf({At(100, 100, "o-Toluene")});
    const JobPage empty = PageOf({});
    const std::pair<const char*, std::vector<FoundText>> cases[] = {
        {"tOluene", {{0, 2, 0, 7}, {0, 2, 12, 7}, {0, 0, 0, 7}, {2, 0, 2, 7}}},
        {"\u00E9lium", {{0, 3, 1, 5}}},
        {"lium", {{0, 3, 2, 4}}},
        {"e-d8", {{0, 0, 6, 4}}},
        {"hidden", {}},
        {"d8 TOLUENE", {}},
        {" ", {}},
        {"", {}},
    };
    for (const auto& [sought, found] : cases) {
        EXPECT_EQ(FindText({&first, &empty, &second}, sought), found) << sought;
    }
}

TEST(JobText, PagesAreEmptyWithoutARuleOrALetter) {
    const JobPage empty = PageOf({});
    const JobPage blanks = PageOf({At(1, 1, "  ")});
    const JobPage rule = PageOf({RuleItem{0, 0, 9, 9, 6}});
    const JobPage letter = PageOf({At(1, 1, "  "), At(1, 1, "a")});
    EXPECT_EQ(FirstFilled({&empty, &blanks, &rule}), 2U);
    EXPECT_EQ(FirstFilled({&blanks, &letter, &empty}), 1U);
    EXPECT_EQ(FirstFilled({&empty, &blanks}), 0U);
    EXPECT_EQ(FirstFilled({}), 0U);
}

}  // namespace
}  // namespace qfr::test
