// Measures texts in the forms' typeface: Times New Roman, or Liberation Serif of the same widths.
// Everything here needs a QGuiApplication.
#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

#include <QList>
#include <QPointF>
#include <QRawFont>

#include "platform/Printer.h"

namespace qfr {

// What a program says, before it stops, where FormTypeface is empty.
inline constexpr std::string_view kNoTypeface =
    "The typeface Liberation Serif (or Times New Roman) is not installed.";

// The family that the forms are set in; empty when neither of the two is installed. No other family
// takes their place: widths and row heights would differ from the agency's forms.
std::string FormTypeface();

// The glyphs of the typeface and their widths in its own units, so that every size has the exact
// widths. Glyphs are taken character by character: no kerning, no ligatures.
class Typeface {
  public:
    struct Glyph {
        quint32 index = 0;
        double advance = 0;  // units
    };

    Typeface();
    // Of one character; those that have no ink of their own (line breaks, tabs) are blanks.
    Glyph Of(char32_t character);
    double UnitsPerEm() const { return unitsPerEm_; }
    double Ascent() const { return raw_.ascent(); }    // units
    double Descent() const { return raw_.descent(); }  // units
    QRawFont AtPixelSize(double pixels) const;

  private:
    Glyph Look(char32_t character) const;

    QRawFont raw_;  // one pixel is one unit
    double unitsPerEm_ = 1;
    // Looked up once; nearly all that forms print is in the array. An advance below 0: not yet.
    std::array<Glyph, 0x180> common_;
    std::unordered_map<char32_t, Glyph> others_;
};

// The forms' typeface at one size.
class FormFont {
  public:
    FormFont(Typeface& typeface, int points);
    const QRawFont& Raw() const { return raw_; }
    // Pixels at kResolution, whole.
    int Ascent() const { return ascent_; }
    int Height() const { return height_; }
    // The sum of the advances, unrounded pixels at kResolution.
    double Width(std::string_view utf8) const;
    // Replaces the lists by the text's glyphs and their places on the baseline from x = 0, in
    // pixels at kResolution.
    void Lay(std::string_view utf8, QList<quint32>& glyphs, QList<QPointF>& positions) const;

  private:
    Typeface* typeface_;  // outlives this
    QRawFont raw_;
    double pixelsPerUnit_ = 0;
    int ascent_ = 0;
    int height_ = 0;
};

// Sizes are created on first use and kept.
class FormFonts {
  public:
    FormFonts() = default;
    FormFonts(const FormFonts&) = delete;
    FormFonts& operator=(const FormFonts&) = delete;

    const FormFont& At(int points);

  private:
    Typeface typeface_;
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
