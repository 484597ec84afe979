#include <gmock/gmock.h>

#include "data/CriteriaFile.h"

namespace qfr::test {
namespace {

using ::testing::ElementsAre;
using ::testing::FieldsAre;

TEST(CriteriaFile, IsKnownByItsTitle) {
    EXPECT_TRUE(IsCriteriaTitle("RF Criteria of May"));
    EXPECT_FALSE(IsCriteriaTitle(" RF Criteria"));
    EXPECT_FALSE(IsCriteriaTitle("RF Criteri"));
}

TEST(CriteriaFile, GivesNameAndLimitsOfEachLine) {
    LineReader file("RF Criteria; x; y\n\n Benzene ; 0.1 ; 25 \nAcetone;0.05\n  \nTwo;1;2;3\n;\nx");
    EXPECT_THAT(
        ReadCriteriaTable(file),
        ElementsAre(FieldsAre("benzene", "0.1", "25"), FieldsAre("acetone", "0.05", ""),
                    FieldsAre("two", "1", "2;3"), FieldsAre("", "", ""), FieldsAre("x", "", "")));
    LineReader empty("");
    EXPECT_TRUE(ReadCriteriaTable(empty).empty());
}

}  // namespace
}  // namespace qfr::test
