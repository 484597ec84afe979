// The ruled, numbered rows of the forms that list one sample a row. All in inches.
#pragma once

#include <cstddef>

#include "forms/Page.h"

namespace qfr {

struct SampleRows {
    double left;        // of the rule below each row
    double right;       // of the rule
    double numberX;     // of the row number, left of the table
    double numberDown;  // from the top of the row to its number
    double gap;         // what a row is higher than its text
};

void PrintRowNumber(Page& page, const SampleRows& rows, std::size_t number, double y);

// Rules off the row whose top is at y, `textHeight` inches of text high, and moves y below it.
void EndRow(Page& page, const SampleRows& rows, double textHeight, double& y);

}  // namespace qfr
