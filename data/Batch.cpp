#include "data/Batch.h"

#include "data/QuantReport.h"
#include "platform/Text.h"

namespace qfr {

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
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        if (Trim(header[HeaderFieldAt(number)]).empty()) {
            return HeaderFieldAt(number);
        }
    }
    return std::nullopt;
}

bool FilesSpecified(const Batch& batch) {
    return LabBlankRecords(batch) > 0 || !batch.Files.QFiles.empty();
}

std::size_t LabBlankRecords(const Batch& batch) {
    return Trim(batch.Files.LabBlank).empty() ? 0 : 1;
}

void BuildSampleList(Batch& batch) {
    batch.SampleList.reset();
    if (!FilesSpecified(batch)) {
        return;
    }
    SampleListType& list = batch.SampleList.emplace();
    list.reserve(batch.Files.QFiles.size() + 1);
    FileFinder finder;
    if (LabBlankRecords(batch) > 0) {
        ReadSampleHeader(batch.Files.LabBlank, batch.Folder, list.emplace_back(), finder);
    }
    for (const std::string& file : batch.Files.QFiles) {
        ReadSampleHeader(file, batch.Folder, list.emplace_back(), finder);
    }
}

}  // namespace qfr
