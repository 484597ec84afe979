// Every file named by the batch or by a report is opened through this lookup: names are kept in
// lower case and with Windows separators, the files on disk are not.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace qfr {

// UTF-8 text and paths, both ways.
std::filesystem::path PathOf(std::string_view utf8);
std::string TextOf(const std::filesystem::path& path);

// The file (or directory) of that name: as it stands, else with "\" taken as a separator and each
// component matched without regard to case. Absent when there is none.
std::optional<std::filesystem::path> FindFile(std::string_view name);

// As FindFile; when there is none, the file of the same base name in `folder` (UTF-8; empty: no
// folder). `folder` is that of the file which names this one.
std::optional<std::filesystem::path> FindFileBeside(std::string_view name, std::string_view folder);

}  // namespace qfr
