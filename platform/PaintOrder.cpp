#include "platform/PaintOrder.h"

#include <algorithm>
#include <cstddef>

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
    for (std::size_t i = 0; i < page.items.size(); ++i) {
        const Box cell = CellOf(page.items[i]);
        for (std::size_t earlier = 0; earlier < i && !cell.Empty(); ++earlier) {
            if (cell.Overlaps(inks[earlier]) && !painted[earlier].hidden) {
                painted[i].coversEarlier = true;
                const Box under = CellOf(page.items[earlier]);
                painted[earlier].hidden = !under.Empty() && cell.Covers(under);
            }
        }
        inks.push_back(InkOf(page.items[i]));
    }
    return painted;
}

}  // namespace qfr
