// Dates and times as the reports and the American forms write them, whatever the host's locale.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qfr {

// Seconds since 12/30/1899 00:00, the day that a time alone belongs to.
struct DateTime {
    std::int64_t seconds = 0;
    bool HasDate() const { return seconds >= 86400 || seconds < 0; }
    auto operator<=>(const DateTime&) const = default;
};

inline constexpr std::int64_t kTwelveHours = 12 * 3600;  // seconds

// Masked entries that nobody has filled.
inline constexpr std::string_view kEmptyDateTimeMask = "  /  /       :  ";  // 16 characters
inline constexpr std::string_view kEmptyDateMask = "  /  /    ";            // 10 characters
inline constexpr std::string_view kEmptyTimeMask = "  :  ";                 // 5 characters

// Reads mm/dd/yyyy, month first, one- or two-digit parts, two- or four-digit year (00 to 49 are
// 2000 to 2049, 50 to 99 are 1950 to 1999); hh:nn with optional seconds and AM or PM; both with
// blanks between, or one alone. Blanks around the parts are accepted. Absent when it is no such
// text or no such day.
std::optional<DateTime> ParseDateTime(std::string_view text);

// "mm/dd/yyyy hh:nn", 24 hours.
std::string FormatDateTime(DateTime when);

bool IsDateTimeText(std::string_view text);

// Why the date of a text that is written as one is none: "02/30/2005 does not exist: February 2005
// has 28 days." Absent for a date that exists and for any other text.
std::optional<std::string> NoSuchDate(std::string_view text);

// Whether the text, trimmed, is one of the empty masks.
bool IsEmptyMask(std::string_view text);

// Whether nobody has filled the entry: it is blank or an empty mask.
bool IsUnfilled(std::string_view text);

// A date or time that may be left open.
bool IsDateTimeOrUnfilled(std::string_view text);

// The text, or else the whole empty mask: one that a file holds may have lost its blanks.
std::string OrEmptyMask(std::string_view text, std::string_view emptyMask);

// The date of a date and time whose time nobody has filled in; any other text as it stands.
std::string WithoutUnfilledTime(std::string_view text);

// The text as the forms print it: an empty mask prints as nothing.
std::string PrintableDate(std::string_view text);

}  // namespace qfr
