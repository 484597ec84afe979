// Numbers and strings as a PDF file writes them.
#pragma once

#include <array>
#include <charconv>
#include <cstdio>
#include <string>
#include <string_view>

namespace qfr {

inline void AppendNumber(std::string& out, int value) {
    std::array<char, 12> digits{};
    out.append(digits.data(), std::to_chars(digits.begin(), digits.end(), value).ptr);
}

// With up to four digits behind the point.
inline void AppendNumber(std::string& out, double value) {
    std::array<char, 32> digits{};
    const int size = std::snprintf(digits.data(), digits.size(), "%.4f", value);
    std::string_view text(digits.data(), static_cast<std::size_t>(size));
    text = text.substr(0, text.find_last_not_of('0') + 1);
    out += text.ends_with('.') ? text.substr(0, text.size() - 1) : text;
}

inline void AppendHex(std::string& out, unsigned value, int digits) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
        out += kDigits[value >> static_cast<unsigned>(shift) & 0xFU];
    }
}

}  // namespace qfr
