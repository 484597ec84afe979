// A report of the batch, or a file that a report names, opened for reading.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/LineReader.h"

namespace qfr {

struct OpenedFile {
    LineReader Lines;
    std::string Folder;  // where the files that this one names are looked for as well (UTF-8)
};

// Opens the file at `name`, or the one of that base name in `folder`. Absent when there is none or
// when it cannot be read.
std::optional<OpenedFile> OpenFileBeside(std::string_view name, std::string_view folder);

}  // namespace qfr
