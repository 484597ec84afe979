// The recoveries of the volatile monitoring compounds, as the quantitation reports state them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "data/Batch.h"
#include "data/RecoveryRanges.h"
#include "platform/Messages.h"

namespace qfr {

inline constexpr std::size_t kMaxMonitoringCompounds = 21;

// One sample's recoveries.
struct MonitoringRecoveries {
    std::string SampleNo;
    // Lower case, trimmed; only of the report at index 0 of SampleList, empty otherwise.
    std::vector<std::string> Names;
    // Percent, whole numbers as text, in report order; the first kMaxMonitoringCompounds.
    std::vector<std::string> Recoveries;
};

// One record for every report that can be opened, in SampleList order. A report without a
// "volatile" section is told in a message, and neither it nor any report after it is loaded.
std::vector<MonitoringRecoveries> LoadMonitoringRecoveries(const Batch& batch, Messages& messages);

// "*" for a recovery outside the compound's range, else empty; so also for a compound without a
// range and for a text that is no number.
std::string_view RecoveryFlag(std::string_view compound, std::string_view recovery,
                              const std::vector<RecoveryRange>& ranges);

}  // namespace qfr
