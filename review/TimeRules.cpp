// When things happened: receipt, analyses, the tune, the blank and the standards; and entries of
// the calibration forms that contradict each other.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>

#include "data/TuneRules.h"
#include "forms/FormContent.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "review/Rules.h"

namespace qfr {

namespace {

using enum EntryDialog;
using enum HeaderField;

constexpr double kDay = 24.0 * 3600;  // seconds

// Without a time, of which nobody knows the hour.
bool IsDateAlone(std::string_view text) {
    return !Contains(text, ":");
}

// ---- Samples

// Of a day without a time, its end.
std::optional<DateTime> LatestAnalysis(const Reviewed& batch, std::size_t record) {
    auto analyzed = batch.Analyzed(record);
    if (analyzed && IsDateAlone(batch.Header(record, kDateAnalyzed))) {
        analyzed->seconds += static_cast<std::int64_t>(kDay) - 1;
    }
    return analyzed;
}

struct Received {
    std::size_t Record;
    double Days;          // to the analysis; negative: received after it
    std::string Between;  // "Received 05/13/2005 10:20 and analyzed 05/18/2005 10:38"
};

std::vector<Received> ReceivedSamples(const Reviewed& batch) {
    std::vector<Received> samples;
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        const std::string text = WithoutUnfilledTime(batch.Header(record, kDateReceived));
        const auto received = DateTimeIn(text);
        const auto analyzed = LatestAnalysis(batch, record);
        if (received && analyzed) {
            const double days = static_cast<double>(analyzed->seconds - received->seconds) / kDay;
            const bool onlyDays =
                IsDateAlone(text) || IsDateAlone(batch.Header(record, kDateAnalyzed));
            samples.push_back({record, onlyDays ? std::floor(days) : days,
                               "Received " + Trim(text) + " and analyzed " +
                                   Trim(batch.Header(record, kDateAnalyzed))});
        }
    }
    return samples;
}

// What the twelve hours of the samples from `first` on begin with.
struct TwelveHours {
    std::optional<DateTime> Start;
    std::string_view Name;
    std::size_t First = 0;
};

TwelveHours OfTune(const Reviewed& batch) {
    return {InjectionDateTime(batch.Saved.Tune), "the BFB injection"};
}

TwelveHours OfBlank(const Reviewed& batch) {
    return {batch.Blanks() > 0 ? batch.Analyzed(0) : std::nullopt, "the lab blank", 1};
}

TwelveHours OfStandard(const Reviewed& batch) {
    return {batch.StandardAnalyzed(), "the continuing calibration standard"};
}

void LookForSamplesBefore(const Reviewed& batch, const TwelveHours& hours, Findings& findings) {
    for (std::size_t record = hours.First; record < batch.Samples.size(); ++record) {
        const auto analyzed = LatestAnalysis(batch, record);
        if (hours.Start && analyzed && *analyzed < *hours.Start) {
            findings.AddSample(record,
                               "Analyzed " + Trim(batch.Header(record, kDateAnalyzed)) +
                                   ", before " + std::string(hours.Name) + " at " +
                                   FormatDateTime(*hours.Start) + ".",
                               HeaderPlace(kDateAnalyzed));
        }
    }
}

void LookForLateSamples(const Reviewed& batch, const TwelveHours& hours, Findings& findings) {
    for (std::size_t record = hours.First; record < batch.Samples.size(); ++record) {
        const std::string& text = batch.Header(record, kDateAnalyzed);
        const auto analyzed = batch.Analyzed(record);
        if (hours.Start && analyzed && *analyzed > *hours.Start &&
            !TwelveHourFlag(text, *hours.Start).empty()) {
            findings.AddSample(record,
                               "Analyzed " + Trim(text) + ", more than 12 hours after " +
                                   std::string(hours.Name) + " at " + FormatDateTime(*hours.Start) +
                                   ".",
                               HeaderPlace(kDateAnalyzed));
        }
    }
}

// ---- Entries that several forms have

struct Statement {
    std::string Source;
    std::string Text;
    MendPlace Place;
    std::string_view Form;
};

using Agreement = std::function<bool(const std::string& one, const std::string& other)>;

// Statements that are not that of the first source which has one.
void LookForContradictions(const std::string& subject, const std::vector<Statement>& statements,
                           const Agreement& agree, Findings& findings) {
    const Statement* reference = nullptr;
    for (const Statement& statement : statements) {
        if (IsUnfilled(statement.Text)) {
            continue;
        }
        if (reference == nullptr) {
            reference = &statement;
        } else if (!agree(statement.Text, reference->Text)) {
            findings.Add(std::nullopt, "",
                         statement.Source + " has " + Trim(statement.Text) + " for " + subject +
                             ", and " + reference->Source + " " + Trim(reference->Text) + ".",
                         statement.Place, statement.Form);
        }
    }
}

bool IsSameTime(const std::string& one, const std::string& other) {
    const bool onlyDates = IsDateAlone(one) || IsDateAlone(other);
    const auto part = [onlyDates](const std::string& text) {
        const std::string trimmed = Trim(text);
        return ParseDateTime(onlyDates ? trimmed.substr(0, trimmed.find(' ')) : trimmed);
    };
    return IsSameMinute(part(one), part(other));
}

bool IsSameInAnyCase(const std::string& one, const std::string& other) {
    return LowerCase(Trim(one)) == LowerCase(Trim(other));
}

constexpr char kInitial[] = "Form VI's entry";
constexpr char kContinuing[] = "Form VII's entry";
constexpr char kSummary[] = "Form VIII's entry";
constexpr char kLevelFiles[] = "the levels' raw data";
constexpr char kCheckStandard[] = "its raw data file";

}  // namespace

void ReceivedAfterAnalyzed(const Reviewed& batch, Findings& findings) {
    for (const Received& sample : ReceivedSamples(batch)) {
        if (sample.Days < 0) {
            findings.AddSample(sample.Record, sample.Between + ", before it was there.",
                               HeaderPlace(kDateReceived));
        }
    }
}

void HoldingTime(const Reviewed& batch, Findings& findings) {
    for (const Received& sample : ReceivedSamples(batch)) {
        if (sample.Days > batch.Limits.HoldingDays) {
            findings.AddSample(sample.Record,
                               sample.Between + ", " + FormatFixed(sample.Days, 2) +
                                   " days later; the limit is " +
                                   FormatGeneral(batch.Limits.HoldingDays) + ".",
                               HeaderPlace(kDateReceived));
        }
    }
}

void BeforeTune(const Reviewed& batch, Findings& findings) {
    LookForSamplesBefore(batch, OfTune(batch), findings);
}

void LateAfterTune(const Reviewed& batch, Findings& findings) {
    LookForLateSamples(batch, OfTune(batch), findings);
}

void BeforeBlank(const Reviewed& batch, Findings& findings) {
    LookForSamplesBefore(batch, OfBlank(batch), findings);
}

void LateAfterBlank(const Reviewed& batch, Findings& findings) {
    LookForLateSamples(batch, OfBlank(batch), findings);
}

void BeforeStandard(const Reviewed& batch, Findings& findings) {
    LookForSamplesBefore(batch, OfStandard(batch), findings);
}

void LateAfterStandard(const Reviewed& batch, Findings& findings) {
    LookForLateSamples(batch, OfStandard(batch), findings);
}

void CalibrationAfterSamples(const Reviewed& batch, Findings& findings) {
    const auto first = DateTimeIn(batch.Initial.FirstStandard);
    const auto last = std::max(first, DateTimeIn(batch.Initial.LastStandard));
    if (!last) {
        return;
    }
    const MendPlace place = EntryPlace(kInitialCalibration, "CalEndMaskEdit");
    const std::string head =
        "The last standard of the initial calibration is of " + FormatDateTime(*last);
    const auto standard = batch.StandardAnalyzed();
    if (standard && *standard < *last) {
        findings.AddBatch(head + ", after the continuing calibration standard at " +
                              FormatDateTime(*standard) + ".",
                          place);
    }
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        const auto analyzed = LatestAnalysis(batch, record);
        if (analyzed && *analyzed < *last) {
            findings.AddSample(record, head + ", after this sample.", place);
        }
    }
}

void StandardsOrder(const Reviewed& batch, Findings& findings) {
    struct Range {
        const std::string& First;
        const std::string& Last;
        EntryDialog Dialog;
        std::string_view Control;
        std::string_view Form;
    };
    const Range ranges[] = {{batch.Initial.FirstStandard, batch.Initial.LastStandard,
                             kInitialCalibration, "CalStartMaskEdit", "6"},
                            {batch.Continuing.FirstStandard, batch.Continuing.LastStandard,
                             kContinuingCalibration, "MaskEdit2", "7"},
                            {batch.Summary.FirstCalibrationDate, batch.Summary.LastCalibrationDate,
                             kStandardSummary, "MaskEdit2", "8"}};
    for (const Range& range : ranges) {
        const auto first = DateTimeIn(range.First);
        const auto last = DateTimeIn(range.Last);
        if (first && last && *first > *last) {
            findings.Add(std::nullopt, "",
                         "The first standard is of " + Trim(range.First) +
                             ", after the last one of " + Trim(range.Last) + ".",
                         EntryPlace(range.Dialog, range.Control), range.Form);
        }
    }
}

void CalibrationDates(const Reviewed& batch, Findings& findings) {
    const Entries& saved = batch.Saved;
    LookForContradictions("the first standard",
                          {{kLevelFiles, batch.FromLevelFiles.FirstStandard, {}, "6"},
                           {kInitial, saved.InitialCalibration.FirstStandard,
                            EntryPlace(kInitialCalibration, "CalStartMaskEdit"), "6"},
                           {kContinuing, saved.ContinuingCalibration.FirstStandard,
                            EntryPlace(kContinuingCalibration, "MaskEdit2"), "7"},
                           {kSummary, saved.StandardSummary.FirstCalibrationDate,
                            EntryPlace(kStandardSummary, "MaskEdit2"), "8"}},
                          IsSameTime, findings);
    LookForContradictions("the last standard",
                          {{kLevelFiles, batch.FromLevelFiles.LastStandard, {}, "6"},
                           {kInitial, saved.InitialCalibration.LastStandard,
                            EntryPlace(kInitialCalibration, "CalEndMaskEdit"), "6"},
                           {kContinuing, saved.ContinuingCalibration.LastStandard,
                            EntryPlace(kContinuingCalibration, "MaskEdit3"), "7"},
                           {kSummary, saved.StandardSummary.LastCalibrationDate,
                            EntryPlace(kStandardSummary, "MaskEdit3"), "8"}},
                          IsSameTime, findings);
}

void StandardDates(const Reviewed& batch, Findings& findings) {
    LookForContradictions("the analysis of the standard",
                          {{kCheckStandard, batch.FromCheckStandard.AnalysisDateTime, {}, "7"},
                           {kContinuing, batch.Saved.ContinuingCalibration.AnalysisDateTime,
                            EntryPlace(kContinuingCalibration, "MaskEdit1"), "7"},
                           {kSummary, batch.Saved.StandardSummary.AnalysisDateTime,
                            EntryPlace(kStandardSummary, "MaskEdit1"), "8"}},
                          IsSameTime, findings);
}

void StandardFileIds(const Reviewed& batch, Findings& findings) {
    LookForContradictions("the lab file ID of the standard",
                          {{kCheckStandard, batch.FromCheckStandard.LabFileId, {}, "7"},
                           {kContinuing, batch.Saved.ContinuingCalibration.LabFileId,
                            EntryPlace(kContinuingCalibration, "LabFileEdit"), "7"},
                           {kSummary, batch.Saved.StandardSummary.LabFileId,
                            EntryPlace(kStandardSummary, "LabFileEdit"), "8"}},
                          IsSameInAnyCase, findings);
}

void StandardSampleNos(const Reviewed& batch, Findings& findings) {
    LookForContradictions("the sample number of the standard",
                          {{kContinuing, batch.Saved.ContinuingCalibration.SampleNo,
                            EntryPlace(kContinuingCalibration, "ZOV_IDEdit"), "7"},
                           {kSummary, batch.Saved.StandardSummary.SampleNo,
                            EntryPlace(kStandardSummary, "SampleEdit"), "8"}},
                          IsSameInAnyCase, findings);
}

void LetterCase(const Reviewed& batch, Findings& findings) {
    const auto sameOrOther = [](const std::string& one, const std::string& other) {
        return Trim(one) == Trim(other) || !IsSameInAnyCase(one, other);
    };
    // Form VIII takes over from Form VII what its dialog shows.
    LookForContradictions("the sample number of the standard",
                          {{kSummary, batch.Summary.SampleNo, {}, "8"},
                           {kContinuing, batch.Continuing.SampleNo,
                            EntryPlace(kContinuingCalibration, "ZOV_IDEdit"), "7"}},
                          sameOrOther, findings);
    LookForContradictions("the lab file ID of the standard",
                          {{kSummary, batch.Summary.LabFileId, {}, "8"},
                           {kContinuing, batch.Continuing.LabFileId,
                            EntryPlace(kContinuingCalibration, "LabFileEdit"), "7"}},
                          sameOrOther, findings);
}

}  // namespace qfr
