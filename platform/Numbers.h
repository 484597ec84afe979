// Numbers in reports and entries: "." as the decimal mark, whatever the host's locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qfr {

// A decimal number with optional sign, fraction and exponent, blanks around it ignored. Absent for
// anything else; hexadecimal, infinities and not-a-number are no numbers here.
std::optional<double> ParseNumber(std::string_view text);

// A decimal integer, blanks around it ignored; absent for anything else and outside 32 bits.
std::optional<std::int32_t> ParseInteger(std::string_view text);

// The shortest general form with at most 15 significant digits ("12.5", "1200", "0.1").
std::string FormatGeneral(double value);

// The shortest decimal that reads back as the same number (80 gives "80", 82.5 gives "82.5").
std::string FormatShortest(double value);

// printf's "%.<decimals>f".
std::string FormatFixed(double value, int decimals);

// A numeric text rounded half up to a whole number and then truncated toward zero ("12.5" gives
// "13", "-3.7" gives "-3"); any other text comes back unchanged.
std::string RoundToWhole(std::string_view text);

}  // namespace qfr
