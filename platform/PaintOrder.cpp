#include "platform/PaintOrder.h"

#include <algorithm>
#include <cstddef>
#include <span>

namespace qfr {

namespace {

// Pixels; right and bottom lie outside.
struct Box {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool Empty() const { return left >= right || top >= bottom; }
    bool Overlaps(const Box& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    bool Covers(const Box& other) const {
        return left <= other.left && other.right <= right && top <= other.top &&
               other.bottom <= bottom;
    }
};

// What a text paints white; empty for a rule.
Box CellOf(const PageItem& item) {
    const auto* const text = std::get_if<TextItem>(&item);
    return text != nullptr ? Box{text->x, text->y, text->x + text->width, text->y + text->height}
                           : Box{};
}

// What the item may blacken, a little generous.
Box InkOf(const PageItem& item) {
    if (const auto* const text = std::get_if<TextItem>(&item)) {
        // Letters like "f" and "j" reach out of their cell by less than this.
        const int overhang = text->height / 8 + 1;
        Box ink = CellOf(item);
        ink.left -= overhang;
        ink.right += overhang;
        return ink;
    }
    const auto& rule = std::get<RuleItem>(item);
    const int half = rule.penWidth / 2 + 2;
    return {std::min(rule.x1, rule.x2) - half, std::min(rule.y1, rule.y2) - half,
            std::max(rule.x1, rule.x2) + half, std::max(rule.y1, rule.y2) + half};
}

}  // namespace

std::vector<PaintedItem> PaintOrderOf(const JobPage& page) {
    std::vector<PaintedItem> painted(page.items.size());
    std::vector<Box> inks;
    inks.reserve(page.items.size());
    // What may lie under a cell is looked for in the bands of the page that the cell touches.
    constexpr int kBand = 128;  // pixels high
    std::vector<std::vector<std::size_t>> bands(
        static_cast<std::size_t>(std::max(page.height, 0) / kBand + 1));
    const auto bandsOf = [&bands](const Box& box) {
        const auto bandAt = [last = static_cast<int>(bands.size()) - 1](int y) {
            return static_cast<std::size_t>(std::clamp(y / kBand, 0, last));
        };
        return std::span(bands).subspan(bandAt(box.top), bandAt(box.bottom) - bandAt(box.top) + 1);
    };
    for (std::size_t i = 0; i < page.items.size(); ++i) {
        const Box cell = CellOf(page.items[i]);
        if (!cell.Empty()) {
            for (std::vector<std::size_t>& band : bandsOf(cell)) {
                std::erase_if(band, [&](std::size_t earlier) {
                    if (!painted[earlier].hidden && cell.Overlaps(inks[earlier])) {
                        painted[i].coversEarlier = true;
                        const Box under = CellOf(page.items[earlier]);
                        painted[earlier].hidden = !under.Empty() && cell.Covers(under);
                    }
                    return painted[earlier].hidden;
                });
            }
        }
        inks.push_back(InkOf(page.items[i]));
        for (std::vector<std::size_t>& band : bandsOf(inks.back())) {
            band.push_back(i);
        }
    }
    return painted;
}

}  // namespace qfr
