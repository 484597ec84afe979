// Cells as spreadsheets put them on the clipboard: a line a row, tabs between the cells. A cell
// that holds a tab, a line break or a quotation mark stands in quotation marks, its own doubled.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qfr {

using CellRows = std::vector<std::vector<std::string>>;

// Rows may be of different length. A line break at the end starts no further row, and a text
// without any has none. Quotation marks that enclose no whole cell stand for themselves.
CellRows ParseTabSeparated(std::string_view text);

std::string FormatTabSeparated(const CellRows& rows);

}  // namespace qfr
