#include "bench/QtPdf.h"

#include <string_view>
#include <variant>

#include <QBuffer>
#include <QFont>
#include <QGlyphRun>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPen>

#include "platform/PaintOrder.h"
#include "platform/Text.h"

namespace qfr {

namespace {

QPageLayout LayoutOf(const JobPage& page, const Paper& paper) {
    return QPageLayout(QPageSize(QSizeF(paper.width, paper.height), QPageSize::Inch),
                       page.orientation == PageOrientation::kLandscape ? QPageLayout::Landscape
                                                                       : QPageLayout::Portrait,
                       QMarginsF());
}

}  // namespace

QtPdf::QtPdf(Typeface& typeface) : typeface_(typeface) {
    QFont font(QStringLiteral("Liberation Serif"));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoFontMerging);
    font_ = QRawFont::fromFont(font);
}

const QRawFont& QtPdf::FontAt(int points) {
    const auto [known, isNew] = sizes_.try_emplace(points, font_);
    if (isNew) {
        known->second.setPixelSize(points * kResolution / 72.0);
    }
    return known->second;
}

QByteArray QtPdf::Document(const std::vector<PrintJob>& jobs) {
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kResolution);
    QPainter painter;
    QGlyphRun run;
    QList<quint32> glyphs;
    QList<QPointF> places;
    const auto paintText = [&](const TextItem& text) {
        glyphs.clear();
        places.clear();
        const double pixelsPerUnit = typeface_.PixelsPerUnit(text.size);
        double units = 0;
        for (std::string_view rest = text.text; !rest.empty();) {
            const Typeface::Glyph& glyph = typeface_.Of(TakeCharacter(rest));
            glyphs.append(glyph.index);
            places.append(QPointF(units * pixelsPerUnit, 0));
            units += glyph.advance;
        }
        run.setRawFont(FontAt(text.size));
        run.setGlyphIndexes(glyphs);
        run.setPositions(places);
        painter.drawGlyphRun(QPointF(text.x, text.y + typeface_.Ascent(text.size)), run);
    };
    for (const PrintJob& job : jobs) {
        for (const JobPage& page : job.pages) {
            writer.setPageLayout(LayoutOf(page, job.paper));
            if (painter.isActive() ? !writer.newPage() : !painter.begin(&writer)) {
                return {};
            }
            painter.save();
            painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
            QPen pen(Qt::black, 1, Qt::SolidLine, Qt::RoundCap);
            painter.setPen(pen);
            const std::vector<PaintedItem> painted = PaintOrderOf(page);
            for (std::size_t i = 0; i < painted.size(); ++i) {
                if (const auto* const rule = std::get_if<RuleItem>(&page.items[i])) {
                    if (pen.width() != rule->penWidth) {
                        pen.setWidth(rule->penWidth);
                        painter.setPen(pen);
                    }
                    painter.drawLine(rule->x1, rule->y1, rule->x2, rule->y2);
                } else if (!painted[i].hidden) {
                    const auto& text = std::get<TextItem>(page.items[i]);
                    if (painted[i].coversEarlier) {
                        painter.fillRect(QRect(text.x, text.y, text.width, text.height), Qt::white);
                    }
                    paintText(text);
                }
            }
            painter.restore();
        }
    }
    return painter.isActive() && painter.end() ? content : QByteArray();
}

}  // namespace qfr
