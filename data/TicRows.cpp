#include "data/TicRows.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/Text.h"

namespace qfr {

TicEntry KeptTic(const TicEntry& row) {
    constexpr std::size_t kNameCell = 1;
    TicEntry entry;
    std::ranges::transform(row.cells, entry.cells.begin(), Trim);
    entry.cells[kNameCell] = LowerCase(entry.cells[kNameCell]);
    return entry;
}

std::optional<Message> IncompleteTicsNote(const Batch& batch) {
    constexpr std::size_t kNamed = 10;
    std::vector<std::string> names;
    for (const SampleRecord& sample : SamplesOf(batch)) {
        if (sample.TicList && !IncompleteTicRows(*sample.TicList).empty()) {
            names.push_back(Visible(SampleName(sample)));
        }
    }
    if (names.empty()) {
        return std::nullopt;
    }
    if (const std::size_t count = names.size(); count > kNamed) {
        names.resize(kNamed);
        names.push_back(std::to_string(count - kNamed) + " more");
    }
    return Message{"Look at the TICs of " + Enumerated(names) + ": rows lack a cell.", "Warning",
                   MessageIcon::kWarning};
}

}  // namespace qfr
