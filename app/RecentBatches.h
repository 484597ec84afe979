// The batches that were opened or saved last, with which the program begins.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace qfr {

inline constexpr std::size_t kRecentBatches = 8;

// The list (full names, UTF-8, newest first) with the file at its front and nowhere else, and
// without what is too old for it. A name that is no full one counts from the current directory.
std::vector<std::string> WithRecentBatch(const std::vector<std::string>& recent,
                                         const std::string& file);

}  // namespace qfr
