// The one way the program writes files: beside the target, flushed, then renamed over it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/HostSystem.h"
#include "platform/Messages.h"

namespace qfr {

// Of a temporary file or folder in the system's folder for such: a name of the kind that
// RemoveLeftovers knows, with the place for what makes it unique.
inline constexpr char kTemporaryName[] = ".qfr-XXXXXX.tmp";
inline constexpr int kTemporaryEnding = 4;  // characters behind that place

// Removes what killed runs have left in the folder: temporary files and folders of this program
// that are the user's own and older than a day.
void RemoveLeftovers(const std::filesystem::path& folder);

// Asks before a read-only file is replaced; true without a question for every other one.
bool AgreesToReplace(const std::filesystem::path& target, Messages& messages);

// What becomes of a read-only file; who replaces it has asked.
enum class ReadOnlyFile { kStays, kIsReplaced };

// Writes the content to a new file beside `target` and renames it over the target when it is whole
// and on disk; a device has nothing to be replaced and is written to. On failure the old file is
// untouched, the new one is removed, and the system's reason is returned; absent means success.
// The content is asked for at most once.
std::optional<std::string> ReplaceFile(const std::filesystem::path& target,
                                       const ContentPieces& content,
                                       ReadOnlyFile readOnly = ReadOnlyFile::kStays);
std::optional<std::string> ReplaceFile(const std::filesystem::path& target,
                                       std::string_view content,
                                       ReadOnlyFile readOnly = ReadOnlyFile::kStays);

struct NewFile {
    std::filesystem::path Target;
    std::string Content;
};
struct WriteFailure {
    std::filesystem::path Target;
    std::string Reason;
};

// The same for files that belong together: none takes its place before all of them are on disk.
std::optional<WriteFailure> ReplaceFiles(const std::vector<NewFile>& files,
                                         ReadOnlyFile readOnly = ReadOnlyFile::kStays);

}  // namespace qfr
