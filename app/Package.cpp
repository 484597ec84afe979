#include "app/Package.h"

#include <utility>

#include "platform/Text.h"

namespace qfr {

namespace {

// The record is 0 for a form that prints once for the batch.
void RunAlone(HeadlessHost& host, const PackageWork& work,
              const std::function<void(std::size_t record)>& run) {
    host.Reports().BeginJob();
    // The dialogs take values over from each other when they show, and a form empties what a
    // missing file leaves open. The next form must not find any of it.
    const Entries entries = host.Entries();
    const BatchFlags flags = host.Flags();
    const int levelCount = host.LevelCount();
    if (work.form->printBatch || work.record) {
        run(work.record.value_or(0));
    } else {
        host.Show({std::string(kSpecifyFiles), kFilesNotSpecifiedTitle});
    }
    host.Entries() = entries;
    host.Flags() = flags;
    host.LevelCount() = levelCount;
}

}  // namespace

std::vector<PackageWork> PlanPackage(const Batch& batch, const PackageChoice& choice) {
    std::vector<PackageWork> dueJobs;
    for (std::size_t i = 0; i < kForms.size(); ++i) {
        const FormRow& form = kForms[i];
        if (!choice.forms[i]) {
            continue;
        }
        const bool leavesOut = form.onlyWithTics && !choice.byName;
        if (form.printBatch || (!batch.SampleList && !leavesOut)) {
            dueJobs.push_back({&form, std::nullopt});
            continue;
        }
        for (std::size_t record = 0; record < choice.samples.size(); ++record) {
            if (choice.samples[record] && (!leavesOut || (*batch.SampleList)[record].TicList)) {
                dueJobs.push_back({&form, record});
            }
        }
    }
    return dueJobs;
}

std::vector<PackageWork> PlanWholePackage(const Batch& batch) {
    PackageChoice choice;
    choice.forms.assign(choice.forms.size(), true);
    choice.samples.assign(SamplesOf(batch).size(), true);
    return PlanPackage(batch, choice);
}

std::optional<PrintJob> PrintWork(HeadlessHost& host, const PackageWork& work) {
    const FormRow& form = *work.form;
    RunAlone(host, work, [&](std::size_t record) {
        form.printBatch ? form.printBatch(host) : form.printSample(host, record);
    });
    std::optional<PrintJob> job = host.CollectJob();
    if (job) {
        job->form = form.caption;
        job->sample = work.record ? SampleName((*host.Batch().SampleList)[*work.record]) : "";
    }
    return job;
}

std::optional<AnyFormContent> PrepareWork(HeadlessHost& host, const PackageWork& work) {
    std::optional<AnyFormContent> content;
    RunAlone(host, work, [&](std::size_t record) { content = work.form->prepare(host, record); });
    return content;
}

PackageOutcome PrintPackage(FormHost& program, TextMetrics& metrics,
                            const std::vector<PackageWork>& dueJobs, JobPackage& package,
                            const std::function<bool(std::size_t job)>& shouldContinue) {
    KeptMessages messages;
    // On copies: nobody has seen here what the forms and dialogs take over from each other, so none
    // of it may stay. What they have left in the program goes along: the milestones of the batch
    // and the number of calibration levels.
    HeadlessHost host({program.Batch(), program.Entries(), program.Flags()}, metrics, messages);
    host.LevelCount() = program.LevelCount();
    host.Page().Printer().PaperSize = program.Page().Printer().PaperSize;

    PackageOutcome outcome;
    for (std::size_t i = 0; i < dueJobs.size() && !outcome.failed; ++i) {
        if (!shouldContinue(i)) {
            outcome.cancelled = true;
            return outcome;
        }
        std::optional<PrintJob> job = PrintWork(host, dueJobs[i]);
        for (const Message& message : messages.Take()) {
            outcome.notes.push_back({&dueJobs[i], AsLine(message), job.has_value()});
        }
        if (!job) {
            continue;
        }
        if (const auto refusal = package.Take(*std::move(job))) {
            outcome.notes.push_back({&dueJobs[i], AsLine(*refusal), false});
            outcome.failed = true;
        }
    }
    outcome.cancelled = !outcome.failed && !shouldContinue(dueJobs.size());
    return outcome;
}

}  // namespace qfr
