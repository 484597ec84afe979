// Where the values of an entry have come from, told by comparing: what a report gives and the entry
// still holds is the report's.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/Batch.h"
#include "data/Entries.h"
#include "data/Reports.h"

namespace qfr {

// What would have been taken over into a control of the dialog.
struct EntrySource {
    std::string Control;
    std::optional<std::string> Text;  // absent: whatever the control holds
    std::string Note;                 // "from check report vstd050c.check"

    // In any case, as what comes from another form arrives in lower case.
    bool Gives(const std::string& text) const;
};

// For the entries of Form VIII: of several for a control, the first one that gives its text counts.
// A report that cannot be read gives nothing. `levelCount` levels of the calibration count.
std::vector<EntrySource> SourcesOfStandardSummary(const Entries& entries, const Batch& batch,
                                                  Reports& reports, int levelCount);

}  // namespace qfr
