#include "forms/SampleRows.h"

#include <string>

namespace qfr {

void PrintRowNumber(Page& page, const SampleRows& rows, std::size_t number, double y) {
    page.TextOutInch(std::to_string(number), rows.numberX, y + rows.numberDown);
}

void EndRow(Page& page, const SampleRows& rows, double textHeight, double& y) {
    y += textHeight + rows.gap;
    page.DrawLineInch(rows.left, y, rows.right, y);
}

}  // namespace qfr
