// How a recorded page is painted with Qt, in the preview.
#pragma once

#include <map>
#include <unordered_map>

#include <QGlyphRun>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>

#include "platform/PrintJob.h"
#include "platform/pdf/Typeface.h"

namespace qfr {

class PagePainter {
  public:
    // The typeface outlives the painter.
    explicit PagePainter(Typeface& typeface);
    PagePainter(const PagePainter&) = delete;
    PagePainter& operator=(const PagePainter&) = delete;

    // Paints the page on a painter whose logical coordinates are pixels at kResolution with the
    // paper's top-left corner at the origin.
    void Paint(QPainter& painter, const JobPage& page);

  private:
    void PaintText(QPainter& painter, const TextItem& text);
    // The typeface at a size; invalid where Qt cannot take it from its file.
    const QRawFont& FontAt(int points);
    const QPainterPath& ShapeOf(char32_t character);

    Typeface& typeface_;
    QRawFont font_;
    std::map<int, QRawFont> sizes_;
    std::unordered_map<char32_t, QPainterPath> shapes_;  // in ems, downwards from the baseline
};

}  // namespace qfr
