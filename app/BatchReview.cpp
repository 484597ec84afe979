#include "app/BatchReview.h"

#include <optional>
#include <utility>

#include "app/HeadlessHost.h"
#include "app/Package.h"

namespace qfr {

namespace {

class MessageList : public Messages {
  public:
    void Show(const Message& message) override { shown_.push_back(message); }
    bool AskYesNo(const Message& question) override {
        Show(question);
        return false;
    }
    std::vector<Message> Take() { return std::exchange(shown_, {}); }

  private:
    std::vector<Message> shown_;
};

}  // namespace

std::vector<Finding> ReviewAsPrinted(SavedBatch saved, int levelCount, TextMetrics& metrics,
                                     const ReviewLimits& limits) {
    PackageChoice choice{.samples = std::vector<bool>(SamplesOf(saved.Batch).size(), true)};
    choice.forms.assign(kForms.size(), true);
    const std::vector<PackageWork> works = PlanPackage(saved.Batch, choice);
    MessageList messages;
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
        return RecordedForm{work.form->name, work.record, std::move(job), messages.Take()};
    };
    return ReviewBatch(
        {host.Batch(), host.Entries(), host.Flags(), host.Reports(), printNext, limits});
}

}  // namespace qfr
