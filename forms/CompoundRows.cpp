#include "forms/CompoundRows.h"

#include <vector>

namespace qfr {

namespace {

constexpr double kEmptyRowPitch = 0.206;

}  // namespace

double PrintCompoundRows(Page& page, const CompoundRows& table, std::size_t count, std::size_t& row,
                         const std::function<std::string(std::size_t row, double y)>& printCells) {
    double y = table.rowsTop;
    int rowsOnPage = 0;
    const auto hasRoom = [&] { return rowsOnPage < table.rowsPerPage && y < table.rowsEnd; };
    for (; row < count && hasRoom(); ++row, ++rowsOnPage) {
        std::vector<std::string> lines;
        page.SplitAtHyphens(printCells(row, y), lines, table.nameWidth);
        for (const std::string& line : lines) {
            page.TextOutInch(line, table.nameX, y + table.nameDown);
            y += page.TextHeightInch() + 0.025;
        }
        y += 0.025;
        page.DrawLineInch(table.left, y, table.right, y);
    }
    for (; hasRoom(); ++rowsOnPage) {
        y += kEmptyRowPitch;
        page.DrawLineInch(table.left, y, table.right, y);
    }
    for (const double x : table.columnLines) {
        page.DrawLineInch(x, y, x, table.columnsTop);
    }
    return y;
}

}  // namespace qfr
