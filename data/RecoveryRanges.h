// The recovery ranges file: the advisory recovery limits of every monitoring compound for water,
// soil and oil samples. A title line "recovery ranges", the number of compounds, then one compound
// a line: name and three pairs of limits in percent, with ";" between.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Entries.h"
#include "data/EntryChecks.h"
#include "platform/LineReader.h"

namespace qfr {

struct RecoveryRange {
    std::string Name;
    double Low = 0;   // percent, inside
    double High = 0;  // percent, inside
    bool operator==(const RecoveryRange&) const = default;
};

// A file that states more is refused.
inline constexpr std::int32_t kMaxRanges = 1'000;
inline constexpr std::string_view kMaxRangesText = "1,000 recovery ranges";

struct RecoveryRangesFile {
    bool HasTitle = false;
    bool TooMany = false;  // no kind is there then
    // The ranges of each kind, in the order of RecoveryLimits and of the file. A kind is absent
    // when the count is no number from 0 up, the file has fewer lines than that, or a limit up to
    // this kind is no number.
    std::array<std::optional<std::vector<RecoveryRange>>, 3> Kinds;

    const std::optional<std::vector<RecoveryRange>>& Of(RecoveryLimits limits) const {
        return Kinds.at(static_cast<std::size_t>(limits) - 1);
    }

    static RecoveryRangesFile Read(LineReader file);
};

// The first range of that name, its case and the blanks around it ignored; null without one. A
// compound without a name has no range.
const RecoveryRange* FindRange(const std::vector<RecoveryRange>& ranges, std::string_view compound);

// Browse of the recovery ranges file. A file of another kind empties the entry.
BrowseAction BrowseRangesFile;

}  // namespace qfr
