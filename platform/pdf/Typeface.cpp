#include "platform/pdf/Typeface.h"

#include <algorithm>
#include <cmath>
#include <hb-ot.h>
#include <hb-subset.h>
#include <utility>

#include "platform/Text.h"

namespace qfr {

namespace {

constexpr char kFreeFamily[] = "Liberation Serif";

struct Release {
    void operator()(hb_blob_t* blob) const { hb_blob_destroy(blob); }
    void operator()(hb_face_t* face) const { hb_face_destroy(face); }
    void operator()(hb_font_t* font) const { hb_font_destroy(font); }
    void operator()(hb_draw_funcs_t* functions) const { hb_draw_funcs_destroy(functions); }
    void operator()(hb_subset_input_t* input) const { hb_subset_input_destroy(input); }
    void operator()(hb_subset_plan_t* plan) const { hb_subset_plan_destroy(plan); }
};
template <typename Type>
using Owned = std::unique_ptr<Type, Release>;

// Whether the tables of the face lie within the file: of one that was cut short, HarfBuzz takes
// what is left, and the other characters would print as nothing.
bool IsWhole(hb_blob_t* blob, unsigned face) {
    unsigned size = 0;
    const char* const bytes = hb_blob_get_data(blob, &size);
    const auto number = [&](std::size_t at, std::size_t length) {
        std::size_t value = 0;
        for (std::size_t i = at; i < at + length; ++i) {
            value = value << 8U | (i < size ? static_cast<unsigned char>(bytes[i]) : 0U);
        }
        return value;
    };
    const bool isCollection = std::string_view(bytes, size).starts_with("ttcf");
    const std::size_t directory = isCollection ? number(12 + std::size_t{4} * face, 4) : 0;
    const std::size_t tables = number(directory + 4, 2);
    for (std::size_t entry = directory + 12; entry < directory + 12 + 16 * tables; entry += 16) {
        if (number(entry + 8, 4) + number(entry + 12, 4) > size) {
            return false;
        }
    }
    return tables > 0;
}

// A font at a scale of one unit to the unit.
struct Font {
    Owned<hb_font_t> font;  // null when the file cannot be used

    explicit Font(const FontFile& file) {
        const Owned<hb_blob_t> blob(hb_blob_create_from_file_or_fail(file.path.c_str()));
        const bool isWhole = blob && IsWhole(blob.get(), file.face);
        const Owned<hb_face_t> face(isWhole ? hb_face_create(blob.get(), file.face) : nullptr);
        if (face && hb_face_get_glyph_count(face.get()) > 0) {
            font.reset(hb_font_create(face.get()));
        }
    }
    hb_face_t* Face() const { return hb_font_get_face(font.get()); }
    double UnitsPerEm() const { return hb_face_get_upem(Face()); }
    std::optional<hb_codepoint_t> GlyphOf(char32_t character) const {
        hb_codepoint_t glyph = 0;
        const bool found = font && hb_font_get_nominal_glyph(font.get(), character, &glyph) != 0;
        return found ? std::optional(glyph) : std::nullopt;
    }
    double AdvanceOf(hb_codepoint_t glyph) const {
        return hb_font_get_glyph_h_advance(font.get(), glyph);
    }
};

std::string PostScriptNameOf(const Font& font) {
    std::array<char, 64> name{};
    unsigned size = name.size();
    hb_ot_name_get_utf8(font.Face(), HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &size,
                        name.data());
    std::string text(name.data());
    // What a PDF name cannot hold as it stands.
    std::erase_if(text, [](char c) {
        return c <= ' ' || c > '~' ||
               std::string_view("()<>[]{}/%#").find(c) != std::string_view::npos;
    });
    return text;
}

// Takes what HarfBuzz draws, in units.
struct Pen {
    Outline outline;
    double unitsPerEm = 1;

    void Add(Outline::Step step, std::array<double, 6> points = {}) {
        for (double& value : points) {
            value /= unitsPerEm;
        }
        outline.parts.push_back({step, points});
    }
};

Pen& PenAt(void* data) {
    return *static_cast<Pen*>(data);
}

// HarfBuzz raises the degree of curves that have a single control point.
Owned<hb_draw_funcs_t> DrawWithPen() {
    Owned<hb_draw_funcs_t> draw(hb_draw_funcs_create());
    hb_draw_funcs_set_move_to_func(
        draw.get(),
        [](hb_draw_funcs_t*, void* pen, hb_draw_state_t*, float x, float y, void*) {
            PenAt(pen).Add(Outline::Step::kMove, {x, y});
        },
        nullptr, nullptr);
    hb_draw_funcs_set_line_to_func(
        draw.get(),
        [](hb_draw_funcs_t*, void* pen, hb_draw_state_t*, float x, float y, void*) {
            PenAt(pen).Add(Outline::Step::kLine, {x, y});
        },
        nullptr, nullptr);
    hb_draw_funcs_set_cubic_to_func(
        draw.get(),
        [](hb_draw_funcs_t*, void* pen, hb_draw_state_t*, float x1, float y1, float x2, float y2,
           float x, float y, void*) {
            PenAt(pen).Add(Outline::Step::kCurve, {x1, y1, x2, y2, x, y});
        },
        nullptr, nullptr);
    hb_draw_funcs_set_close_path_func(
        draw.get(),
        [](hb_draw_funcs_t*, void* pen, hb_draw_state_t*, void*) {
            PenAt(pen).Add(Outline::Step::kClose);
        },
        nullptr, nullptr);
    return draw;
}

}  // namespace

struct Typeface::Fonts {
    Font own;
    std::unique_ptr<FontFinder> finder;
    std::vector<std::pair<FontFile, Font>> others;
    Owned<hb_draw_funcs_t> draw = DrawWithPen();

    Fonts(const FontFile& file, std::unique_ptr<FontFinder> fonts)
        : own(file), finder(std::move(fonts)) {}

    const Font& Of(const Glyph& glyph) const {
        return glyph.source == Source::kOther ? others[glyph.other].second : own;
    }
};

std::unique_ptr<Typeface> Typeface::Load() {
    auto finder = std::make_unique<FontFinder>();
    for (const char* const family : {"Times New Roman", kFreeFamily}) {
        const auto file = finder->Family(family);
        if (auto typeface = file ? Load(*file, finder) : nullptr) {
            return typeface;
        }
    }
    return nullptr;
}

std::unique_ptr<Typeface> Typeface::Load(const FontFile& file) {
    auto finder = std::make_unique<FontFinder>();
    return Load(file, finder);
}

// Leaves the finder where it is when the file cannot be used.
std::unique_ptr<Typeface> Typeface::Load(const FontFile& file,
                                         std::unique_ptr<FontFinder>& finder) {
    auto fonts = std::make_unique<Fonts>(file, nullptr);
    if (!fonts->own.font) {
        return nullptr;
    }
    std::unique_ptr<Typeface> typeface(new Typeface(file, std::move(fonts)));
    if (!typeface->IsUsable()) {
        return nullptr;
    }
    typeface->fonts_->finder = std::move(finder);
    return typeface;
}

Typeface::Typeface(FontFile file, std::unique_ptr<Fonts> fonts)
    : file_(std::move(file)), fonts_(std::move(fonts)), name_(PostScriptNameOf(fonts_->own)) {
    common_.fill({});
    unitsPerEm_ = fonts_->own.UnitsPerEm();
    hb_font_extents_t extents{};
    hb_font_get_h_extents(fonts_->own.font.get(), &extents);
    ascent_ = extents.ascender;
    descent_ = -extents.descender;
}

Typeface::~Typeface() = default;

int Typeface::TextWidth(std::string_view utf8, int points) {
    double units = 0;
    while (!utf8.empty()) {
        const char32_t character = TakeCharacter(utf8);
        const Glyph& glyph = Of(character);
        units += glyph.advance;
        if (glyph.source == Source::kBox && std::ranges::count(boxes_, character) == 0) {
            boxes_.push_back(character);
        }
    }
    return static_cast<int>(std::lround(units * PixelsPerUnit(points)));
}

int Typeface::TextHeight(int points) {
    return Ascent(points) + static_cast<int>(std::lround(descent_ * PixelsPerUnit(points)));
}

int Typeface::Ascent(int points) const {
    return static_cast<int>(std::lround(ascent_ * PixelsPerUnit(points)));
}

// A damaged file may have kept its list of characters and lost their shapes or widths.
bool Typeface::IsUsable() const {
    const Font& own = fonts_->own;
    for (char32_t c = U' '; c <= U'~'; ++c) {
        const auto glyph = own.GlyphOf(c);
        if (!glyph || own.AdvanceOf(*glyph) <= 0 ||
            (c != U' ' && OutlineOf({Source::kOwn, *glyph}).parts.empty())) {
            return false;
        }
    }
    return own.AdvanceOf(*own.GlyphOf(U'i')) < own.AdvanceOf(*own.GlyphOf(U'W'));
}

double Typeface::PixelsPerUnit(int points) const {
    return points * kResolution / kPointsPerInch / unitsPerEm_;
}

const Typeface::Glyph& Typeface::Of(char32_t character) {
    if (character < common_.size()) {
        Glyph& glyph = common_[character];
        if (glyph.advance < 0) {
            glyph = Look(character);
        }
        return glyph;
    }
    const auto known = uncommon_.find(character);
    return known != uncommon_.end() ? known->second
                                    : uncommon_.emplace(character, Look(character)).first->second;
}

char32_t Typeface::Shown(char32_t character) {
    const bool isBreak = character == 0x2028 || character == 0x2029;
    return IsControl(character) || isBreak ? U' ' : character;
}

Typeface::Glyph Typeface::Look(char32_t character) {
    character = Shown(character);
    const Font& own = fonts_->own;
    if (const auto glyph = own.GlyphOf(character)) {
        return {Source::kOwn, *glyph, 0, own.AdvanceOf(*glyph)};
    }
    auto& others = fonts_->others;
    if (const auto file = fonts_->finder->With(character, kFreeFamily)) {
        auto known = std::ranges::find(others, *file, &std::pair<FontFile, Font>::first);
        if (known == others.end()) {
            known = others.emplace(others.end(), *file, Font(*file));
        }
        if (const auto glyph = known->second.GlyphOf(character)) {
            const Font& font = known->second;
            return {Source::kOther, *glyph, static_cast<unsigned>(known - others.begin()),
                    font.AdvanceOf(*glyph) * unitsPerEm_ / font.UnitsPerEm()};
        }
    }
    return {Source::kBox, 0, 0, own.AdvanceOf(0)};
}

Outline Typeface::OutlineOf(const Glyph& glyph) const {
    const Font& font = fonts_->Of(glyph);
    Pen pen{.outline = {}, .unitsPerEm = font.UnitsPerEm()};
    hb_font_get_glyph_shape(font.font.get(), glyph.index, fonts_->draw.get(), &pen);
    return std::move(pen.outline);
}

Typeface::Measures Typeface::Measure() const {
    const auto thousandths = [this](double units) {
        return static_cast<int>(std::lround(units * 1000 / unitsPerEm_));
    };
    hb_position_t capHeight = 0;
    hb_ot_metrics_get_position_with_fallback(fonts_->own.font.get(), HB_OT_METRICS_TAG_CAP_HEIGHT,
                                             &capHeight);
    Measures measures{.ascent = thousandths(ascent_),
                      .descent = thousandths(-descent_),
                      .capHeight = thousandths(capHeight)};
    // Four numbers of two bytes in the font's head.
    constexpr std::size_t kBoxAt = 36;
    const Owned<hb_blob_t> head(
        hb_face_reference_table(fonts_->own.Face(), HB_TAG('h', 'e', 'a', 'd')));
    unsigned size = 0;
    const char* const bytes = hb_blob_get_data(head.get(), &size);
    for (std::size_t i = 0; i < measures.box.size() && kBoxAt + 2 * i + 1 < size; ++i) {
        const auto high = static_cast<unsigned char>(bytes[kBoxAt + 2 * i]);
        const auto low = static_cast<unsigned char>(bytes[kBoxAt + 2 * i + 1]);
        measures.box[i] = thousandths(static_cast<std::int16_t>(high << 8U | low));
    }
    return measures;
}

FontSubset Typeface::Subset(const std::set<char32_t>& characters) const {
    const Owned<hb_subset_input_t> input(hb_subset_input_create_or_fail());
    if (!input) {
        return {};
    }
    for (const char32_t character : characters) {
        hb_set_add(hb_subset_input_unicode_set(input.get()), character);
    }
    hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_NO_HINTING);
    // A document sets each glyph by itself; what arranges and names glyphs is of no use in it.
    hb_set_t* const dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const char* const table :
         {"GSUB", "GPOS", "GDEF", "kern", "name", "post", "OS/2", "gasp"}) {
        hb_set_add(dropped, hb_tag_from_string(table, -1));
    }
    const Owned<hb_subset_plan_t> plan(
        hb_subset_plan_create_or_fail(fonts_->own.Face(), input.get()));
    const Owned<hb_face_t> face(plan ? hb_subset_plan_execute_or_fail(plan.get()) : nullptr);
    if (!face) {
        return {};
    }
    FontSubset subset;
    const Owned<hb_blob_t> file(hb_face_reference_blob(face.get()));
    unsigned size = 0;
    const char* const bytes = hb_blob_get_data(file.get(), &size);
    subset.file.assign(bytes, size);
    const hb_map_t* const places = hb_subset_plan_old_to_new_glyph_mapping(plan.get());
    for (const char32_t character : characters) {
        if (const auto glyph = fonts_->own.GlyphOf(character)) {
            subset.glyphs[*glyph] = hb_map_get(places, *glyph);
        }
    }
    return subset;
}

}  // namespace qfr
