#include "platform/qt/PagePainter.h"

#include <string_view>
#include <vector>

#include <QPen>

#include "platform/PaintOrder.h"
#include "platform/Text.h"

namespace qfr {

namespace {

QPainterPath PathOf(const Outline& outline) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const auto& [step, points] : outline.parts) {
        const auto point = [&at = points](std::size_t i) { return QPointF(at[i], -at[i + 1]); };
        switch (step) {
            case Outline::Step::kMove:
                path.moveTo(point(0));
                break;
            case Outline::Step::kLine:
                path.lineTo(point(0));
                break;
            case Outline::Step::kCurve:
                path.cubicTo(point(0), point(2), point(4));
                break;
            case Outline::Step::kClose:
                path.closeSubpath();
                break;
        }
    }
    return path;
}

}  // namespace

PagePainter::PagePainter(Typeface& typeface) : typeface_(typeface) {
    // Of a file with several faces, Qt takes the first.
    if (typeface.File().face == 0) {
        font_ = QRawFont(QString::fromStdString(typeface.File().path), typeface.UnitsPerEm(),
                         QFont::PreferNoHinting);
    }
}

const QRawFont& PagePainter::FontAt(int points) {
    const auto [known, isNew] = sizes_.try_emplace(points, font_);
    if (isNew && font_.isValid()) {
        known->second.setPixelSize(typeface_.PixelsPerUnit(points) * typeface_.UnitsPerEm());
    }
    return known->second;
}

const QPainterPath& PagePainter::ShapeOf(char32_t character) {
    const auto [known, isNew] = shapes_.try_emplace(character);
    if (isNew) {
        known->second = PathOf(typeface_.OutlineOf(typeface_.Of(character)));
    }
    return known->second;
}

void PagePainter::PaintText(QPainter& painter, const TextItem& text) {
    const QRawFont& font = FontAt(text.size);
    const double pixelsPerUnit = typeface_.PixelsPerUnit(text.size);
    const double pixelsPerEm = pixelsPerUnit * typeface_.UnitsPerEm();
    const QPointF start(text.x, text.y + typeface_.Ascent(text.size));
    QList<quint32> indexes;
    QList<QPointF> places;
    double units = 0;
    for (std::string_view rest = text.text; !rest.empty();) {
        const char32_t character = TakeCharacter(rest);
        const Typeface::Glyph& glyph = typeface_.Of(character);
        const QPointF place(units * pixelsPerUnit, 0);
        if (glyph.source == Typeface::Source::kOwn && font.isValid()) {
            indexes.append(glyph.index);
            places.append(place);
        } else {
            painter.save();
            painter.translate(start + place);
            painter.scale(pixelsPerEm, pixelsPerEm);
            painter.fillPath(ShapeOf(character), Qt::black);
            painter.restore();
        }
        units += glyph.advance;
    }
    QGlyphRun run;
    run.setRawFont(font);
    run.setGlyphIndexes(indexes);
    run.setPositions(places);
    painter.drawGlyphRun(start, run);
}

void PagePainter::Paint(QPainter& painter, const JobPage& page) {
    const std::vector<PaintedItem> painted = PaintOrderOf(page);
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    QPen pen(Qt::black, 1, Qt::SolidLine, Qt::RoundCap);
    painter.setPen(pen);
    for (std::size_t i = 0; i < painted.size(); ++i) {
        if (const auto* rule = std::get_if<RuleItem>(&page.items[i])) {
            if (pen.width() != rule->penWidth) {
                pen.setWidth(rule->penWidth);
                painter.setPen(pen);
            }
            painter.drawLine(rule->x1, rule->y1, rule->x2, rule->y2);
        } else if (!painted[i].hidden) {
            const auto& text = std::get<TextItem>(page.items[i]);
            if (painted[i].coversEarlier) {
                // On whole dots, as other programs do it: what it covers leaves no grey edge.
                painter.setRenderHint(QPainter::Antialiasing, false);
                painter.fillRect(QRect(text.x, text.y, text.width, text.height), Qt::white);
                painter.setRenderHint(QPainter::Antialiasing);
            }
            PaintText(painter, text);
        }
    }
    painter.restore();
}

}  // namespace qfr
