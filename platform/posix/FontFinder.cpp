#include "platform/pdf/FontFinder.h"

#include <fontconfig/fontconfig.h>

namespace qfr {

namespace {

struct Release {
    void operator()(FcConfig* config) const { FcConfigDestroy(config); }
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
};
using Pattern = std::unique_ptr<FcPattern, Release>;

const FcChar8* Chars(const std::string& text) {
    return reinterpret_cast<const FcChar8*>(text.c_str());
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

struct FontFinder::Fonts {
    std::unique_ptr<FcConfig, Release> config{FcInitLoadConfigAndFonts()};
    std::unique_ptr<FcFontSet, Release> others;  // sorted; from the first character on

    Pattern RegularFaceOf(const std::string& family) const {
        Pattern pattern(FcPatternCreate());
        FcPatternAddString(pattern.get(), FC_FAMILY, Chars(family));
        FcPatternAddInteger(pattern.get(), FC_WEIGHT, FC_WEIGHT_REGULAR);
        FcPatternAddInteger(pattern.get(), FC_SLANT, FC_SLANT_ROMAN);
        FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
        FcConfigSubstitute(config.get(), pattern.get(), FcMatchPattern);
        FcDefaultSubstitute(pattern.get());
        return pattern;
    }
};

FontFinder::FontFinder() : fonts_(std::make_unique<Fonts>()) {}
FontFinder::~FontFinder() = default;

std::optional<FontFile> FontFinder::Family(const std::string& family) const {
    FcResult result{};
    const Pattern found(
        FcFontMatch(fonts_->config.get(), fonts_->RegularFaceOf(family).get(), &result));
    FcChar8* name = nullptr;
    for (int i = 0; found && FcPatternGetString(found.get(), FC_FAMILY, i, &name) == FcResultMatch;
         ++i) {
        if (FcStrCmpIgnoreCase(name, Chars(family)) == 0 && Is(found.get(), FC_OUTLINE)) {
            return FileOf(found.get());
        }
    }
    return std::nullopt;
}

std::optional<FontFile> FontFinder::With(char32_t character, const std::string& family) {
    auto& others = fonts_->others;
    if (!others) {
        FcResult result{};
        others.reset(FcFontSort(fonts_->config.get(), fonts_->RegularFaceOf(family).get(), FcFalse,
                                nullptr, &result));
    }
    for (int i = 0; others && i < others->nfont; ++i) {
        const FcPattern* const font = others->fonts[i];
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
