#include "platform/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <system_error>

#include "platform/Text.h"

namespace qfr {

namespace {

// The trimmed text, its plus sign taken off; empty when another sign follows.
std::string Unsigned(std::string_view text) {
    std::string number = Trim(text);
    if (number.starts_with('+')) {
        number.erase(0, 1);
        if (number.starts_with('-')) {
            number.clear();
        }
    }
    return number;
}

template <typename Number>
std::optional<Number> Convert(const std::string& text) {
    Number value{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

}  // namespace

std::optional<double> ParseNumber(std::string_view text) {
    const std::string number = Unsigned(text);
    if (number.find_first_not_of("0123456789+-.eE") != std::string::npos) {
        return std::nullopt;
    }
    return Convert<double>(number);
}

std::optional<std::int32_t> ParseInteger(std::string_view text) {
    return Convert<std::int32_t>(Unsigned(text));
}

std::string FormatGeneral(double value) {
    constexpr int kDigits = 15;
    if (value == 0) {
        return "0";
    }
    std::array<char, 32> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::scientific, kDigits - 1);
    const std::string text(buffer.data(), written.ptr);
    const std::size_t mark = text.find('e');
    if (mark == std::string::npos) {
        return text;  // no finite number
    }
    const int exponent = std::atoi(text.c_str() + mark + 1);
    const bool plain = exponent >= -5 && exponent < kDigits;
    std::string number = plain ? FormatFixed(value, kDigits - 1 - exponent) : text.substr(0, mark);
    if (Contains(number, ".")) {
        number.erase(number.find_last_not_of('0') + 1);
        if (number.ends_with('.')) {
            number.pop_back();
        }
    }
    return plain ? number : number + "E" + std::to_string(exponent);
}

std::string FormatShortest(double value) {
    std::array<char, 400> buffer{};  // the longest plain decimal has some 330 digits
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::fixed);
    return std::string(buffer.data(), written.ptr);
}

std::string FormatFixed(double value, int decimals) {
    constexpr std::size_t kLongestWhole = 320;
    std::string text(kLongestWhole + static_cast<std::size_t>(decimals), '\0');
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value,
                                       std::chars_format::fixed, decimals);
    // A copy: nearly all numbers are short, and forms keep many of them.
    return std::string(text.data(), written.ptr);
}

std::string RoundToWhole(std::string_view text) {
    const std::optional<double> number = ParseNumber(text);
    if (!number) {
        return std::string(text);
    }
    // Only a positive fraction rounds up: negative values are truncated toward zero, on purpose.
    const double whole = std::trunc(*number);
    const double rounded = *number - whole >= 0.5 ? whole + 1 : whole;
    return FormatFixed(rounded == 0 ? 0.0 : rounded, 0);
}

}  // namespace qfr
