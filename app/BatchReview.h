// The review of a batch as it would print now.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "app/BatchFile.h"
#include "app/HeadlessHost.h"
#include "app/Package.h"
#include "platform/Messages.h"
#include "platform/Printer.h"
#include "review/Review.h"

namespace qfr {

// Prints all forms of the batch into memory, as a package would print them on Letter paper, and
// reviews what they state. `levelCount`: of the calibration, as the last form left it; 0 for a
// batch that comes from a file. Files are read anew.
std::vector<Finding> ReviewAsPrinted(SavedBatch saved, int levelCount, TextMetrics& metrics,
                                     const ReviewLimits& limits);

// The same in small steps, on a batch of its own: the program's may change between them.
class SteppedReview {
  public:
    // Sees what came of a form.
    using Watch = std::function<void(const RecordedForm&)>;

    // The metrics outlive it.
    SteppedReview(SavedBatch saved, int levelCount, TextMetrics& metrics,
                  const ReviewLimits& limits, Watch watch);
    SteppedReview(const SteppedReview&) = delete;
    SteppedReview& operator=(const SteppedReview&) = delete;

    std::span<const SampleRecord> Samples() { return SamplesOf(host_.Batch()); }
    // As those of RunningReview.
    bool Step() { return review_.Step(); }
    std::vector<Finding> Take() { return review_.Take(); }

  private:
    std::optional<RecordedForm> PrintNext();

    const Watch watch_;
    const std::vector<PackageWork> works_;
    std::size_t next_ = 0;  // of them
    const std::optional<Message> limitsNote_;
    KeptMessages messages_;
    HeadlessHost host_;
    RunningReview review_;
};

}  // namespace qfr
