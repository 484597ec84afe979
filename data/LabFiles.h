// The two small text files of laboratory values that the Form 1 header dialog reads and writes.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Batch.h"
#include "platform/Messages.h"

namespace qfr {

// The lines of "DefaultInfo.txt", in file order.
inline constexpr std::array<HeaderField, 13> kDefaultsFields = {
    HeaderField::kLabName,        HeaderField::kContract,          HeaderField::kLabCode,
    HeaderField::kCaseNo,         HeaderField::kModRefNo,          HeaderField::kSdgNo,
    HeaderField::kGcColumn,       HeaderField::kColumnId,          HeaderField::kColumnLength,
    HeaderField::kDilutionFactor, HeaderField::kSoilExtractVolume, HeaderField::kSoilAliquotVolume,
    HeaderField::kPurgeVolume};

// The lines of a laboratory file, in file order.
inline constexpr std::array<HeaderField, 7> kLaboratoryFields = {
    HeaderField::kLabName,     HeaderField::kLabCode,  HeaderField::kContract,
    HeaderField::kModRefNo,    HeaderField::kGcColumn, HeaderField::kColumnId,
    HeaderField::kColumnLength};

// The values of "DefaultInfo.txt" in file order, each trimmed; at most 29 characters of a line are
// taken, its rest is read as the next value. Values missing at the end of the file are missing in
// the result. Absent when the file cannot be opened.
std::optional<std::vector<std::string>> ReadDefaultsFile(const std::filesystem::path& file);

// The lines of a laboratory file, as they stand, at most 7. Absent when it cannot be opened.
std::optional<std::vector<std::string>> ReadLaboratoryFile(const std::filesystem::path& file);

// What is said of a file of values that cannot be read to its end.
Message CouldNotReadValues();

// Said before the values in which BatchText changes something.
inline constexpr std::string_view kDelimiterTaken =
    "A \";\" cannot be kept in a batch. It is taken as \",\" in these values:";
// Makes the values of a file ones that a record can hold. What is to be told of that.
std::vector<Message> MakeBatchTexts(std::vector<std::string>& values, std::string_view fileName);

// One value a line, also in the place of a read-only file. The result is the reason of a failure,
// absent on success.
std::optional<std::string> WriteValueLines(const std::filesystem::path& file,
                                           const std::vector<std::string>& values);

}  // namespace qfr
