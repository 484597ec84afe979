// The limits of the review that a laboratory may set for itself, and the file that sets them: lines
// "name = value", blank lines, and remarks behind "#".
#pragma once

#include <optional>
#include <string_view>
#include <variant>

#include "platform/LineReader.h"
#include "platform/Messages.h"

namespace qfr {

struct ReviewLimits {
    double HoldingDays = 14;          // from a sample's receipt to its analysis
    double MaxRsd = 30;               // %RSD of an initial calibration
    double MinLevels = 5;             // of an initial calibration
    double RsdDifference = 1;         // of a %RSD from one of unrounded response factors, percent
    double MeanRfDifference = 1;      // of the mean RFs of two reports, whole numbers
    double PercentDDifference = 0.1;  // of a %D from one that is recomputed, percent
};

// A file with more lines is refused.
inline constexpr int kMaxLimitLines = 1'000;

// What the file does not name keeps its default. The message says what is wrong with the file: a
// line that is none, a name that is no limit or is there twice, a value that is no number from 0
// up, or too many lines. `fileName` is how the user knows the file.
std::variant<ReviewLimits, Message> ReadReviewLimits(LineReader file, std::string_view fileName);

}  // namespace qfr
