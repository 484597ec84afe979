// How the rows of the TIC entry grid become a sample's tentatively identified compounds.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Batch.h"

namespace qfr {

// What OK makes of the grid's rows: every row in which nothing but the qualifier is empty, its
// cells trimmed and its compound name in lower case. Absent when there is no such row.
std::optional<TicListType> TicListFromRows(const std::vector<TicEntry>& rows);

// The cells of a text copied from a spreadsheet: rows at line breaks, cells at tabs. A line break
// at the end of the text starts no further row.
std::vector<std::vector<std::string>> PastedCells(std::string_view text);

}  // namespace qfr
