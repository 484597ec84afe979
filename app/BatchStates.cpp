#include "app/BatchStates.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <utility>

#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::string_view kRefusedRule = "form.refused";

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

LookThrough::LookThrough(SavedBatch saved, int levelCount, TextMetrics& metrics)
    : review_(std::move(saved), levelCount, metrics, {},
              [this](const RecordedForm& form) { Count(form); }) {}

LookThrough::Tally& LookThrough::TallyOf(std::string_view form) {
    const auto row = std::ranges::find(kForms, form, &FormRow::name);
    return tallies_[static_cast<std::size_t>(row - kForms.begin())];
}

void LookThrough::Count(const RecordedForm& form) {
    Tally& tally = TallyOf(form.Form);
    ++tally.Due;
    if (!form.Job) {
        // The last message is the one after which the form gives up.
        if (tally.Refused++ == 0 && !form.Messages.empty()) {
            tally.Refusal = OneLine(form.Messages.back().text);
        }
    } else if (form.Record && FirstEmptyField(review_.Samples()[*form.Record].Header)) {
        ++tally.Unfinished;
    }
}

FormState LookThrough::StateOf(const Tally& tally) {
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

BatchStates LookThrough::Take() {
    BatchStates states;
    states.Samples.resize(review_.Samples().size());
    for (const Finding& finding : review_.Take()) {
        if (finding.Rule->Id == kRefusedRule) {
            TallyOf(finding.Form).Mend = MendText(finding.Mend);
        }
        const Severity severity = finding.Rule->Severity;
        for (const std::size_t record : finding.Records) {
            states.Samples[record].Errors += severity == Severity::kError ? 1 : 0;
            states.Samples[record].Warnings += severity == Severity::kWarning ? 1 : 0;
        }
    }
    for (const Tally& tally : tallies_) {
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
