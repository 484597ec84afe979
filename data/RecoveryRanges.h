// The recovery ranges file: the advisory recovery limits of every monitoring compound for water,
// soil and oil samples. A title line "recovery ranges", the number of compounds, then one compound
// a line: name and three pairs of limits in percent, with ";" between.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Entries.h"
#include "data/EntryFault.h"
#include "platform/Messages.h"

namespace qfr {

struct RecoveryRange {
    std::string Name;
    double Low = 0;   // percent, inside
    double High = 0;  // percent, inside
    bool operator==(const RecoveryRange&) const = default;
};

// The limits of the chosen kind, in file order. A file that is not at its name is looked for in
// `folder`. Absent after the message that the file could not be read: it cannot be opened, its
// count is no number from 0 up, it has fewer lines than that, or a limit up to the chosen kind is
// no number.
std::optional<std::vector<RecoveryRange>> LoadRecoveryRanges(std::string_view fileName,
                                                             std::string_view folder,
                                                             RecoveryLimits limits,
                                                             Messages& messages);

// The first range of that name, its case and the blanks around it ignored; null without one. A
// compound without a name has no range.
const RecoveryRange* FindRange(const std::vector<RecoveryRange>& ranges, std::string_view compound);

// What the dialog says of a file whose title is not that of a recovery ranges file. The dialog then
// empties the named control and focuses it.
std::optional<EntryFault> CheckRangesFile(const std::string& fileName);

}  // namespace qfr
