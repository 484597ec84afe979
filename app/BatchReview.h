// The review of a batch as it would print now.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "app/BatchFile.h"
#include "platform/Messages.h"
#include "platform/Printer.h"
#include "review/Review.h"

namespace qfr {

// Prints all forms of the batch into memory, as a package would print them on Letter paper, and
// reviews what they state. `levelCount`: of the calibration, as the last form left it; 0 for a
// batch that comes from a file. `takeNote`: what the typeface says of the texts measured since the
// last call. Files are read anew.
std::vector<Finding> ReviewAsPrinted(
    SavedBatch saved, int levelCount, TextMetrics& metrics, const ReviewLimits& limits,
    const std::function<std::optional<Message>()>& takeNote = [] { return std::nullopt; });

}  // namespace qfr
