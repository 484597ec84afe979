#include "review/ReviewLimits.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <string>

#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {

namespace {

struct LimitName {
    std::string_view Name;
    double ReviewLimits::*Limit;
};

constexpr LimitName kLimits[] = {
    {"holding-days", &ReviewLimits::HoldingDays},
    {"max-rsd", &ReviewLimits::MaxRsd},
    {"min-levels", &ReviewLimits::MinLevels},
    {"rsd-difference", &ReviewLimits::RsdDifference},
    {"mean-rf-difference", &ReviewLimits::MeanRfDifference},
    {"percent-d-difference", &ReviewLimits::PercentDDifference},
};

std::string KnownNames() {
    std::string names;
    for (const LimitName& limit : kLimits) {
        names.append(names.empty() ? "" : ", ").append(limit.Name);
    }
    return names;
}

// Takes one line over; what is wrong with it, empty when nothing is.
std::string TakeLine(std::string_view line, ReviewLimits& limits, std::set<std::string>& named) {
    const std::string text = Trim(line.substr(0, line.find('#')));
    if (text.empty()) {
        return "";
    }
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) {
        return "is no \"name = value\"";
    }
    const std::string name = LowerCase(Trim(text.substr(0, equals)));
    const auto limit = std::ranges::find(kLimits, name, &LimitName::Name);
    if (limit == std::end(kLimits)) {
        return "names no limit; these are known: " + KnownNames();
    }
    if (!named.insert(name).second) {
        return "names " + name + " once more";
    }
    const auto value = ParseNumber(text.substr(equals + 1));
    if (!value || *value < 0) {
        return "gives " + name + " no number from 0 up";
    }
    limits.*limit->Limit = *value;
    return "";
}

}  // namespace

std::variant<ReviewLimits, Message> ReadReviewLimits(LineReader file, std::string_view fileName) {
    const auto refusal = [fileName](const std::string& text) {
        return Message{FileNameOnly(fileName) + " " + text + ".\nNo limits are taken from it.",
                       kFileErrorTitle};
    };
    ReviewLimits limits;
    std::set<std::string> named;
    for (int number = 1; const auto line = file.Next(); ++number) {
        if (number > kMaxLimitLines) {
            return refusal("has more than " + std::to_string(kMaxLimitLines) + " lines");
        }
        const std::string trouble = TakeLine(*line, limits, named);
        if (!trouble.empty()) {
            return refusal("cannot be used: line " + std::to_string(number) + " " + trouble);
        }
    }
    return limits;
}

}  // namespace qfr
