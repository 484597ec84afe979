#include "forms/TableRows.h"

#include <vector>

namespace qfr {

double PrintCompoundRows(Page& page, const CompoundRows& table, std::size_t count, std::size_t& row,
                         const std::function<std::string(std::size_t row, double y)>& printCells) {
    constexpr double kEmptyRowPitch = 0.206;
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
    page.DrawColumnLines(table.columnLines, y, table.columnsTop);
    return y;
}

double PrintSampleRows(Page& page, const SampleRows& table, std::size_t count, std::size_t& row,
                       double y, const std::function<void(std::size_t row, double y)>& printCells) {
    const std::size_t end = static_cast<std::size_t>(page.PageNo) * table.rowsPerPage;
    for (; row < end; ++row) {
        const std::size_t number = row + 1 + (row < count ? 0 : table.emptyRowsAhead);
        page.TextOutInch(std::to_string(number), table.numberX, y + table.numberDown);
        if (row < count) {
            printCells(row, y);
        }
        EndRow(page, table, y);
    }
    return y;
}

void EndRow(Page& page, const SampleRows& table, double& y) {
    y += page.TextHeightInch() + table.gap;
    page.DrawLineInch(table.left, y, table.right, y);
}

}  // namespace qfr
