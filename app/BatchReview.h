// The review of a batch as it would print now.
#pragma once

#include <functional>
#include <vector>

#include "app/BatchFile.h"
#include "platform/Printer.h"
#include "review/Review.h"

namespace qfr {

// Prints all forms of the batch into memory, as a package would print them on Letter paper, and
// reviews what they state. `levelCount`: of the calibration, as the last form left it; 0 for a
// batch that comes from a file. Files are read anew. `watch`, if there is one, sees what came of
// each form.
std::vector<Finding> ReviewAsPrinted(SavedBatch saved, int levelCount, TextMetrics& metrics,
                                     const ReviewLimits& limits,
                                     const std::function<void(const RecordedForm&)>& watch = {});

}  // namespace qfr
