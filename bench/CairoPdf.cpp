#include "bench/CairoPdf.h"

#include <cairo-ft.h>
#include <cairo-pdf.h>
#include <fontconfig/fontconfig.h>
#include <map>
#include <string_view>
#include <variant>

#include "platform/PaintOrder.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr double kPointsPerPixel = 72.0 / kResolution;

struct Release {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_font_face_t* face) const { cairo_font_face_destroy(face); }
    void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
    void operator()(cairo_scaled_font_t* font) const { cairo_scaled_font_destroy(font); }
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
template <typename Type>
using Owned = std::unique_ptr<Type, Release>;

cairo_status_t Append(void* document, const unsigned char* bytes, unsigned size) {
    static_cast<std::string*>(document)->append(reinterpret_cast<const char*>(bytes), size);
    return CAIRO_STATUS_SUCCESS;
}

Owned<cairo_font_face_t> FaceOf(const FontFile& file) {
    const Owned<FcPattern> pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FILE, reinterpret_cast<const FcChar8*>(file.path.c_str()));
    FcPatternAddInteger(pattern.get(), FC_INDEX, static_cast<int>(file.face));
    return Owned<cairo_font_face_t>(cairo_ft_font_face_create_for_pattern(pattern.get()));
}

}  // namespace

// Kept from document to document, as a program would.
struct CairoPdf::Fonts {
    Owned<cairo_font_face_t> face;
    std::map<int, Owned<cairo_scaled_font_t>> sizes;

    cairo_scaled_font_t* At(int points) {
        Owned<cairo_scaled_font_t>& font = sizes[points];
        if (!font) {
            const Owned<cairo_font_options_t> options(cairo_font_options_create());
            cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
            cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
            cairo_matrix_t size;
            cairo_matrix_t page;
            cairo_matrix_init_scale(&size, points / kPointsPerPixel, points / kPointsPerPixel);
            cairo_matrix_init_scale(&page, kPointsPerPixel, kPointsPerPixel);
            font.reset(cairo_scaled_font_create(face.get(), &size, &page, options.get()));
        }
        return font.get();
    }
};

CairoPdf::CairoPdf(Typeface& typeface)
    : typeface_(typeface), fonts_(std::make_unique<Fonts>(Fonts{FaceOf(typeface.File()), {}})) {}
CairoPdf::~CairoPdf() = default;

std::string CairoPdf::Document(const std::vector<PrintJob>& jobs) {
    std::string document;
    const Owned<cairo_surface_t> surface(
        cairo_pdf_surface_create_for_stream(Append, &document, 1, 1));
    const Owned<cairo_t> context(cairo_create(surface.get()));
    cairo_t* const cairo = context.get();
    std::vector<cairo_glyph_t> glyphs;
    const auto paintText = [&](const TextItem& text) {
        glyphs.clear();
        const double baseline = text.y + typeface_.Ascent(text.size);
        const double pixelsPerUnit = typeface_.PixelsPerUnit(text.size);
        double units = 0;
        for (std::string_view rest = text.text; !rest.empty();) {
            const Typeface::Glyph& glyph = typeface_.Of(TakeCharacter(rest));
            glyphs.push_back({glyph.index, text.x + units * pixelsPerUnit, baseline});
            units += glyph.advance;
        }
        cairo_set_scaled_font(cairo, fonts_->At(text.size));
        cairo_show_glyphs(cairo, glyphs.data(), static_cast<int>(glyphs.size()));
    };
    for (const PrintJob& job : jobs) {
        for (const JobPage& page : job.pages) {
            cairo_pdf_surface_set_size(surface.get(), page.width * kPointsPerPixel,
                                       page.height * kPointsPerPixel);
            cairo_save(cairo);
            cairo_scale(cairo, kPointsPerPixel, kPointsPerPixel);
            cairo_set_line_cap(cairo, CAIRO_LINE_CAP_ROUND);
            const std::vector<PaintedItem> painted = PaintOrderOf(page);
            for (std::size_t i = 0; i < painted.size(); ++i) {
                if (const auto* const rule = std::get_if<RuleItem>(&page.items[i])) {
                    cairo_set_line_width(cairo, rule->penWidth);
                    cairo_move_to(cairo, rule->x1, rule->y1);
                    cairo_line_to(cairo, rule->x2, rule->y2);
                    cairo_stroke(cairo);
                } else if (!painted[i].hidden) {
                    const auto& text = std::get<TextItem>(page.items[i]);
                    if (painted[i].coversEarlier) {
                        cairo_set_source_rgb(cairo, 1, 1, 1);
                        cairo_rectangle(cairo, text.x, text.y, text.width, text.height);
                        cairo_fill(cairo);
                        cairo_set_source_rgb(cairo, 0, 0, 0);
                    }
                    paintText(text);
                }
            }
            cairo_restore(cairo);
            cairo_show_page(cairo);
        }
    }
    cairo_surface_finish(surface.get());
    const bool failed = cairo_status(cairo) != CAIRO_STATUS_SUCCESS ||
                        cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS;
    return failed ? std::string() : document;
}

}  // namespace qfr
