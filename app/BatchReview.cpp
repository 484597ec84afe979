#include "app/BatchReview.h"

#include <optional>
#include <utility>

#include "app/HeadlessHost.h"
#include "app/Package.h"

namespace qfr {

std::vector<Finding> ReviewAsPrinted(SavedBatch saved, int levelCount, TextMetrics& metrics,
                                     const ReviewLimits& limits,
                                     const std::function<void(const RecordedForm&)>& watch) {
    const std::vector<PackageWork> works = PlanWholePackage(saved.Batch);
    KeptMessages messages;
    const std::optional<Message> limitsNote = saved.LimitsNote;
    HeadlessHost host(std::move(saved), metrics, messages);
    host.LevelCount() = levelCount;

    auto next = works.begin();
    const auto printNext = [&]() -> std::optional<RecordedForm> {
        if (next == works.end()) {
            return std::nullopt;
        }
        const PackageWork& work = *next++;
        if (limitsNote && work.form->entry == EntryDialog::kRecoveryRanges) {
            messages.Show(*limitsNote);
        }
        std::optional<PrintJob> job = PrintWork(host, work);
        RecordedForm form{work.form->name, work.record, std::move(job), messages.Take()};
        if (watch) {
            watch(form);
        }
        return form;
    };
    return ReviewBatch(
        {host.Batch(), host.Entries(), host.Flags(), host.Reports(), printNext, limits});
}

}  // namespace qfr
