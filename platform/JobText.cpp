#include "platform/JobText.h"

#include <algorithm>
#include <string>
#include <tuple>

#include "platform/PaintOrder.h"
#include "platform/Text.h"

namespace qfr {

namespace {

std::size_t CharacterCount(std::string_view utf8) {
    return static_cast<std::size_t>(
        std::ranges::count_if(utf8, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

// In the order in which the items were drawn.
std::vector<FoundText> FindOnPage(const JobPage& page, std::size_t number,
                                  const std::string& lowerCase) {
    std::vector<FoundText> found;
    const std::size_t length = CharacterCount(lowerCase);
    for (std::size_t item = 0; item < page.items.size(); ++item) {
        const auto* const text = std::get_if<TextItem>(&page.items[item]);
        // Lower case may take fewer bytes, but not so many fewer that half of them would do.
        if (text == nullptr || text->text.size() * 2 < lowerCase.size()) {
            continue;
        }
        const std::string lower = LowerCase(text->text);
        for (std::size_t at = lower.find(lowerCase); at != std::string::npos;
             at = lower.find(lowerCase, at + lowerCase.size())) {
            found.push_back(
                {number, item, CharacterCount(std::string_view(lower).substr(0, at)), length});
        }
    }
    return found;
}

}  // namespace

bool IsEmpty(const JobPage& page) {
    return std::ranges::all_of(page.items, [](const PageItem& item) {
        const auto* const text = std::get_if<TextItem>(&item);
        return text != nullptr && IsBlank(text->text);
    });
}

std::size_t FirstFilled(const std::vector<const JobPage*>& pages) {
    const auto filled =
        std::ranges::find_if(pages, [](const JobPage* page) { return !IsEmpty(*page); });
    return filled == pages.end() ? 0 : static_cast<std::size_t>(filled - pages.begin());
}

std::vector<FoundText> FindText(const std::vector<const JobPage*>& pages, std::string_view sought) {
    std::vector<FoundText> all;
    if (IsBlank(sought)) {
        return all;
    }
    const std::string lowerCase = LowerCase(sought);
    for (std::size_t number = 0; number < pages.size(); ++number) {
        const JobPage& page = *pages[number];
        std::vector<FoundText> found = FindOnPage(page, number, lowerCase);
        if (found.empty()) {
            continue;
        }
        const std::vector<PaintedItem> painted = PaintOrderOf(page);
        std::erase_if(found, [&](const FoundText& text) { return painted[text.Item].hidden; });
        std::ranges::stable_sort(found, {}, [&page](const FoundText& text) {
            const auto& item = std::get<TextItem>(page.items[text.Item]);
            return std::tuple(item.y, item.x, text.Start);
        });
        all.insert(all.end(), found.begin(), found.end());
    }
    return all;
}

}  // namespace qfr
