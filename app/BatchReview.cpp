#include "app/BatchReview.h"

#include <utility>

namespace qfr {

SteppedReview::SteppedReview(SavedBatch saved, int levelCount, TextMetrics& metrics,
                             const ReviewLimits& limits, Watch watch)
    : watch_(std::move(watch)),
      works_(PlanWholePackage(saved.Batch)),
      limitsNote_(saved.LimitsNote),
      host_(std::move(saved), metrics, messages_),
      review_({host_.Batch(), host_.Entries(), host_.Flags(), host_.Reports(),
               [this] { return PrintNext(); }, limits}) {
    host_.LevelCount() = levelCount;
}

std::optional<RecordedForm> SteppedReview::PrintNext() {
    if (next_ == works_.size()) {
        return std::nullopt;
    }
    const PackageWork& work = works_[next_++];
    if (limitsNote_ && work.form->entry == EntryDialog::kRecoveryRanges) {
        messages_.Show(*limitsNote_);
    }
    std::optional<PrintJob> job = PrintWork(host_, work);
    RecordedForm form{work.form->name, work.record, std::move(job), messages_.Take()};
    if (watch_) {
        watch_(form);
    }
    return form;
}

std::vector<Finding> ReviewAsPrinted(SavedBatch saved, int levelCount, TextMetrics& metrics,
                                     const ReviewLimits& limits) {
    SteppedReview review(std::move(saved), levelCount, metrics, limits, {});
    while (review.Step()) {
    }
    return review.Take();
}

}  // namespace qfr
