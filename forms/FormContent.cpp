#include "forms/FormContent.h"

#include <algorithm>

#include "platform/Text.h"

namespace qfr {

namespace {

std::string DifferenceOfRows(const SampleRecord& sample, const QuantReport& report) {
    if (report.RowCount == sample.CompoundCount) {
        return "";
    }
    if (report.RowCount == 0 && !report.Frame.HasTable) {
        return "\nThere is no compound table.";
    }
    return "\nCompound rows: " + std::to_string(report.RowCount) + " instead of " +
           std::to_string(sample.CompoundCount) + ".";
}

std::string CutRows(const QuantReport& report) {
    const auto cut = std::ranges::find(report.Rows, false, &CompoundRow::Whole);
    return cut == report.Rows.end()
               ? ""
               : "\nCompound row " + std::to_string(cut - report.Rows.begin() + 1) +
                     " is cut short.";
}

std::string DifferenceOfIds(const SampleRecord& sample, const QuantReport& report, bool isNewer) {
    SampleRecord now;
    ReadSampleHeader(report, now);
    const auto difference = [&](const char* name, HeaderField field,
                                std::string AnalysisIds::*taken) {
        const std::string& shown = sample.Header[field];
        const bool showsTaken = sample.TakenIds ? (*sample.TakenIds).*taken == shown
                                                : isNewer && !now.Header[field].empty();
        return !showsTaken || now.Header[field] == shown
                   ? std::string()
                   : "\n" + std::string(name) + ": " + now.Header[field] + " instead of " + shown +
                         ".";
    };
    return difference("Lab File ID", HeaderField::kLabFileId, &AnalysisIds::LabFileId) +
           difference("Sample ID", HeaderField::kZovSampleNo, &AnalysisIds::ZovSampleNo);
}

}  // namespace

SampleHeader PrintedHeader(const SampleHeader& header) {
    SampleHeader printed;
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        printed[HeaderFieldAt(number)] = PrintableDate(header[HeaderFieldAt(number)]);
    }
    std::string& received = printed[HeaderField::kDateReceived];
    received = WithoutUnfilledTime(received);
    return printed;
}

std::string PrintedPart(std::string_view dateTime, std::size_t first, std::size_t last) {
    return PrintableDate(CharacterRange(dateTime, first, last));
}

std::vector<ListedSample> ListSamples(const SampleListType& samples, std::size_t first,
                                      DateTime start) {
    std::vector<ListedSample> listed;
    for (std::size_t i = first; i < samples.size(); ++i) {
        const SampleHeader& sample = samples[i].Header;
        const std::string& analyzed = sample[HeaderField::kDateAnalyzed];
        const std::string printed = PrintableDate(analyzed);
        listed.push_back({sample[HeaderField::kZovSampleNo], sample[HeaderField::kLabSampleId],
                          sample[HeaderField::kLabFileId], printed, CharacterRange(printed, 1, 10),
                          CharacterRange(printed, 12, 27), TwelveHourFlag(analyzed, start)});
    }
    return listed;
}

std::string TwelveHourFlag(std::string_view dateAnalyzed, DateTime start) {
    const std::optional<DateTime> analyzed = ParseDateTime(dateAnalyzed);
    if (!analyzed) {
        return "";
    }
    const std::int64_t after = analyzed->seconds - start.seconds;
    return after < 0 || after > kTwelveHours ? "*" : "";
}

Message ReportNotFound(std::string_view fileName) {
    return {std::string(fileName) +
                "\ncould not be found.  Use Data Files|Load Files menu option\nto relocate file",
            kFileNotFoundTitle};
}

std::optional<Message> ReportChanged(const Batch& batch, const SampleRecord& sample,
                                     const FileContent<QuantReport>& report) {
    const bool newer = batch.SavedAt && report.Written >= *batch.SavedAt;
    const std::string differences = DifferenceOfRows(sample, *report) + CutRows(*report) +
                                    DifferenceOfIds(sample, *report, newer);
    if (differences.empty()) {
        return std::nullopt;
    }
    return Message{FileNameOnly(sample.FileName) +
                       " is damaged, or has changed since it was loaded." + differences +
                       "\nPlease use Data Files|Load Files menu option to load it again.",
                   "Quantitation Report Changed"};
}

}  // namespace qfr
