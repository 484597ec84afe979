// The one way the program writes files: beside the target, flushed, then renamed over it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Messages.h"

namespace qfr {

// Asks before a read-only file is replaced; true without a question for every other one.
bool AgreesToReplace(const std::filesystem::path& target, Messages& messages);

// What becomes of a read-only file; who replaces it has asked.
enum class ReadOnlyFile { kStays, kIsReplaced };

// Writes the content to a new file beside `target` and renames it over the target when it is whole
// and on disk; a device has nothing to be replaced and is written to. On failure the old file is
// untouched, the new one is removed, and the system's reason is returned; absent means success.
std::optional<std::string> ReplaceFile(const std::filesystem::path& target,
                                       std::string_view content,
                                       ReadOnlyFile readOnly = ReadOnlyFile::kStays);

}  // namespace qfr
