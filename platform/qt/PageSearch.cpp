#include "platform/qt/PageSearch.h"

#include <algorithm>

namespace qfr {

PageSearch::PageSearch(PageView& view, QWidget* parent) : FindBar(parent), view_(view) {}

FindBar::Found PageSearch::Look(const std::string& text, int by) {
    if (by == 0 || found_.empty()) {
        found_ = FindText(view_.Pages(), text);
        // The first one from the page in sight on.
        const auto from = std::ranges::lower_bound(
            found_, static_cast<std::size_t>(view_.CurrentPage()), {}, &FoundText::Page);
        place_ = from == found_.end() ? 0 : static_cast<std::size_t>(from - found_.begin());
        view_.ShowFound(found_);
    } else if (!found_.empty()) {
        const auto count = std::ssize(found_);
        place_ =
            static_cast<std::size_t>((static_cast<std::ptrdiff_t>(place_) + by + count) % count);
    }
    if (!found_.empty()) {
        view_.GoToFound(place_);
    }
    return {found_.size(), place_};
}

void PageSearch::Leave() {
    found_.clear();
    view_.ShowFound({});
    view_.setFocus();
}

}  // namespace qfr
