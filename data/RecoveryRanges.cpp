#include "data/RecoveryRanges.h"

#include <cstdint>
#include <filesystem>

#include "data/OpenedFile.h"
#include "platform/LineReader.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::string_view kTitle = "recovery ranges";
constexpr char kFileEdit[] = "FileEdit";

std::optional<RecoveryRange> ReadRange(std::string_view line, RecoveryLimits limits) {
    RecoveryRange range;
    range.Name = Trim(TakeField(line));
    for (int kind = 1; kind <= static_cast<int>(limits); ++kind) {
        const std::optional<double> low = ParseNumber(TakeField(line));
        // The last limit is the rest of the line: a ";" after it makes it no number.
        const bool last = kind == static_cast<int>(RecoveryLimits::kOil);
        const std::optional<double> high = last ? ParseNumber(line) : ParseNumber(TakeField(line));
        if (!low || !high) {
            return std::nullopt;
        }
        range.Low = *low;
        range.High = *high;
    }
    return range;
}

std::optional<std::vector<RecoveryRange>> ReadRanges(LineReader& file, RecoveryLimits limits) {
    file.NextOrEmpty();
    const std::optional<std::int32_t> count = ParseInteger(file.NextOrEmpty());
    if (!count || *count < 0) {
        return std::nullopt;
    }
    std::vector<RecoveryRange> ranges;
    for (std::int32_t i = 0; i < *count; ++i) {
        const std::optional<std::string> line = file.Next();
        std::optional<RecoveryRange> range = line ? ReadRange(*line, limits) : std::nullopt;
        if (!range) {
            return std::nullopt;
        }
        ranges.push_back(*std::move(range));
    }
    return ranges;
}

}  // namespace

std::optional<std::vector<RecoveryRange>> LoadRecoveryRanges(std::string_view fileName,
                                                             std::string_view folder,
                                                             RecoveryLimits limits,
                                                             Messages& messages) {
    std::optional<std::vector<RecoveryRange>> ranges;
    if (auto file = OpenFileBeside(Trim(fileName), folder)) {
        ranges = ReadRanges(file->Lines, limits);
    }
    if (!ranges) {
        messages.Show({FileNameOnly(fileName) + " could not be read as a recovery ranges file.",
                       kIncorrectFileTypeTitle});
    }
    return ranges;
}

const RecoveryRange* FindRange(const std::vector<RecoveryRange>& ranges,
                               std::string_view compound) {
    const std::string name = LowerCase(Trim(compound));
    if (name.empty()) {
        return nullptr;
    }
    for (const RecoveryRange& range : ranges) {
        if (LowerCase(Trim(range.Name)) == name) {
            return &range;
        }
    }
    return nullptr;
}

std::optional<EntryFault> CheckRangesFile(const std::string& fileName) {
    auto file = OpenFileBeside(fileName, "");
    if (file && BeginsWith(file->Lines.NextOrEmpty(), kTitle)) {
        return std::nullopt;
    }
    return EntryFault{{fileName + " is not a recovery ranges file.\nPlease select another file.",
                       kIncorrectFileTypeTitle},
                      kFileEdit};
}

}  // namespace qfr
