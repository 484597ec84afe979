// Measures texts in the forms' typeface: Times New Roman, or Liberation Serif of the same widths.
#pragma once

#include <QHash>
#include <QRawFont>
#include <map>
#include <string_view>

#include "platform/TextMetrics.h"

namespace qfr {

// The forms' typeface at one size. Glyphs are taken character by character: no kerning, no ligatures.
class FormFont {
  public:
    explicit FormFont(int points);
    const QRawFont& Raw() const { return raw_; }
    // Pixels at kResolution.
    int Ascent() const { return ascent_; }
    int Height() const { return height_; }
    // Fills the glyphs of the text and their advances (unrounded pixels at kResolution); returns the
    // sum of the advances.
    double Lay(std::string_view utf8, QList<quint32>& glyphs, QList<QPointF>& positions) const;

  private:
    QRawFont raw_;
    int ascent_ = 0;
    int height_ = 0;
    // Glyph and advance of the Latin-1 characters, which is nearly all that forms print.
};

// Created on first use and kept: fonts are costly to load. Needs a QGuiApplication.
class FormFonts {
  public:
    const FormFont& At(int points);

  private:
    std::map<int, FormFont> fonts_;
};

class QtTextMetrics : public TextMetrics {
  public:
    explicit QtTextMetrics(FormFonts& fonts) : fonts_(fonts) {}
    int TextWidth(std::string_view utf8, int points) override;
    int TextHeight(int points) override;

  private:
    FormFonts& fonts_;
};

}  // namespace qfr
