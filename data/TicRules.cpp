#include "data/TicRules.h"

#include <algorithm>

#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::size_t kNameCell = 1;
constexpr std::size_t kRequiredCells = 4;

// The text before the first `delimiter` (all of it without one), which leaves `rest` with it.
std::string_view TakeUpTo(char delimiter, std::string_view& rest) {
    const std::size_t end = std::min(rest.find(delimiter), rest.size());
    const std::string_view taken = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return taken;
}

}  // namespace

std::optional<TicListType> TicListFromRows(const std::vector<TicEntry>& rows) {
    std::optional<TicListType> list;
    for (const TicEntry& row : rows) {
        TicEntry entry;
        std::transform(row.cells.begin(), row.cells.end(), entry.cells.begin(),
                       [](const std::string& cell) { return Trim(cell); });
        const auto end = entry.cells.begin() + kRequiredCells;
        if (std::any_of(entry.cells.begin(), end, [](const auto& c) { return c.empty(); })) {
            continue;
        }
        entry.cells[kNameCell] = LowerCase(entry.cells[kNameCell]);
        if (!list) {
            list.emplace();
        }
        list->push_back(std::move(entry));
    }
    return list;
}

std::vector<std::vector<std::string>> PastedCells(std::string_view text) {
    std::vector<std::vector<std::string>> rows;
    while (!text.empty()) {
        std::string_view line = TakeUpTo('\n', text);
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        std::vector<std::string>& cells = rows.emplace_back();
        // A tab at the end of the line is followed by one more, empty cell.
        for (bool more = true; more;) {
            more = line.find('\t') != std::string_view::npos;
            cells.emplace_back(TakeUpTo('\t', line));
        }
    }
    return rows;
}

}  // namespace qfr
