// The files among names of files and folders.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/Messages.h"

namespace qfr {

inline constexpr std::size_t kMaxSortedFiles = 10'000;

struct FoundFile {
    std::string Path;
    bool Named = false;  // by the user himself, and not by way of its folder
};

// The files among these full paths (UTF-8), and those of the folders there: of a folder its own,
// none of its subfolders and none whose name begins with ".". By name and each file once; the first
// kMaxSortedFiles. What cannot be listed, and that there are more, is told.
std::vector<FoundFile> FindFiles(const std::vector<std::string>& names,
                                 std::vector<ToldFile>& told);

}  // namespace qfr
