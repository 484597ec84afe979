// The fonts of one PDF document: each character that its pages show gets a font and a code in it as
// it is first used, and the fonts hold what the pages have used.
#pragma once

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/pdf/Qpdf.h"
#include "platform/pdf/Typeface.h"

namespace qfr {

// How a page names a character.
struct FontCode {
    unsigned font = 0;  // of the document, from 0
    unsigned code = 0;
    bool wide = false;  // a code of two bytes
};

class DocumentFonts {
  public:
    explicit DocumentFonts(Typeface& typeface) : typeface_(typeface) {}

    FontCode CodeOf(char32_t character);
    // In the resources of a page, as "/F0".
    static std::string NameOf(unsigned font) { return "/F" + std::to_string(font); }
    // Puts the fonts into the document and the resources of its pages, when all pages are there.
    // False when the typeface's file does not yield them.
    bool AddTo(QPDF& document, QPDFObjectHandle resources) const;

  private:
    // Nearly all that a form prints is Windows-1252, whose codes are its bytes. The typeface's
    // other characters have codes of two bytes, in the order of their use; those of other fonts,
    // and boxes, become drawn characters, as many to a font as there are codes of one byte but 0.
    static constexpr unsigned kLatin = 0;
    static constexpr unsigned kWide = 1;
    static constexpr unsigned kFirstDrawn = 2;
    static constexpr std::size_t kCodes = 256;
    static constexpr std::size_t kDrawnCodes = kCodes - 1;

    QPDFObjectHandle LatinFont(QPDF& document, QPDFObjectHandle descriptor) const;
    QPDFObjectHandle WideFont(QPDF& document, QPDFObjectHandle descriptor,
                              const FontSubset& subset) const;
    QPDFObjectHandle DrawnFont(QPDF& document, std::size_t first) const;
    std::set<char32_t> Used() const;

    Typeface& typeface_;
    std::array<char32_t, kCodes> latin_{};  // by code; 0: not used
    std::vector<char32_t> wide_;            // by code less 1: code 0 would be no character
    std::vector<char32_t> drawn_;           // by code less 1, all such fonts together
    std::unordered_map<char32_t, FontCode> others_;
};

}  // namespace qfr
