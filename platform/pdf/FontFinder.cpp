#include "platform/pdf/FontFinder.h"

#include <fontconfig/fontconfig.h>

namespace qfr {

namespace {

struct Release {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
};
using Pattern = std::unique_ptr<FcPattern, Release>;

const FcChar8* Chars(const std::string& text) {
    return reinterpret_cast<const FcChar8*>(text.c_str());
}

Pattern RegularFaceOf(const std::string& family) {
    Pattern pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, Chars(family));
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern.get(), FC_SLANT, FC_SLANT_ROMAN);
    FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

bool Is(const FcPattern* font, const char* property) {
    FcBool value = FcFalse;
    return FcPatternGetBool(font, property, 0, &value) == FcResultMatch && value == FcTrue;
}

std::optional<FontFile> FileOf(const FcPattern* font) {
    FcChar8* path = nullptr;
    int face = 0;
    if (FcPatternGetString(font, FC_FILE, 0, &path) != FcResultMatch) {
        return std::nullopt;
    }
    FcPatternGetInteger(font, FC_INDEX, 0, &face);
    // The upper half names an instance of a variable font; its default one does.
    return FontFile{reinterpret_cast<const char*>(path), static_cast<unsigned>(face) & 0xFFFFU};
}

}  // namespace

std::optional<FontFile> FindFamily(const std::string& family) {
    FcResult result{};
    const Pattern found(FcFontMatch(nullptr, RegularFaceOf(family).get(), &result));
    FcChar8* name = nullptr;
    for (int i = 0; found && FcPatternGetString(found.get(), FC_FAMILY, i, &name) == FcResultMatch;
         ++i) {
        if (FcStrCmpIgnoreCase(name, Chars(family)) == 0 && Is(found.get(), FC_OUTLINE)) {
            return FileOf(found.get());
        }
    }
    return std::nullopt;
}

struct OtherFonts::List {
    std::unique_ptr<FcFontSet, Release> fonts;
};

OtherFonts::OtherFonts(const std::string& family) : list_(std::make_unique<List>()) {
    FcResult result{};
    list_->fonts.reset(
        FcFontSort(nullptr, RegularFaceOf(family).get(), FcFalse, nullptr, &result));
}

OtherFonts::~OtherFonts() = default;

std::optional<FontFile> OtherFonts::With(char32_t character) const {
    for (int i = 0; list_->fonts && i < list_->fonts->nfont; ++i) {
        const FcPattern* const font = list_->fonts->fonts[i];
        FcCharSet* characters = nullptr;
        if (Is(font, FC_OUTLINE) && !Is(font, FC_COLOR) &&
            FcPatternGetCharSet(font, FC_CHARSET, 0, &characters) == FcResultMatch &&
            FcCharSetHasChar(characters, character)) {
            return FileOf(font);
        }
    }
    return std::nullopt;
}

}  // namespace qfr
