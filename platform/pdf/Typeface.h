// The forms' typeface: Times New Roman, or Liberation Serif of the same widths. Texts are set
// character by character, without kerning, ligatures and hinting.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/Printer.h"
#include "platform/pdf/FontFinder.h"

namespace qfr {

// The shape of a glyph, in ems to the right of its origin and up from the baseline; filled by the
// nonzero winding rule.
struct Outline {
    enum class Step { kMove, kLine, kCurve, kClose };
    struct Part {
        Step step = Step::kClose;
        // End of a line, or both control points and the end of a curve; x before y.
        std::array<double, 6> points{};
    };
    std::vector<Part> parts;
};

// A part of the typeface's file: what a document needs to show some of its glyphs.
struct FontSubset {
    std::string file;  // TrueType, with a map of the characters
    // Glyphs in it, by their index in the typeface.
    std::unordered_map<std::uint32_t, std::uint32_t> glyphs;
};

class Typeface : public TextMetrics {
  public:
    // Whose glyph a character has: the typeface's own, another font's, or, where none has the
    // character, the typeface's box.
    enum class Source { kOwn, kOther, kBox };
    struct Glyph {
        Source source = Source::kBox;
        std::uint32_t index = 0;  // in its font
        unsigned other = 0;       // which of the other fonts
        double advance = -1;      // units of the typeface; below 0: not looked up yet
    };

    // Null when the typeface is not installed or its file cannot be used.
    static std::unique_ptr<Typeface> Load();
    // The same of a certain file. It can be used when it draws every printable character of ASCII.
    static std::unique_ptr<Typeface> Load(const FontFile& file);
    ~Typeface() override;
    Typeface(const Typeface&) = delete;
    Typeface& operator=(const Typeface&) = delete;

    int TextWidth(std::string_view utf8, int points) override;
    int TextHeight(int points) override;
    // From the top of a text's cell to its baseline, in whole pixels at kResolution.
    int Ascent(int points) const;
    // Pixels at kResolution.
    double PixelsPerUnit(int points) const;

    const Glyph& Of(char32_t character);
    // A blank for those that have no ink of their own (line breaks, tabs), whose glyph is a
    // blank's.
    static char32_t Shown(char32_t character);
    Outline OutlineOf(const Glyph& glyph) const;

    const FontFile& File() const { return file_; }
    // As PostScript has it.
    const std::string& Name() const { return name_; }
    double UnitsPerEm() const { return unitsPerEm_; }
    // What a document says of the font, in thousandths of an em.
    struct Measures {
        int ascent = 0;
        int descent = 0;  // below 0
        int capHeight = 0;
        std::array<int, 4> box{};  // left, bottom, right and top of what any glyph may cover
    };
    Measures Measure() const;
    // Empty when it cannot be made.
    FontSubset Subset(const std::set<char32_t>& characters) const;

    std::vector<char32_t> TakeBoxes() override { return std::exchange(boxes_, {}); }

  private:
    struct Fonts;
    Typeface(FontFile file, std::unique_ptr<Fonts> fonts);
    static std::unique_ptr<Typeface> Load(const FontFile& file,
                                          std::unique_ptr<FontFinder>& finder);
    bool IsUsable() const;
    Glyph Look(char32_t character);

    FontFile file_;
    std::unique_ptr<Fonts> fonts_;
    std::string name_;
    double unitsPerEm_ = 1;
    double ascent_ = 0;   // units
    double descent_ = 0;  // units, below the baseline
    // Looked up once; nearly all that forms print is in the array.
    std::array<Glyph, 0x180> common_;
    std::unordered_map<char32_t, Glyph> uncommon_;
    std::vector<char32_t> boxes_;  // measured, and not taken yet
};

}  // namespace qfr
