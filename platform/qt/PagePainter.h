// The one routine that replays a recorded page: on a printer, into a PDF file, in the preview.
#pragma once

#include <QPainter>

#include "platform/PrintJob.h"
#include "platform/qt/QtTextMetrics.h"

namespace qfr {

// Paints the page on a painter whose logical coordinates are pixels at kResolution with the paper's
// top-left corner at the origin. Texts that a later text's cell covers whole are left out, so that
// they cannot be found in the text of a PDF file either.
void PaintPage(QPainter& painter, const JobPage& page, FormFonts& fonts);

}  // namespace qfr
