#include "forms/Form8Content.h"

#include <algorithm>

#include "data/CalibrationEntryRules.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::size_t kStandards = InternalStandardNames.size();

StandardISRecord StandardOf(const std::string& area, const std::string& rt) {
    return {.Area = area,
            .RT = rt,
            .AreaUpper = ScaleText(area, 2.0, 0),
            .AreaLower = ScaleText(area, 0.5, 0),
            .RTUpper = ShiftText(rt, 0.5, 2),
            .RTLower = ShiftText(rt, -0.5, 2)};
}

// The level whose amount is the chosen concentration; of several the chosen one, if it is among
// them. Absent, after a message, when there is none.
std::optional<std::size_t> FindLevel(const CalibrationReport& report, int levelCount,
                                     const StandardSummaryEntry& entry, Messages& messages) {
    const auto table = BuildRFTable(report, levelCount, messages);
    if (!table) {
        return std::nullopt;
    }
    const std::string concentration = ConcentrationText(entry);
    const std::vector<std::string> amounts = ChooseLevelAmounts(*table, levelCount);
    auto level = static_cast<std::size_t>(entry.LevelIndex);
    if (level >= amounts.size() || amounts[level] != concentration) {
        level =
            static_cast<std::size_t>(std::ranges::find(amounts, concentration) - amounts.begin());
    }
    if (concentration.empty() || level == amounts.size()) {
        messages.Show({"A " + concentration +
                           " ug/L concentration was not found. Return to\nForm 8 entry to enter "
                           "the appropriate concentration.",
                       "Concentration Not Found"});
        return std::nullopt;
    }
    return level;
}

std::optional<StandardISTable> StandardFromCalibration(const CalibrationReport& report,
                                                       int levelCount,
                                                       const StandardSummaryEntry& entry,
                                                       Messages& messages) {
    const std::optional<std::size_t> level = FindLevel(report, levelCount, entry, messages);
    if (!level) {
        return std::nullopt;
    }
    StandardISTable table;
    for (std::size_t i = 0; i < kStandards; ++i) {
        const std::string& typed = entry.RetentionTimes[i];
        table[i] = StandardOf(report.StandardAreas[i][*level],
                              ParseNumber(typed) ? ShiftText(typed, 0, 2) : Trim(typed));
    }
    return table;
}

StandardISTable StandardFromCheckReport(const CheckReport& report) {
    StandardISTable table;
    for (std::size_t i = 0; i < kStandards; ++i) {
        const PeakData& peak = report.InternalStandards[i];
        table[i] = StandardOf(peak.Area, peak.RetentionTime);
    }
    return table;
}

Form8Content::Peak FlagPeak(const PeakData& peak, const StandardISRecord& standard) {
    const auto flag = [](bool outside) { return outside ? "*" : ""; };
    return {peak.Area, flag(OutsideLimits(peak.Area, standard.AreaLower, standard.AreaUpper)),
            peak.RetentionTime,
            flag(OutsideLimits(peak.RetentionTime, standard.RTLower, standard.RTUpper))};
}

// Adds who it is that lacks areas or retention times, and of which internal standards where it does
// not lack all.
template <typename Values>
void AddIncomplete(std::string& names, const std::string& name, const Values& values) {
    std::string standards;
    std::size_t missing = 0;
    for (std::size_t i = 0; i < kStandards; ++i) {
        if (Trim(values[i].Area).empty() || Trim(values[i].RT).empty()) {
            standards.append(missing++ == 0 ? "" : " and ").append(InternalStandardNames[i]);
        }
    }
    if (missing > 0) {
        names += (names.empty() ? "" : "; ") + name +
                 (missing < kStandards ? " (" + standards + ")" : "");
    }
}

void TellOfMissingValues(const Form8Content& content, const SampleListType& samples,
                         Messages& messages) {
    std::string names;
    AddIncomplete(names, "the 12 hour standard", content.Standard);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        AddIncomplete(names, SampleName(samples[i]), content.Samples[i].Peaks);
    }
    if (!names.empty()) {
        messages.Show({"Form VIII lacks internal standard values of\n" + names + ".",
                       "Internal Standard Values Missing"});
    }
}

}  // namespace

std::optional<Form8Content> BuildForm8Content(const Batch& batch, std::size_t headerRecord,
                                              const CheckReport* check,
                                              const CalibrationReport* calibration, int levelCount,
                                              const StandardSummaryEntry& entry, Reports& reports,
                                              Messages& messages) {
    const SampleListType& samples = *batch.SampleList;
    std::vector<FileContent<QuantReport>> sampleReports;
    bool complete = true;
    for (const SampleRecord& sample : samples) {
        sampleReports.push_back(reports.Read<QuantReport>(sample.FileName, batch.Folder));
        if (sampleReports.back() && sampleReports.back()->TextsCut) {
            messages.Show(TextsWereCut(sample.FileName));
        }
        if (!sampleReports.back()) {
            complete = false;
            messages.Show(ReportNotFound(sample.FileName));
        } else if (const auto changed = ReportChanged(batch, sample, sampleReports.back())) {
            messages.Show(*changed);
        }
    }
    const auto standard = check != nullptr
                              ? std::optional(StandardFromCheckReport(*check))
                              : StandardFromCalibration(*calibration, levelCount, entry, messages);
    if (!complete || !standard) {
        return std::nullopt;
    }
    Form8Content content;
    content.Header = PrintedHeader(samples[headerRecord].Header);
    content.SampleNo = PrintableDate(Trim(entry.SampleNo));
    content.LabFileId = PrintableDate(entry.LabFileId);
    content.FirstCalibrationDate = PrintableDate(entry.FirstCalibrationDate);
    content.LastCalibrationDate = PrintableDate(entry.LastCalibrationDate);
    content.DateAnalyzed = PrintedPart(entry.AnalysisDateTime, 1, 10);
    content.TimeAnalyzed = PrintedPart(entry.AnalysisDateTime, 12, entry.AnalysisDateTime.size());
    content.Standard = *standard;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        Form8Content::Sample& sample = content.Samples.emplace_back();
        sample.SampleNo = samples[i].Header[HeaderField::kZovSampleNo];
        for (std::size_t k = 0; k < kStandards; ++k) {
            sample.Peaks[k] = FlagPeak(sampleReports[i]->InternalStandards[k], content.Standard[k]);
        }
    }
    TellOfMissingValues(content, samples, messages);
    return content;
}

std::string ScaleText(std::string_view text, double factor, int decimals) {
    const auto number = ParseNumber(text);
    return number ? FormatFixed(*number * factor, decimals) : "";
}

std::string ShiftText(std::string_view text, double offset, int decimals) {
    const auto number = ParseNumber(text);
    return number ? FormatFixed(*number + offset, decimals) : "";
}

bool OutsideLimits(std::string_view value, std::string_view lower, std::string_view upper) {
    const auto x = ParseNumber(value);
    const auto low = ParseNumber(lower);
    const auto high = ParseNumber(upper);
    return x && low && high && (*x > *high || *x < *low);
}

}  // namespace qfr
