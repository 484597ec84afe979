#include "platform/qt/PagePainter.h"

#include <algorithm>
#include <vector>

#include <QGlyphRun>
#include <QPen>

namespace qfr {

namespace {

// Pixels; right and bottom lie outside.
struct Box {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    bool Empty() const { return left >= right || top >= bottom; }
    bool Overlaps(const Box& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    bool Covers(const Box& other) const {
        return left <= other.left && other.right <= right && top <= other.top &&
               other.bottom <= bottom;
    }
};

struct Placed {
    Box cell;  // that a text paints white
    Box ink;   // that the item may blacken, a little generous
    bool hidden = false;
    bool overEarlier = false;
};

Placed Place(const PageItem& item) {
    if (const auto* text = std::get_if<TextItem>(&item)) {
        const double left = text->x;
        const double top = text->y;
        const double right = left + text->width;
        const double bottom = top + text->height;
        // Letters like "f" and "j" reach out of their cell by less than this.
        const double overhang = text->height / 8.0;
        return {.cell = {left, top, right, bottom},
                .ink = {left - overhang, top, right + overhang, bottom}};
    }
    const auto& rule = std::get<RuleItem>(item);
    const double half = rule.penWidth / 2.0 + 1;
    return {.cell = {},
            .ink = {std::min(rule.x1, rule.x2) - half, std::min(rule.y1, rule.y2) - half,
                    std::max(rule.x1, rule.x2) + half, std::max(rule.y1, rule.y2) + half}};
}

// Nearly no text of a form lies over anything, and each white cell costs a PDF file three lines.
std::vector<Placed> PlaceAll(const std::vector<PageItem>& items) {
    std::vector<Placed> placed;
    placed.reserve(items.size());
    for (const PageItem& item : items) {
        Placed next = Place(item);
        if (!next.cell.Empty()) {
            for (Placed& earlier : placed) {
                if (!earlier.hidden && next.cell.Overlaps(earlier.ink)) {
                    next.overEarlier = true;
                    earlier.hidden = !earlier.cell.Empty() && next.cell.Covers(earlier.cell);
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
            painter.fillRect(QRect(text.x, text.y, text.width, text.height), Qt::white);
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
