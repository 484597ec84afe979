// The ruled rows that several forms list their compounds or samples in. All in inches.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>

#include "forms/Page.h"

namespace qfr {

// One compound a row: a name that may take several lines, the cells beside it, empty rows to the
// foot of the page.
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

// One sample a row, numbered from 1 through all pages.
struct SampleRows {
    std::size_t rowsPerPage;
    double left;                     // of the rule below each row
    double right;                    // of the rule
    double numberX;                  // of the row number, left of the table
    double numberDown;               // from the top of the row to its number
    double gap;                      // what a row is higher than its text
    std::size_t emptyRowsAhead = 0;  // what the numbers of empty rows are too high
};

// Prints the rows of page PageNo, the first at y, from `row` on (from 0), and moves `row` behind
// them. `printCells` prints the cells of the row whose top is at y; there are `count` such rows in
// all, and empty ones after them. The result is the bottom of the table.
double PrintSampleRows(Page& page, const SampleRows& table, std::size_t count, std::size_t& row,
                       double y, const std::function<void(std::size_t row, double y)>& printCells);

// Rules off a row without a number whose top is at y, and moves y below it.
void EndRow(Page& page, const SampleRows& table, double& y);

}  // namespace qfr
