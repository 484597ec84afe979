#include "data/RecoveryRanges.h"

#include "data/ReportFrame.h"
#include "data/Reports.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {

namespace {

// Adds the line's range of each kind; from the first kind that has none on, all are absent.
void AddRanges(std::string_view line, RecoveryRangesFile& ranges) {
    const std::string name = Trim(TakeField(line));
    bool complete = true;
    for (auto& kind : ranges.Kinds) {
        const std::optional<double> low = ParseNumber(TakeField(line));
        // The last limit is the rest of the line: a ";" after it makes it no number.
        const bool last = &kind == &ranges.Kinds.back();
        const std::optional<double> high = last ? ParseNumber(line) : ParseNumber(TakeField(line));
        complete = complete && low && high;
        if (!complete) {
            kind.reset();
        } else if (kind) {
            kind->push_back({name, *low, *high});
        }
    }
}

}  // namespace

RecoveryRangesFile RecoveryRangesFile::Read(LineReader file) {
    RecoveryRangesFile ranges;
    ranges.HasTitle = BeginsWith(file.NextOrEmpty(), "recovery ranges");
    const std::optional<std::int32_t> count = ParseInteger(file.NextOrEmpty());
    ranges.TooMany = count > kMaxRanges;
    if (!count || *count < 0 || ranges.TooMany) {
        return ranges;
    }
    ranges.Kinds.fill(std::vector<RecoveryRange>());
    for (std::int32_t i = 0; i < *count; ++i) {
        const std::optional<std::string> line = file.Next();
        if (!line) {
            ranges.Kinds.fill(std::nullopt);
            break;
        }
        AddRanges(*line, ranges);
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

std::optional<EntryFault> BrowseRangesFile(Entries& entries, std::size_t /*item*/,
                                           const std::string& fileName, Messages& /*messages*/) {
    const auto file = Reports().Read<RecoveryRangesFile>(fileName, "");
    if (file && file->HasTitle && !file->TooMany) {
        entries.Ranges.FileName = fileName;
        return std::nullopt;
    }
    entries.Ranges.FileName.clear();
    if (file && file->HasTitle) {
        return EntryFault{OverLimitMessage(FileNameOnly(fileName), kMaxRangesText), "FileEdit"};
    }
    return EntryFault{{fileName + " is not a recovery ranges file.\nPlease select another file.",
                       kIncorrectFileTypeTitle},
                      "FileEdit"};
}

}  // namespace qfr
