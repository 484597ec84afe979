#include "platform/qt/QtTextMetrics.h"

#include <cmath>

#include <QFont>
#include <QString>

#include "platform/PrintJob.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr double kPointsPerInch = 72;

QRawFont Load(const char* family) {
    QFont font(QString::fromLatin1(family));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoFontMerging);
    QRawFont raw = QRawFont::fromFont(font);
    // Where a family is missing, font systems offer a likeness of it under another name.
    return raw.familyName() == QLatin1String(family) ? raw : QRawFont();
}

QRawFont LoadTypeface() {
    QRawFont raw = Load("Times New Roman");
    return raw.isValid() ? raw : Load("Liberation Serif");
}

bool IsBlank(char32_t character) {
    return IsControl(character) || character == 0x2028 || character == 0x2029;
}

}  // namespace

std::string FormTypeface() {
    return LoadTypeface().familyName().toStdString();
}

Typeface::Typeface() : raw_(LoadTypeface()) {
    common_.fill({.index = 0, .advance = -1});
    if (raw_.isValid()) {
        unitsPerEm_ = raw_.unitsPerEm();
        raw_.setPixelSize(unitsPerEm_);
    }
}

Typeface::Glyph Typeface::Of(char32_t character) {
    if (character < common_.size()) {
        Glyph& glyph = common_[character];
        if (glyph.advance < 0) {
            glyph = Look(character);
        }
        return glyph;
    }
    const auto known = others_.find(character);
    return known != others_.end() ? known->second
                                  : others_.emplace(character, Look(character)).first->second;
}

Typeface::Glyph Typeface::Look(char32_t character) const {
    const char32_t shown = IsBlank(character) ? U' ' : character;
    const QList<quint32> indexes = raw_.glyphIndexesForString(QString::fromUcs4(&shown, 1));
    if (indexes.isEmpty()) {
        return {};
    }
    const QList<quint32> index = indexes.mid(0, 1);
    const QList<QPointF> advances = raw_.advancesForGlyphIndexes(
        index, QRawFont::SeparateAdvances | QRawFont::UseDesignMetrics);
    return {.index = index.front(), .advance = advances.isEmpty() ? 0 : advances.front().x()};
}

QRawFont Typeface::AtPixelSize(double pixels) const {
    QRawFont sized = raw_;
    if (sized.isValid()) {
        sized.setPixelSize(pixels);
    }
    return sized;
}

FormFont::FormFont(Typeface& typeface, int points) : typeface_(&typeface) {
    const double pixels = points * kResolution / kPointsPerInch;
    raw_ = typeface.AtPixelSize(pixels);
    pixelsPerUnit_ = pixels / typeface.UnitsPerEm();
    ascent_ = static_cast<int>(std::lround(typeface.Ascent() * pixelsPerUnit_));
    height_ = ascent_ + static_cast<int>(std::lround(typeface.Descent() * pixelsPerUnit_));
}

double FormFont::Width(std::string_view utf8) const {
    double units = 0;
    while (!utf8.empty()) {
        units += typeface_->Of(TakeCharacter(utf8)).advance;
    }
    return units * pixelsPerUnit_;
}

void FormFont::Lay(std::string_view utf8, QList<quint32>& glyphs, QList<QPointF>& positions) const {
    glyphs.clear();
    positions.clear();
    double units = 0;
    while (!utf8.empty()) {
        const Typeface::Glyph glyph = typeface_->Of(TakeCharacter(utf8));
        glyphs.append(glyph.index);
        positions.append(QPointF(units * pixelsPerUnit_, 0));
        units += glyph.advance;
    }
}

const FormFont& FormFonts::At(int points) {
    return fonts_.try_emplace(points, typeface_, points).first->second;
}

int QtTextMetrics::TextWidth(std::string_view utf8, int points) {
    return static_cast<int>(std::lround(fonts_.At(points).Width(utf8)));
}

int QtTextMetrics::TextHeight(int points) {
    return fonts_.At(points).Height();
}

}  // namespace qfr
