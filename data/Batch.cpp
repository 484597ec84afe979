#include "data/Batch.h"

#include <algorithm>

#include "data/TicRows.h"
#include "platform/Text.h"

namespace qfr {

std::string BatchText(std::string_view text) {
    std::string line = OneLine(text);
    std::ranges::replace(line, ';', ',');
    return line;
}

SampleHeader::SampleHeader() {
    SampleHeader& header = *this;
    header[HeaderField::kMatrix] = "WATER";
    header[HeaderField::kWtVolUnits] = "mL";
    header[HeaderField::kLevel] = "LOW";
    header[HeaderField::kPercentMoisture] = "N/A";
    header[HeaderField::kSoilExtractVolume] = "N/A";
    header[HeaderField::kSoilAliquotVolume] = "N/A";
    header[HeaderField::kConcUnits] = "ug/L";
    header[HeaderField::kHeatedPurge] = "N";
}

std::optional<HeaderField> FirstEmptyField(const SampleHeader& header) {
    const auto& values = header.Values();
    const auto empty = std::ranges::find_if(values, IsBlank);
    return empty == values.end()
               ? std::nullopt
               : std::optional(HeaderFieldAt(static_cast<int>(empty - values.begin()) + 1));
}

std::vector<HeaderField> EmptyFields(const SampleHeader& header) {
    std::vector<HeaderField> empty;
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        if (IsBlank(header[HeaderFieldAt(number)])) {
            empty.push_back(HeaderFieldAt(number));
        }
    }
    return empty;
}

namespace {

bool IsWholeRow(const TicEntry& row) {
    return std::none_of(row.cells.begin(), row.cells.begin() + TicEntry::kRequired,
                        [](const std::string& cell) { return IsBlank(cell); });
}

}  // namespace

std::optional<TicListType> TicListFromRows(const std::vector<TicEntry>& rows) {
    TicListType list;
    for (const TicEntry& row : rows) {
        TicEntry entry = KeptTic(row);
        if (IsWholeRow(entry)) {
            list.push_back(std::move(entry));
        }
    }
    return list.empty() ? std::nullopt : std::optional(std::move(list));
}

std::vector<std::size_t> IncompleteTicRows(const std::vector<TicEntry>& rows) {
    std::vector<std::size_t> incomplete;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!IsWholeRow(rows[i]) &&
            !std::ranges::all_of(rows[i].cells,
                                 [](const std::string& cell) { return IsBlank(cell); })) {
            incomplete.push_back(i + 1);
        }
    }
    return incomplete;
}

std::string SampleName(const SampleRecord& record) {
    const std::string number = Trim(record.Header[HeaderField::kZovSampleNo]);
    return number.empty() ? FileNameOnly(record.FileName) : number;
}

bool FilesSpecified(const Batch& batch) {
    return LabBlankRecords(batch) > 0 || !batch.Files.QFiles.empty();
}

bool IsLoaded(const Batch& batch) {
    return batch.SampleList || FilesSpecified(batch) || !batch.Files.Calib.empty() ||
           !batch.Files.CheckCal.empty();
}

bool CheckReportNamed(const Batch& batch) {
    return !Trim(batch.Files.CheckCal).empty();
}

std::span<const SampleRecord> SamplesOf(const Batch& batch) {
    return batch.SampleList ? std::span(*batch.SampleList) : std::span<const SampleRecord>();
}

std::span<const SampleRecord> SamplesBesidesBlank(const Batch& batch) {
    const std::span<const SampleRecord> records = SamplesOf(batch);
    return records.subspan(std::min(records.size(), LabBlankRecords(batch)));
}

std::size_t LabBlankRecords(const Batch& batch) {
    return Trim(batch.Files.LabBlank).empty() ? 0 : 1;
}

}  // namespace qfr
