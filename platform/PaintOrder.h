// How the items of a page lie over each other: a text paints its white cell first.
#pragma once

#include <vector>

#include "platform/PrintJob.h"

namespace qfr {

struct PaintedItem {
    // A text that a later text's cell covers whole. It is left out, so that it cannot be found in
    // the text of a PDF file either.
    bool hidden = false;
    // A text whose cell takes something away from what was painted before. Nearly no text of a form
    // lies over anything, and the other cells need not be painted.
    bool coversEarlier = false;
};

// One for each item of the page, in order.
std::vector<PaintedItem> PaintOrderOf(const JobPage& page);

}  // namespace qfr
