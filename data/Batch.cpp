#include "data/Batch.h"

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

}  // namespace qfr
