// Papers as the toolkit's printing takes them.
#pragma once

#include <QPageLayout>
#include <QPageSize>

#include "platform/PrintJob.h"

namespace qfr {

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
