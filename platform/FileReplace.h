// The one way the program writes files: beside the target, flushed, then renamed over it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace qfr {

// Writes the content to a new file beside `target` and renames it over the target when it is whole
// and on disk. On failure the old file is untouched, the new one is removed, and the system's
// reason is returned; absent means success.
std::optional<std::string> ReplaceFile(const std::filesystem::path& target,
                                       std::string_view content);

}  // namespace qfr
