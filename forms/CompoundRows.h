// The ruled rows of the forms that list one compound a row: a name that may take several lines, the
// cells beside it, empty rows to the foot of the page. All in inches.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>

#include "forms/Page.h"

namespace qfr {

struct CompoundRows {
    double rowsTop;
    double rowsEnd;  // no row starts at or below this level
    int rowsPerPage;
    double left;   // of the rules
    double right;  // of the rules
    double nameX;
    double nameDown;  // from the top of a row to its name
    double nameWidth;
    double columnsTop;  // where the column lines end
    std::span<const double> columnLines;
};

// Prints one page of rows from `row` on, of `count` in all, and moves `row` behind the last one
// printed. `printCells` prints the cells of the row whose top is at y and returns its name. The
// result is the bottom of the table.
double PrintCompoundRows(Page& page, const CompoundRows& table, std::size_t count, std::size_t& row,
                         const std::function<std::string(std::size_t row, double y)>& printCells);

}  // namespace qfr
