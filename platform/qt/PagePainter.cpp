#include "platform/qt/PagePainter.h"

#include <vector>

#include <QGlyphRun>
#include <QPen>
#include <QRectF>

namespace qfr {

namespace {

struct Placed {
    QRectF cell;  // that a text paints white
    QRectF ink;   // that the item may blacken, a little generous
    bool hidden = false;
    bool overEarlier = false;
};

QRectF CellOf(const TextItem& text) {
    return {static_cast<qreal>(text.x), static_cast<qreal>(text.y), static_cast<qreal>(text.width),
            static_cast<qreal>(text.height)};
}

Placed Place(const PageItem& item) {
    if (const auto* text = std::get_if<TextItem>(&item)) {
        const QRectF cell = CellOf(*text);
        // Italics and "f", "j" reach out of their cell by less than this.
        const qreal overhang = cell.height() / 8;
        return {.cell = cell, .ink = cell.adjusted(-overhang, 0, overhang, 0)};
    }
    const auto& rule = std::get<RuleItem>(item);
    const qreal half = rule.penWidth / 2.0 + 1;
    const QRectF line = QRectF(QPointF(rule.x1, rule.y1), QPointF(rule.x2, rule.y2)).normalized();
    return {.cell = {}, .ink = line.adjusted(-half, -half, half, half)};
}

// Nearly no text of a form lies over anything, and each white cell costs a PDF file three lines.
std::vector<Placed> PlaceAll(const std::vector<PageItem>& items) {
    std::vector<Placed> placed;
    placed.reserve(items.size());
    for (const PageItem& item : items) {
        Placed next = Place(item);
        if (!next.cell.isEmpty()) {
            for (Placed& earlier : placed) {
                if (!earlier.hidden && next.cell.intersects(earlier.ink)) {
                    next.overEarlier = true;
                    earlier.hidden = !earlier.cell.isEmpty() && next.cell.contains(earlier.cell);
                }
            }
        }
        placed.push_back(next);
    }
    return placed;
}

}  // namespace

void PaintPage(QPainter& painter, const JobPage& page, FormFonts& fonts) {
    const std::vector<Placed> placed = PlaceAll(page.items);
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    QPen pen(Qt::black, 1, Qt::SolidLine, Qt::RoundCap);
    painter.setPen(pen);
    QGlyphRun run;
    QList<quint32> glyphs;
    QList<QPointF> positions;
    for (std::size_t i = 0; i < placed.size(); ++i) {
        if (const auto* rule = std::get_if<RuleItem>(&page.items[i])) {
            if (pen.width() != rule->penWidth) {
                pen.setWidth(rule->penWidth);
                painter.setPen(pen);
            }
            painter.drawLine(rule->x1, rule->y1, rule->x2, rule->y2);
            continue;
        }
        if (placed[i].hidden) {
            continue;
        }
        const auto& text = std::get<TextItem>(page.items[i]);
        if (placed[i].overEarlier) {
            painter.fillRect(placed[i].cell, Qt::white);
        }
        const FormFont& font = fonts.At(text.size);
        font.Lay(text.text, glyphs, positions);
        run.setRawFont(font.Raw());
        run.setGlyphIndexes(glyphs);
        run.setPositions(positions);
        painter.drawGlyphRun(QPointF(text.x, text.y + font.Ascent()), run);
    }
    painter.restore();
}

}  // namespace qfr
