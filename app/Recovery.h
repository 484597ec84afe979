// Recovery files: a batch that is not saved, as it stood last, with what a batch file does not hold
// of it. A run has one of its own and names others when it gives a batch up, so a folder holds
// those of several runs, some of which still go on.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "app/BatchFile.h"

namespace qfr {

inline constexpr std::string_view kRecoveryEnding = ".recovery";  // of the files' names
inline constexpr std::string_view kDamagedEnding = ".damaged";    // behind that, of a damaged one
inline constexpr std::time_t kRecoveryTime = 7 * 24 * 3600;       // seconds that one is offered

// By which a file that another program has changed is told.
struct FileStamp {
    std::uintmax_t Size = 0;  // bytes
    std::int64_t Time = 0;    // of the last change, in the file system's own units
    bool operator==(const FileStamp&) const = default;
};
// Absent where there is no such file.
std::optional<FileStamp> StampOf(const std::filesystem::path& file);

// What stands in a recovery file before the batch.
struct RecoveryHead {
    std::time_t WrittenAt = 0;
    std::size_t Samples = 0;  // besides the lab blank
    // Their numbers, or else their reports; without samples, the lab blank's if there is one.
    std::string FirstSample;
    std::string LastSample;
    std::string BatchFile;           // full path (UTF-8); empty: the batch has never had a file
    std::optional<FileStamp> Stamp;  // of that file when it was last read or written
    std::string Folder;              // Batch::Folder
    RecoveryLimits Limits = RecoveryLimits::kWater;
    std::array<std::string, kMaxLevels> LabFileIds;  // of the initial calibration
    bool operator==(const RecoveryHead&) const = default;
};
RecoveryHead RecoveryHeadOf(const Batch& batch, const Entries& entries);

// The whole file. `content` is what SaveBatch gives.
std::string RecoveryText(const RecoveryHead& head, std::string_view content);
// Writes the file anew, readable by the user alone; its folder, which nobody else can look into, is
// made where it is missing. The reason of a failure.
std::optional<std::string> WriteRecovery(const std::filesystem::path& file,
                                         const RecoveryHead& head, std::string_view content);

// A batch that can be recovered.
struct RecoveryOffer {
    std::filesystem::path File;
    RecoveryHead Head;
};
// "monday.qff: 9 samples, ZA101 to ZA109, as of 05/18/2005 14:05", in local time.
std::string OfferText(const RecoveryOffer& offer);

// Whether the program that writes a recovery file still runs.
using StillWritten = std::function<bool(const std::filesystem::path& file)>;

// Those of the folder that no program writes to any more and that are not too old, newest first.
std::vector<RecoveryOffer> RecoveryOffers(const std::filesystem::path& folder, std::time_t now,
                                          const StillWritten& stillWritten);
// Removes what is too old to be offered, damaged files among it, and what killed runs have left.
void RemoveExpiredRecoveries(const std::filesystem::path& folder, std::time_t now,
                             const StillWritten& stillWritten);

struct RecoveredBatch {
    SavedBatch Saved;
    RecoveryHead Head;
};
// The batch, whatever it lacks; or the message that says why there is none.
std::variant<RecoveredBatch, Message> ReadRecovery(const std::filesystem::path& file);

}  // namespace qfr
