// A report of the batch, or a file that a report names, opened for reading.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/FileLookup.h"
#include "platform/LineReader.h"
#include "platform/Messages.h"

namespace qfr {

struct OpenedFile {
    LineReader Lines;
    std::string Folder;  // where the files that this one names are looked for as well (UTF-8)
};

// Opens the file at `name`, or the one of that base name in `folder`. Absent when there is none or
// when it cannot be read.
std::optional<OpenedFile> OpenFileBeside(std::string_view name, std::string_view folder);

// The same for many files at once: `finder` lists each folder only once.
std::optional<OpenedFile> OpenFileBeside(std::string_view name, std::string_view folder,
                                         FileFinder& finder);

// What is said of a sample's report that is gone.
Message ReportNotFound(std::string_view fileName);

}  // namespace qfr
