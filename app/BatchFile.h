// Batch files (*.qff): the file set, the sample records, the blank's hits and everything typed into
// the entry dialogs, as lines of ";"-ended values.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "data/Batch.h"
#include "data/Entries.h"
#include "platform/LineReader.h"
#include "platform/Messages.h"

namespace qfr {

struct SavedBatch {
    qfr::Batch Batch;
    qfr::Entries Entries;
    // Of a batch that comes from a file: what was accepted before it was saved.
    BatchFlags Flags = {};
    // Of such a batch: what Form II now does otherwise than when it was saved, and that texts were
    // cut.
    std::optional<Message> LimitsNote = {};
    std::optional<Message> TextsNote = {};
};

// The whole file. Values are written as they stand; a ";" in one is not escaped.
std::string SaveBatch(const Batch& batch, const Entries& entries);

// What a batch of these files lacks to be restored once it is saved.
std::vector<std::string_view> LackingForRestore(const FileSet& files);

// Whether a batch without a lab blank, a calibration or a check report is refused.
enum class MissingReports { kRefused, kAccepted };

// The batch, or the message that says why nothing is restored. `fileName` is how the user knows the
// file; its folder becomes the batch's. A file that ends early leaves the rest empty and the
// entries initial; counts that promise more than the file holds cost nothing. Reports come sorted.
std::variant<SavedBatch, Message> RestoreBatch(LineReader file, std::string_view fileName,
                                               MissingReports missing = MissingReports::kRefused);

// What the user has to know of such a file's content that was just saved for these files: that, or
// why, it cannot be restored. Absent where it can.
std::optional<Message> RestoreWarning(const FileSet& files, std::string content,
                                      std::string_view fileName);

}  // namespace qfr
