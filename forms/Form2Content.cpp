#include "forms/Form2Content.h"

#include <utility>

#include "data/ReportFrame.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {

namespace {

std::string LimitsText(const RecoveryRange* range) {
    return range == nullptr
               ? std::string()
               : "(" + FormatShortest(range->Low) + "-" + FormatShortest(range->High) + ")";
}

// Samples that get no row, and why.
struct MissingSamples {
    std::string NotOpened;      // each with its report
    std::string BehindSection;  // from the report without the section on
    std::string Report;         // that one

    std::optional<Message> Told() const {
        std::string text;
        if (!NotOpened.empty()) {
            text += "\nThe report could not be opened: " + NotOpened + ".";
        }
        if (!BehindSection.empty()) {
            text +=
                "\nFrom " + Report + " on, which has no volatile section: " + BehindSection + ".";
        }
        return text.empty() ? std::nullopt
                            : std::optional(Message{"Form II lacks samples of the batch." + text,
                                                    "Samples Missing"});
    }
};

void AddName(std::string& names, const std::string& name) {
    names += (names.empty() ? "" : ", ") + name;
}

}  // namespace

std::optional<Form2Content> BuildForm2Content(const Batch& batch, std::size_t headerRecord,
                                              const RangesEntry& entry, Reports& reports,
                                              Messages& messages) {
    const auto file = reports.Read<RecoveryRangesFile>(Trim(entry.FileName), batch.Folder);
    if (file && file->TooMany) {
        messages.Show(OverLimitMessage(FileNameOnly(entry.FileName), kMaxRangesText));
        return std::nullopt;
    }
    if (!file || !file->Of(entry.Limits)) {
        messages.Show(
            {FileNameOnly(entry.FileName) + " could not be read as a recovery ranges file.",
             kIncorrectFileTypeTitle});
        return std::nullopt;
    }
    const SampleListType& samples = *batch.SampleList;
    Form2Content content{{PrintedHeader(samples[headerRecord].Header), ""}, samples.size(), {}, {}};
    // All samples are taken to list the compounds of the batch's first one.
    std::vector<const RecoveryRange*> ranges;
    std::vector<std::string> names;
    MissingSamples missing;
    for (const SampleRecord& sample : samples) {
        if (!missing.BehindSection.empty()) {
            AddName(missing.BehindSection, SampleName(sample));
            continue;
        }
        const auto report = reports.Read<QuantReport>(sample.FileName, batch.Folder);
        const std::string fileName = FileNameOnly(sample.FileName);
        if (!report) {
            AddName(missing.NotOpened, SampleName(sample) + " (" + fileName + ")");
            continue;
        }
        if (report->TextsCut) {
            messages.Show(TextsWereCut(sample.FileName));
        }
        if (!report->Monitoring) {
            messages.Show({"Did not find keyword, volatile", ""});
            missing.BehindSection = SampleName(sample);
            missing.Report = fileName;
            continue;
        }
        if (const auto changed = ReportChanged(batch, sample, report)) {
            messages.Show(*changed);
        }
        if (&sample == &samples.front()) {
            for (const MonitoringCompound& compound : *report->Monitoring) {
                names.push_back(compound.Name);
                ranges.push_back(FindRange(*file->Of(entry.Limits), compound.Name));
            }
        }
        Form2Content::Sample row{sample.Header[HeaderField::kZovSampleNo], {}};
        for (const MonitoringCompound& compound : *report->Monitoring) {
            const std::size_t column = row.Recoveries.size();
            std::string percent = RoundToWhole(compound.Recovery);
            std::string flag =
                RecoveryFlag(column < ranges.size() ? ranges[column] : nullptr, percent);
            row.Recoveries.push_back({std::move(percent), std::move(flag)});
        }
        content.Samples.push_back(std::move(row));
    }
    if (const auto told = missing.Told()) {
        messages.Show(*told);
    }
    const std::size_t compounds =
        content.Samples.empty() ? 0 : content.Samples.front().Recoveries.size();
    names.resize(compounds);
    ranges.resize(compounds);
    for (std::size_t i = 0; i < compounds; ++i) {
        content.Compounds.push_back({CompoundNumber(i), names[i], LimitsText(ranges[i])});
    }
    return content;
}

std::string CompoundNumber(std::size_t compound) {
    return "VMC" + std::to_string(compound + 1);
}

std::string RecoveryFlag(const RecoveryRange* range, std::string_view recovery) {
    const std::optional<double> value = ParseNumber(recovery);
    if (range == nullptr || !value) {
        return "";
    }
    return *value < range->Low || *value > range->High ? "*" : "";
}

}  // namespace qfr
