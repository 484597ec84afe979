#include "platform/pdf/DocumentFonts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <map>
#include <optional>
#include <span>

#include "platform/Text.h"
#include "platform/pdf/PdfNumbers.h"

namespace qfr {

namespace {

using Object = QPDFObjectHandle;

Object Name(const std::string& name) {
    return Object::newName(name);
}

Object Integer(std::size_t value) {
    return Object::newInteger(static_cast<long long>(value));
}

// Thousandths of an em, exact, so that a text is as long as it was measured.
Object Width(double units, double unitsPerEm) {
    std::string text;
    AppendNumber(text, units * 1000 / unitsPerEm);
    return Object::newReal(text);
}

Object Stream(QPDF& document, const std::string& content) {
    return document.newStream(content);
}

// Which character each code stands for, so that texts can be found and copied as they were typed.
// `digits` is the length of a code.
Object MapToUnicode(QPDF& document, const std::map<unsigned, char32_t>& characters, int digits) {
    std::string map =
        "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
        "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
        "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n1 begincodespacerange\n<";
    AppendHex(map, 0, digits);
    map += "> <";
    AppendHex(map, digits == 2 ? 0xFF : 0xFFFF, digits);
    map += ">\nendcodespacerange\n";
    constexpr std::size_t kPerBlock = 100;
    std::size_t left = characters.size();
    std::size_t inBlock = 0;
    for (const auto& [code, character] : characters) {
        if (inBlock == 0) {
            inBlock = std::min(left, kPerBlock);
            map += std::to_string(inBlock) + " beginbfchar\n";
        }
        map += '<';
        AppendHex(map, code, digits);
        map += "> <";
        // Not characters that a text may hold, in a file for the archive.
        const bool refused = character == 0xFEFF || character == 0xFFFE;
        const char32_t shown = refused ? 0xFFFD : character;
        if (shown >= 0x10000) {
            AppendHex(map, 0xD800 + ((shown - 0x10000) >> 10U), 4);
            AppendHex(map, 0xDC00 + ((shown - 0x10000) & 0x3FFU), 4);
        } else {
            AppendHex(map, shown, 4);
        }
        map += ">\n";
        --left;
        if (--inBlock == 0) {
            map += "endbfchar\n";
        }
    }
    map += "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
    return Stream(document, map);
}

// Six letters that tell subsets of the same typeface apart, always the same for the same ones.
std::string TagOf(const std::set<char32_t>& characters) {
    std::uint64_t digest = 14695981039346656037U;
    for (const char32_t character : characters) {
        digest = (digest ^ character) * 1099511628211U;
    }
    std::string tag;
    for (; tag.size() < 6; digest /= 26) {
        tag += static_cast<char>('A' + digest % 26);
    }
    return tag + '+';
}

Object BoxOf(const Typeface::Measures& measures) {
    Object box = Object::newArray();
    for (const int edge : measures.box) {
        box.appendItem(Object::newInteger(edge));
    }
    return box;
}

struct Glyph {
    std::string procedure;
    double width = 0;  // thousandths of an em
};

// Draws in thousandths of an em.
Glyph Draw(const Outline& outline, double width) {
    std::string path;
    std::array<double, 4> box = {0, 0, 0, 0};
    for (const Outline::Part& part : outline.parts) {
        static constexpr std::array<std::size_t, 4> kNumbers = {2, 2, 6, 0};
        static constexpr std::array<const char*, 4> kOperators = {"m ", "l ", "c ", "h "};
        const auto step = static_cast<std::size_t>(part.step);
        for (std::size_t i = 0; i < kNumbers[step]; ++i) {
            const double value = std::round(part.points[i] * 1000);
            box[i % 2] = std::min(box[i % 2], value);
            box[i % 2 + 2] = std::max(box[i % 2 + 2], value);
            AppendNumber(path, value);
            path += ' ';
        }
        path += kOperators[step];
    }
    std::string procedure;
    AppendNumber(procedure, width);
    procedure += " 0 ";
    for (const double edge : box) {
        AppendNumber(procedure, edge);
        procedure += ' ';
    }
    procedure += "d1 " + path + (path.empty() ? "" : "f");
    return {procedure, width};
}

}  // namespace

FontCode DocumentFonts::CodeOf(char32_t character) {
    character = Typeface::Shown(character);
    const Typeface::Glyph& glyph = typeface_.Of(character);
    if (glyph.source == Typeface::Source::kOwn) {
        // As codes, these two stand for the blank and the hyphen.
        const bool likeAnother = character == 0xA0 || character == 0xAD;
        const auto byte = InWindows1252(character);
        if (byte && !likeAnother) {
            latin_[*byte] = character;
            return {.font = kLatin, .code = *byte};
        }
    }
    const auto [known, isNew] = others_.try_emplace(character);
    if (isNew) {
        if (glyph.source == Typeface::Source::kOwn) {
            wide_.push_back(character);
            known->second = {kWide, static_cast<unsigned>(wide_.size()), true};
        } else {
            const std::size_t place = drawn_.size();
            drawn_.push_back(character);
            known->second = {static_cast<unsigned>(kFirstDrawn + place / kDrawnCodes),
                             static_cast<unsigned>(place % kDrawnCodes + 1), false};
        }
    }
    return known->second;
}

std::set<char32_t> DocumentFonts::Used() const {
    std::set<char32_t> used = {U' '};
    used.insert(wide_.begin(), wide_.end());
    std::ranges::copy_if(latin_, std::inserter(used, used.end()),
                         [](char32_t c) { return c != 0; });
    return used;
}

bool DocumentFonts::AddTo(QPDF& document, QPDFObjectHandle resources) const {
    Object fonts = Object::newDictionary();
    const std::set<char32_t> used = Used();
    const FontSubset subset = typeface_.Subset(used);
    if (subset.file.empty()) {
        return false;
    }
    const Typeface::Measures measures = typeface_.Measure();
    Object file = Stream(document, subset.file);
    file.getDict().replaceKey("/Length1", Integer(subset.file.size()));
    const Object box = BoxOf(measures);
    const auto describe = [&](int flags) {
        constexpr int kStemWidth = 80;
        return document.makeIndirectObject(
            Object::newDictionary({{"/Type", Name("/FontDescriptor")},
                                   {"/FontName", Name("/" + TagOf(used) + typeface_.Name())},
                                   {"/Flags", Object::newInteger(flags)},
                                   {"/FontBBox", box},
                                   {"/ItalicAngle", Object::newInteger(0)},
                                   {"/Ascent", Object::newInteger(measures.ascent)},
                                   {"/Descent", Object::newInteger(measures.descent)},
                                   {"/CapHeight", Object::newInteger(measures.capHeight)},
                                   {"/StemV", Object::newInteger(kStemWidth)},
                                   {"/FontFile2", file}}));
    };
    constexpr int kSerif = 2;
    constexpr int kSymbolic = 4;
    constexpr int kNonsymbolic = 32;
    if (std::ranges::any_of(latin_, [](char32_t c) { return c != 0; })) {
        fonts.replaceKey(NameOf(kLatin), LatinFont(document, describe(kSerif | kNonsymbolic)));
    }
    if (!wide_.empty()) {
        fonts.replaceKey(NameOf(kWide), WideFont(document, describe(kSerif | kSymbolic), subset));
    }
    for (std::size_t first = 0; first < drawn_.size(); first += kDrawnCodes) {
        fonts.replaceKey(NameOf(static_cast<unsigned>(kFirstDrawn + first / kDrawnCodes)),
                         DrawnFont(document, first));
    }
    resources.replaceKey("/Font", fonts);
    return true;
}

QPDFObjectHandle DocumentFonts::LatinFont(QPDF& document, QPDFObjectHandle descriptor) const {
    const auto isUsed = [](char32_t c) { return c != 0; };
    const auto first =
        static_cast<std::size_t>(std::ranges::find_if(latin_, isUsed) - latin_.begin());
    const auto last = static_cast<std::size_t>(
        kCodes - 1 -
        static_cast<std::size_t>(std::find_if(latin_.rbegin(), latin_.rend(), isUsed) -
                                 latin_.rbegin()));
    Object widths = Object::newArray();
    std::map<unsigned, char32_t> characters;
    for (std::size_t code = first; code <= last; ++code) {
        const char32_t character = latin_[code];
        widths.appendItem(character != 0
                              ? Width(typeface_.Of(character).advance, typeface_.UnitsPerEm())
                              : Object::newInteger(0));
        if (character != 0) {
            characters[static_cast<unsigned>(code)] = character;
        }
    }
    return document.makeIndirectObject(
        Object::newDictionary({{"/Type", Name("/Font")},
                               {"/Subtype", Name("/TrueType")},
                               {"/BaseFont", descriptor.getKey("/FontName")},
                               {"/Encoding", Name("/WinAnsiEncoding")},
                               {"/FirstChar", Integer(first)},
                               {"/LastChar", Integer(last)},
                               {"/Widths", widths},
                               {"/FontDescriptor", descriptor},
                               {"/ToUnicode", MapToUnicode(document, characters, 2)}}));
}

QPDFObjectHandle DocumentFonts::WideFont(QPDF& document, QPDFObjectHandle descriptor,
                                         const FontSubset& subset) const {
    Object widths = Object::newArray();
    std::string glyphs(2, '\0');  // of code 0
    std::map<unsigned, char32_t> characters;
    for (const char32_t character : wide_) {
        const Typeface::Glyph& glyph = typeface_.Of(character);
        widths.appendItem(Width(glyph.advance, typeface_.UnitsPerEm()));
        const std::uint32_t index = subset.glyphs.at(glyph.index);
        glyphs += static_cast<char>(index >> 8U);
        glyphs += static_cast<char>(index);
        characters[static_cast<unsigned>(characters.size() + 1)] = character;
    }
    const Object system = Object::newDictionary({{"/Registry", Object::newString("Adobe")},
                                                 {"/Ordering", Object::newString("Identity")},
                                                 {"/Supplement", Object::newInteger(0)}});
    const Object glyphFont = document.makeIndirectObject(Object::newDictionary(
        {{"/Type", Name("/Font")},
         {"/Subtype", Name("/CIDFontType2")},
         {"/BaseFont", descriptor.getKey("/FontName")},
         {"/CIDSystemInfo", system},
         {"/FontDescriptor", descriptor},
         {"/W", Object::newArray(std::vector<Object>{Object::newInteger(1), widths})},
         {"/CIDToGIDMap", Stream(document, glyphs)}}));
    return document.makeIndirectObject(Object::newDictionary(
        {{"/Type", Name("/Font")},
         {"/Subtype", Name("/Type0")},
         {"/BaseFont", descriptor.getKey("/FontName")},
         {"/Encoding", Name("/Identity-H")},
         {"/DescendantFonts", Object::newArray(std::vector<Object>{glyphFont})},
         {"/ToUnicode", MapToUnicode(document, characters, 4)}}));
}

QPDFObjectHandle DocumentFonts::DrawnFont(QPDF& document, std::size_t first) const {
    const std::size_t count = std::min(drawn_.size() - first, kDrawnCodes);
    // Programs that look for texts take the size of a drawn font from the width of its "m", where
    // the characters themselves do not tell. Code 0 is one that no page uses.
    constexpr double kUsualWidth = 600;
    Object names = Object::newArray(std::vector<Object>{Object::newInteger(0), Name("/m")});
    Object procedures =
        Object::newDictionary({{"/m", Stream(document, Draw({}, kUsualWidth).procedure)}});
    Object widths = Object::newArray(std::vector<Object>{Width(kUsualWidth, 1000)});
    std::map<unsigned, char32_t> characters;
    for (unsigned code = 1; code <= count; ++code) {
        const char32_t character = drawn_[first + code - 1];
        const Typeface::Glyph& known = typeface_.Of(character);
        const Glyph glyph =
            Draw(typeface_.OutlineOf(known), known.advance * 1000 / typeface_.UnitsPerEm());
        const std::string name = "/c" + std::to_string(code);
        names.appendItem(Name(name));
        procedures.replaceKey(name, Stream(document, glyph.procedure));
        widths.appendItem(Width(glyph.width, 1000));
        characters[code] = character;
    }
    const auto numbers = [](std::span<const char* const> texts) {
        Object array = Object::newArray();
        for (const char* const text : texts) {
            array.appendItem(Object::newReal(text));
        }
        return array;
    };
    return document.makeIndirectObject(Object::newDictionary(
        {{"/Type", Name("/Font")},
         {"/Subtype", Name("/Type3")},
         {"/FontBBox", numbers(std::array{"0", "0", "0", "0"})},  // not told
         {"/FontMatrix", numbers(std::array{"0.001", "0", "0", "0.001", "0", "0"})},
         {"/CharProcs", procedures},
         {"/Encoding",
          Object::newDictionary({{"/Type", Name("/Encoding")}, {"/Differences", names}})},
         {"/FirstChar", Object::newInteger(0)},
         {"/LastChar", Integer(count)},
         {"/Widths", widths},
         {"/Resources", Object::newDictionary()},
         {"/ToUnicode", MapToUnicode(document, characters, 2)}}));
}

}  // namespace qfr
