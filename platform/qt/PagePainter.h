// How a recorded page is replayed: on a printer, into a PDF file, in the preview.
#pragma once

#include <QPageLayout>
#include <QPageSize>
#include <QPainter>

#include "platform/PrintJob.h"
#include "platform/qt/QtTextMetrics.h"

namespace qfr {

// Paints the page on a painter whose logical coordinates are pixels at kResolution with the paper's
// top-left corner at the origin. Texts that a later text's cell covers whole are left out, so that
// they cannot be found in the text of a PDF file either.
void PaintPage(QPainter& painter, const JobPage& page, FormFonts& fonts);

inline QPageSize PageSizeOf(const Paper& paper) {
    // A standard size where the measures are one's, so that printers know the tray by its name.
    return QPageSize(QSizeF(paper.width, paper.height), QPageSize::Inch,
                     QString::fromStdString(paper.name), QPageSize::FuzzyMatch);
}

// Full page, without margins.
inline QPageLayout LayoutOf(const Paper& paper, PageOrientation orientation) {
    return QPageLayout(
        PageSizeOf(paper),
        orientation == PageOrientation::kLandscape ? QPageLayout::Landscape : QPageLayout::Portrait,
        QMarginsF());
}

}  // namespace qfr
