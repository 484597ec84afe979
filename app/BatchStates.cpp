#include "app/BatchStates.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <utility>

#include "app/BatchReview.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::string_view kRefusedRule = "form.refused";

// How the jobs of one form have fared.
struct Tally {
    std::size_t Due = 0;
    std::size_t Refused = 0;
    std::size_t Unfinished = 0;  // printed, with an incomplete header
    std::string Refusal;         // why the first one was refused
    std::string Mend;            // where that is mended; empty: not known
};

void Count(Tally& tally, const RecordedForm& form, std::span<const SampleRecord> samples) {
    ++tally.Due;
    if (!form.Job) {
        // The last message is the one after which the form gives up.
        if (tally.Refused++ == 0 && !form.Messages.empty()) {
            tally.Refusal = OneLine(form.Messages.back().text);
        }
    } else if (form.Record && FirstEmptyField(samples[*form.Record].Header)) {
        ++tally.Unfinished;
    }
}

FormState StateOf(const Tally& tally) {
    const std::string ofAll = " of " + std::to_string(tally.Due);
    if (tally.Due == 0) {
        return {false, std::string(kNoTics)};
    }
    if (tally.Refused > 0) {
        const std::string count = tally.Due > 1 ? std::to_string(tally.Refused) + ofAll + ": " : "";
        // In a narrow column only the beginning shows: the place says most.
        const std::string place = tally.Mend.empty() ? "" : tally.Mend + ": ";
        return {false, count + place + tally.Refusal};
    }
    if (tally.Unfinished > 0) {
        return {false, "Incomplete headers: " + std::to_string(tally.Unfinished) + ofAll};
    }
    return {true, "Ready"};
}

}  // namespace

std::string FindingText(const FindingCount& count) {
    std::string text;
    const auto add = [&text](std::size_t number, Severity severity) {
        if (number > 0) {
            text += (text.empty() ? "" : ", ") + CountText(number, severity);
        }
    };
    add(count.Errors, Severity::kError);
    add(count.Warnings, Severity::kWarning);
    return text.empty() ? "none" : text;
}

BatchStates LookThrough(SavedBatch saved, int levelCount, TextMetrics& metrics) {
    const Batch batch = saved.Batch;
    const std::span<const SampleRecord> samples = SamplesOf(batch);
    BatchStates states;
    states.Samples.resize(samples.size());
    std::vector<Tally> tallies(kForms.size());
    const auto tallyOf = [&tallies](std::string_view form) -> Tally& {
        const auto row = std::ranges::find(kForms, form, &FormRow::name);
        return tallies[static_cast<std::size_t>(row - kForms.begin())];
    };
    const std::vector<Finding> findings = ReviewAsPrinted(
        std::move(saved), levelCount, metrics, {},
        [&](const RecordedForm& form) { Count(tallyOf(form.Form), form, samples); });
    for (const Finding& finding : findings) {
        if (finding.Rule->Id == kRefusedRule) {
            tallyOf(finding.Form).Mend = MendText(finding.Mend);
        }
        const Severity severity = finding.Rule->Severity;
        for (const std::size_t record : finding.Records) {
            states.Samples[record].Errors += severity == Severity::kError ? 1 : 0;
            states.Samples[record].Warnings += severity == Severity::kWarning ? 1 : 0;
        }
    }
    for (const Tally& tally : tallies) {
        states.Forms.push_back(StateOf(tally));
    }
    return states;
}

std::string JobTitle(const FormRow& form) {
    return form.onlyWithTics ? "Form 1 TIC" : "Form " + std::string(form.name);
}

FormPrinted PrintedOf(const FormRow& form, std::span<const PrintedJobs> printed) {
    const auto isOf = [](std::string_view job, const FormRow& row) {
        const std::string title = JobTitle(row);
        return job == title || job.starts_with(title + " ");
    };
    // The title of Form I begins those of Form I VOA-TIC.
    const auto isMine = [&](std::string_view job) {
        return isOf(job, form) && std::ranges::none_of(kForms, [&](const FormRow& other) {
                   return JobTitle(other).size() > JobTitle(form).size() && isOf(job, other);
               });
    };
    FormPrinted result;
    std::set<std::string_view> titles;
    for (const PrintedJobs& jobs : printed) {
        for (const std::string& title : jobs.Titles) {
            if (isMine(title)) {
                titles.insert(title);
                result.Last = &jobs;
            }
        }
    }
    result.Jobs = titles.size();
    return result;
}

}  // namespace qfr
