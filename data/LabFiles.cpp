#include "data/LabFiles.h"

#include "platform/FileReplace.h"
#include "platform/LineReader.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::size_t kMaxDefaultLength = 29;  // characters
constexpr std::string_view kNotApplicable = "N/A";

}  // namespace

std::optional<std::vector<std::string>> ReadDefaultsFile(const std::filesystem::path& file) {
    auto lines = LineReader::Open(file);
    if (!lines) {
        return std::nullopt;
    }
    std::vector<std::string> values;
    while (values.size() < kDefaultsFields.size() && !lines->AtEnd()) {
        values.push_back(Trim(lines->NextPiece(kMaxDefaultLength).value_or("")));
    }
    return values;
}

std::optional<std::vector<std::string>> ReadLaboratoryFile(const std::filesystem::path& file) {
    auto lines = LineReader::Open(file);
    if (!lines) {
        return std::nullopt;
    }
    std::vector<std::string> values;
    while (values.size() < kLaboratoryFields.size() && !lines->AtEnd()) {
        values.push_back(lines->NextOrEmpty());
    }
    return values;
}

std::optional<std::string> WriteValueLines(const std::filesystem::path& file,
                                           const std::vector<std::string>& values) {
    std::string content;
    for (const std::string& value : values) {
        content += OneLine(value) + "\n";
    }
    return ReplaceFile(file, content);
}

void ApplyMatrixRules(SampleHeader& header) {
    const auto setNotApplicable = [&header](HeaderField field) { header[field] = kNotApplicable; };
    const auto setApplicable = [&header](HeaderField field) {
        if (header[field] == kNotApplicable) {
            header[field] = "0";
        }
    };
    const std::string& matrix = header[HeaderField::kMatrix];
    if (matrix == "WATER") {
        setNotApplicable(HeaderField::kPercentMoisture);
        setNotApplicable(HeaderField::kSoilAliquotVolume);
        setNotApplicable(HeaderField::kSoilExtractVolume);
    } else if (matrix == "SOIL") {
        setApplicable(HeaderField::kPercentMoisture);
        setApplicable(HeaderField::kSoilAliquotVolume);
        setApplicable(HeaderField::kSoilExtractVolume);
    } else if (matrix == "SED") {
        setApplicable(HeaderField::kPercentMoisture);
        setNotApplicable(HeaderField::kSoilAliquotVolume);
        setNotApplicable(HeaderField::kSoilExtractVolume);
    }
}

}  // namespace qfr
