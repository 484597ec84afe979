#include "platform/pdf/PageContent.h"

#include <optional>
#include <string_view>
#include <vector>

#include "platform/PaintOrder.h"
#include "platform/Text.h"
#include "platform/pdf/DocumentFonts.h"
#include "platform/pdf/PdfNumbers.h"

namespace qfr {

namespace {

constexpr std::size_t kLongestString = 16'000;  // bytes; an archive takes no more than 32,767
constexpr double kPointsPerPixel = kPointsPerInch / kResolution;

// Writes operators. Numbers are pixels at kResolution, upwards from the page's lower edge; font,
// pen and place are written when they change only.
class ContentWriter {
  public:
    ContentWriter(int pageHeight, Typeface& typeface, DocumentFonts& fonts)
        : pageHeight_(pageHeight), typeface_(typeface), fonts_(fonts) {}

    void TurnOntoPaper() {
        Put(0, kPointsPerPixel, -kPointsPerPixel, 0, pageHeight_ * kPointsPerPixel, 0);
        out_ += "cm 1 J\n";
    }
    void LieUpright() {
        Put(kPointsPerPixel, 0, 0, kPointsPerPixel, 0, 0);
        out_ += "cm 1 J\n";  // round caps
    }

    void Rule(const RuleItem& rule) {
        EndText();
        if (pen_ != rule.penWidth) {
            EndPath();
            pen_ = rule.penWidth;
            Put(rule.penWidth);
            out_ += "w\n";
        }
        Put(rule.x1, pageHeight_ - rule.y1);
        out_ += "m ";
        Put(rule.x2, pageHeight_ - rule.y2);
        out_ += "l\n";
        inPath_ = true;
    }

    void WhiteCell(const TextItem& text) {
        EndText();
        EndPath();
        out_ += "1 g ";
        Put(text.x, pageHeight_ - text.y - text.height, text.width, text.height);
        out_ += "re f 0 g\n";
    }

    void Text(const TextItem& text) {
        EndPath();
        if (!inText_) {
            out_ += "BT\n";
            inText_ = true;
            x_ = 0;
            y_ = 0;
        }
        const int baseline = pageHeight_ - text.y - typeface_.Ascent(text.size);
        Put(text.x - x_, baseline - y_);
        out_ += "Td";
        x_ = text.x;
        y_ = baseline;
        // Characters of the same font go together.
        std::string codes;
        bool wide = false;
        for (std::string_view rest = text.text; !rest.empty();) {
            const FontCode next = fonts_.CodeOf(TakeCharacter(rest));
            const bool fontChanges = next.font != font_ || text.size != size_;
            if (fontChanges || codes.size() > kLongestString) {
                Show(codes, wide);
            }
            if (fontChanges) {
                SetFont(next.font, text.size);
            }
            wide = next.wide;
            if (wide) {
                AppendHex(codes, next.code, 4);
                continue;
            }
            const auto byte = static_cast<char>(next.code);
            if (byte == '(' || byte == ')' || byte == '\\') {
                codes += '\\';
            }
            // As it stands, it would be read as a line feed.
            codes += byte == '\r' ? "\\r" : std::string_view(&byte, 1);
        }
        Show(codes, wide);
        out_ += '\n';
    }

    std::string Take() {
        EndText();
        EndPath();
        return std::move(out_);
    }

  private:
    template <typename... Numbers>
    void Put(Numbers... numbers) {
        ((AppendNumber(out_, numbers), out_ += ' '), ...);
    }

    void SetFont(unsigned font, int points) {
        font_ = font;
        size_ = points;
        out_ += DocumentFonts::NameOf(font);
        out_ += ' ';
        Put(points * kResolution / kPointsPerInch);
        out_ += "Tf";
    }

    void Show(std::string& codes, bool wide) {
        if (!codes.empty()) {
            out_ += wide ? '<' : '(';
            out_ += codes;
            out_ += wide ? ">Tj" : ")Tj";
            codes.clear();
        }
    }

    void EndText() {
        if (inText_) {
            out_ += "ET\n";
            inText_ = false;
        }
    }

    void EndPath() {
        if (inPath_) {
            out_ += "S\n";
            inPath_ = false;
        }
    }

    int pageHeight_;
    Typeface& typeface_;
    DocumentFonts& fonts_;
    std::string out_;
    std::optional<unsigned> font_;
    int size_ = 0;  // of the font, points
    std::optional<int> pen_;
    bool inText_ = false;
    bool inPath_ = false;
    int x_ = 0;  // where the last text begins
    int y_ = 0;
};

}  // namespace

std::string PageContent(const JobPage& page, Landscape landscape, Typeface& typeface,
                        DocumentFonts& fonts) {
    ContentWriter writer(page.height, typeface, fonts);
    if (landscape == Landscape::kTurnedOntoPaper &&
        page.orientation == PageOrientation::kLandscape) {
        writer.TurnOntoPaper();
    } else {
        writer.LieUpright();
    }
    const std::vector<PaintedItem> painted = PaintOrderOf(page);
    for (std::size_t i = 0; i < painted.size(); ++i) {
        if (const auto* const rule = std::get_if<RuleItem>(&page.items[i])) {
            writer.Rule(*rule);
        } else if (!painted[i].hidden) {
            const auto& text = std::get<TextItem>(page.items[i]);
            if (painted[i].coversEarlier) {
                writer.WhiteCell(text);
            }
            writer.Text(text);
        }
    }
    return writer.Take();
}

}  // namespace qfr
