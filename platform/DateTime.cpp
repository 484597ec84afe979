#include "platform/DateTime.h"

#include <array>
#include <chrono>
#include <cstdio>

#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::chrono::sys_days kDayZero{std::chrono::year{1899} / 12 / 30};

// Takes the parts of a date and time off the front of a text.
class Scanner {
  public:
    explicit Scanner(std::string_view text) : rest_(text) { SkipBlanks(); }

    bool AtEnd() const { return rest_.empty(); }

    // Takes the character and the blanks after it.
    bool Take(char expected) {
        if (!rest_.starts_with(expected)) {
            return false;
        }
        rest_.remove_prefix(1);
        SkipBlanks();
        return true;
    }

    // A whole number and the blanks after it.
    struct Part {
        int value = 0;
        std::size_t digits = 0;
    };
    std::optional<Part> TakePart() {
        Part part;
        while (part.digits < rest_.size() && rest_[part.digits] >= '0' &&
               rest_[part.digits] <= '9' && part.digits <= 4) {
            part.value = part.value * 10 + (rest_[part.digits] - '0');
            ++part.digits;
        }
        if (part.digits == 0 || part.digits > 4) {
            return std::nullopt;
        }
        rest_.remove_prefix(part.digits);
        SkipBlanks();
        return part;
    }

    // A part of one or two digits that is at most `last`.
    std::optional<int> TakeShort(int last) {
        const auto part = TakePart();
        return part && part->digits <= 2 && part->value <= last ? std::optional(part->value)
                                                                : std::nullopt;
    }

    bool TakeWord(std::string_view lowerCase) {
        if (!BeginsWith(rest_, lowerCase)) {
            return false;
        }
        rest_.remove_prefix(lowerCase.size());
        SkipBlanks();
        return true;
    }

  private:
    void SkipBlanks() {
        while (!rest_.empty() && static_cast<unsigned char>(rest_.front()) <= 0x20) {
            rest_.remove_prefix(1);
        }
    }

    std::string_view rest_;
};

// Seconds at the start of the day.
std::optional<std::int64_t> TakeDate(Scanner& scanner) {
    const auto month = scanner.TakeShort(12);
    if (!month || !scanner.Take('/')) {
        return std::nullopt;
    }
    const auto day = scanner.TakeShort(31);
    if (!day || !scanner.Take('/')) {
        return std::nullopt;
    }
    const auto year = scanner.TakePart();
    if (!year || (year->digits != 2 && year->digits != 4)) {
        return std::nullopt;
    }
    const int century = year->digits == 4 ? 0 : year->value < 50 ? 2000 : 1900;
    const std::chrono::year_month_day date{std::chrono::year{century + year->value},
                                           std::chrono::month{static_cast<unsigned>(*month)},
                                           std::chrono::day{static_cast<unsigned>(*day)}};
    if (!date.ok() || date.year() < std::chrono::year{1}) {
        return std::nullopt;
    }
    return (std::chrono::sys_days{date} - kDayZero).count() * kSecondsPerDay;
}

// Seconds since the start of the day.
std::optional<std::int64_t> TakeTime(Scanner& scanner) {
    auto hour = scanner.TakeShort(23);
    if (!hour || !scanner.Take(':')) {
        return std::nullopt;
    }
    const auto minute = scanner.TakeShort(59);
    if (!minute) {
        return std::nullopt;
    }
    std::optional<int> second = 0;
    if (scanner.Take(':')) {
        second = scanner.TakeShort(59);
    }
    if (!second) {
        return std::nullopt;
    }
    const bool afternoon = scanner.TakeWord("pm");
    if (afternoon || scanner.TakeWord("am")) {
        if (*hour < 1 || *hour > 12) {
            return std::nullopt;
        }
        hour = *hour % 12 + (afternoon ? 12 : 0);
    }
    return (*hour * 60 + *minute) * 60 + *second;
}

}  // namespace

std::optional<DateTime> ParseDateTime(std::string_view text) {
    Scanner scanner(text);
    DateTime when;
    const bool hasDate = Contains(text, "/");
    if (hasDate) {
        const auto date = TakeDate(scanner);
        if (!date) {
            return std::nullopt;
        }
        when.seconds = *date;
    }
    if (!hasDate || !scanner.AtEnd()) {
        const auto time = TakeTime(scanner);
        if (!time) {
            return std::nullopt;
        }
        when.seconds += *time;
    }
    return scanner.AtEnd() ? std::optional(when) : std::nullopt;
}

std::string FormatDateTime(DateTime when) {
    std::int64_t days = when.seconds / kSecondsPerDay;
    if (when.seconds % kSecondsPerDay < 0) {
        --days;
    }
    const auto minutes = static_cast<int>((when.seconds - days * kSecondsPerDay) / 60);
    const std::chrono::year_month_day date{kDayZero + std::chrono::days{days}};
    std::array<char, 64> buffer{};
    const int length =
        std::snprintf(buffer.data(), buffer.size(), "%02u/%02u/%04d %02d:%02d",
                      static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                      static_cast<int>(date.year()), minutes / 60, minutes % 60);
    return std::string(buffer.data(), static_cast<std::size_t>(length));
}

bool IsDateTimeText(std::string_view text) {
    return ParseDateTime(text).has_value();
}

bool IsEmptyMask(std::string_view text) {
    const std::string trimmed = Trim(text);
    return trimmed == Trim(kEmptyDateTimeMask) || trimmed == Trim(kEmptyDateMask) ||
           trimmed == Trim(kEmptyTimeMask);
}

bool IsUnfilled(std::string_view text) {
    return Trim(text).empty() || IsEmptyMask(text);
}

bool IsDateTimeOrUnfilled(std::string_view text) {
    return IsUnfilled(text) || IsDateTimeText(text);
}

std::string OrEmptyMask(std::string_view text, std::string_view emptyMask) {
    return std::string(IsUnfilled(text) ? emptyMask : text);
}

std::string PrintableDate(std::string_view text) {
    return std::string(IsEmptyMask(text) ? "" : text);
}

}  // namespace qfr
