#include <cmath>

#include "platform/Numbers.h"
#include "tests/Support.h"

namespace qfr {
namespace {

TEST(Numbers, ReadsDecimalsOnly) {
    const std::pair<std::string_view, double> good[] = {
        {"12.5", 12.5}, {" -3 ", -3}, {"+.5", 0.5}, {"5.", 5}, {"1e3", 1000}, {"1.5E-2", 0.015}};
    for (const auto& [text, value] : good) {
        EXPECT_EQ(ParseNumber(text), value) << text;
    }
    for (const std::string_view bad : {"", " ", ".", "-", "+-5", "--5", "1,5", "1.2.3", "5 6",
                                       "U5.0", "0x10", "inf", "nan", "1e", "1e999", "12.5J"}) {
        EXPECT_EQ(ParseNumber(bad), std::nullopt) << bad;
    }
}

TEST(Numbers, ReadsIntegersOf32Bits) {
    EXPECT_EQ(ParseInteger(" +2147483647"), 2147483647);
    EXPECT_EQ(ParseInteger("-2147483648"), -2147483647 - 1);
    for (const std::string_view bad : {"", "2147483648", "99999999999", "x1", "1x", "1.0", "+-1"}) {
        EXPECT_EQ(ParseInteger(bad), std::nullopt) << bad;
    }
}

TEST(Numbers, WritesTheShortestForms) {
    struct Case {
        double value;
        std::string_view general, shortest;
    };
    for (const auto& [value, general, shortest] : {
             Case{0, "0", "0"},
             Case{80, "80", "80"},
             Case{82.5, "82.5", "82.5"},
             Case{-0.1, "-0.1", "-0.1"},
             Case{100000, "100000", "100000"},
             Case{1200, "1200", "1200"},
             Case{0.1 + 0.2, "0.3", "0.30000000000000004"},
             Case{2.0 / 3, "0.666666666666667", "0.6666666666666666"},
             Case{123456789012345, "123456789012345", "123456789012345"},
             Case{1e15, "1E15", "1000000000000000"},
             Case{0.00001, "0.00001", "0.00001"},
             Case{0.0000015, "1.5E-6", "0.0000015"},
             Case{9.9999999999999999, "10", "10"},
         }) {
        EXPECT_EQ(FormatGeneral(value), general);
        EXPECT_EQ(FormatShortest(value), shortest);
    }
    EXPECT_EQ(FormatShortest(-1e308).size(), 310u);
}

TEST(Numbers, WritesFixedDecimals) {
    EXPECT_EQ(FormatFixed(13.608276, 2), "13.61");
    EXPECT_EQ(FormatFixed(-0.004, 2), "-0.00");
    EXPECT_EQ(FormatFixed(5, 0), "5");
    EXPECT_EQ(FormatFixed(1e308, 3).size(), 313u);
    EXPECT_EQ(FormatFixed(NAN, 2), "nan");
}

TEST(Numbers, RoundsToWholeLikeTheForms) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"12.5", "13"},  {"12.49", "12"}, {"-3.7", "-3"}, {"-0.4", "0"},
        {"0.4", "0"},    {" 7 ", "7"},    {"N/A", "N/A"}, {" x ", " x "},
        {"99.5", "100"}, {"", ""},        {"1e3", "1000"}};
    for (const auto& [text, whole] : cases) {
        EXPECT_EQ(RoundToWhole(text), whole) << text;
    }
}

}  // namespace
}  // namespace qfr
