#include "dialogs/HeaderSearch.h"

#include <algorithm>
#include <iterator>

namespace qfr {

void HeaderSearch::LookIn(const HeaderTable& table, SheetView& view) {
    table_ = &table;
    view_ = &view;
}

FindBar::Found HeaderSearch::Look(const std::string& text, int by) {
    const std::vector<HeaderCell> found = table_->Sheet().Find(text);
    if (found.empty()) {
        return {};
    }
    const HeaderCell from = HeaderTable::CellAt(view_->currentIndex());
    const auto next =
        by > 0 ? std::ranges::upper_bound(found, from) : std::ranges::lower_bound(found, from);
    const auto count = std::ssize(found);
    const auto place = (next - found.begin() - (by < 0 ? 1 : 0) + count) % count;
    view_->Go(table_->IndexOf(found[static_cast<std::size_t>(place)]));
    return {found.size(), static_cast<std::size_t>(place)};
}

}  // namespace qfr
