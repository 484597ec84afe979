#include "platform/DateTime.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>

#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::chrono::sys_days kDayZero{std::chrono::year{1899} / 12 / 30};

// Takes the parts of a date and time off the front of a text, each with the blanks after it.
class Scanner {
  public:
    explicit Scanner(std::string_view text) : rest_(text) { Skip(0); }

    bool AtEnd() const { return rest_.empty(); }
    // That a part which had to be there was not, or is no part of a date or time.
    bool Failed() const { return failed_; }
    void FailIf(bool wrong) { failed_ = failed_ || wrong; }

    bool Take(std::string_view lowerCase) {
        const bool found = BeginsWith(rest_, lowerCase);
        Skip(found ? lowerCase.size() : 0);
        return found;
    }
    void Expect(std::string_view lowerCase) { FailIf(!Take(lowerCase)); }

    std::size_t DigitCount() const {
        return std::min(rest_.find_first_not_of("0123456789"), rest_.size());
    }
    // A whole number that is at most `last` and has no more digits than that; 0 after a failure.
    int TakeNumber(int last) {
        const std::size_t digits = DigitCount();
        int value = 0;
        std::from_chars(rest_.data(), rest_.data() + digits, value);
        const bool wrong = digits == 0 || digits > std::to_string(last).size() || value > last;
        FailIf(wrong);
        Skip(digits);
        return wrong ? 0 : value;
    }

  private:
    void Skip(std::size_t count) {
        rest_.remove_prefix(count);
        while (!rest_.empty() && static_cast<unsigned char>(rest_.front()) <= 0x20) {
            rest_.remove_prefix(1);
        }
    }

    std::string_view rest_;
    bool failed_ = false;
};

// As it is written, whether or not there is such a day.
std::chrono::year_month_day TakeParts(Scanner& scanner) {
    const auto month = static_cast<unsigned>(scanner.TakeNumber(99));
    scanner.Expect("/");
    const auto day = static_cast<unsigned>(scanner.TakeNumber(99));
    scanner.Expect("/");
    const std::size_t digits = scanner.DigitCount();
    scanner.FailIf(digits != 2 && digits != 4);
    const int year = scanner.TakeNumber(9999);
    const int century = digits == 4 ? 0 : year < 50 ? 2000 : 1900;
    return {std::chrono::year{century + year}, std::chrono::month{month}, std::chrono::day{day}};
}

bool Exists(std::chrono::year_month_day date) {
    return date.ok() && date.year() >= std::chrono::year{1};
}

// Seconds at the start of the day.
std::int64_t TakeDate(Scanner& scanner) {
    const std::chrono::year_month_day date = TakeParts(scanner);
    scanner.FailIf(!Exists(date));
    return scanner.Failed() ? 0 : (std::chrono::sys_days{date} - kDayZero).count() * kSecondsPerDay;
}

// Seconds since the start of the day.
int TakeTime(Scanner& scanner) {
    int hour = scanner.TakeNumber(23);
    scanner.Expect(":");
    const int minute = scanner.TakeNumber(59);
    const int second = scanner.Take(":") ? scanner.TakeNumber(59) : 0;
    const bool afternoon = scanner.Take("pm");
    if (afternoon || scanner.Take("am")) {
        scanner.FailIf(hour < 1 || hour > 12);
        hour = hour % 12 + (afternoon ? 12 : 0);
    }
    return (hour * 60 + minute) * 60 + second;
}

}  // namespace

std::optional<DateTime> ParseDateTime(std::string_view text) {
    Scanner scanner(text);
    const bool hasDate = Contains(text, "/");
    DateTime when{hasDate ? TakeDate(scanner) : 0};
    if (!hasDate || !scanner.AtEnd()) {
        when.seconds += TakeTime(scanner);
    }
    return scanner.AtEnd() && !scanner.Failed() ? std::optional(when) : std::nullopt;
}

std::optional<std::string> NoSuchDate(std::string_view text) {
    static constexpr std::array kMonths = {"January",   "February", "March",    "April",
                                           "May",       "June",     "July",     "August",
                                           "September", "October",  "November", "December"};
    Scanner scanner(text);
    const std::chrono::year_month_day date = TakeParts(scanner);
    if (scanner.Failed() || Exists(date)) {
        return std::nullopt;
    }
    const unsigned month{date.month()};
    const int year{date.year()};
    std::array<char, 64> written{};
    std::snprintf(written.data(), written.size(), "%02u/%02u/%04d", month, unsigned{date.day()},
                  year);
    const std::string head = std::string(written.data()) + " does not exist";
    if (!date.month().ok()) {
        return head + ": a year has the months 1 to 12.";
    }
    const unsigned last{(date.year() / date.month() / std::chrono::last).day()};
    return year < 1 ? head + "."
                    : head + ": " + kMonths.at(month - 1) + " " + std::to_string(year) + " has " +
                          std::to_string(last) + " days.";
}

std::string FormatDateTime(DateTime when) {
    const std::chrono::seconds seconds(when.seconds);
    const auto days = std::chrono::floor<std::chrono::days>(seconds);
    const auto minutes = static_cast<int>((seconds - days).count() / 60);
    const std::chrono::year_month_day date{kDayZero + days};
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

std::string WithoutUnfilledTime(std::string_view text) {
    std::string date = Trim(text);
    if (!date.ends_with(':')) {
        return std::string(text);
    }
    date = TrimRight(date.substr(0, date.size() - 1));
    return IsDateTimeText(date) ? date : std::string(text);
}

std::string PrintableDate(std::string_view text) {
    return std::string(IsEmptyMask(text) ? "" : text);
}

}  // namespace qfr
