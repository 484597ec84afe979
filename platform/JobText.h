// What can be read on the pages of print jobs, for whoever looks for a text there.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/PrintJob.h"

namespace qfr {

// A place where a text was found.
struct FoundText {
    std::size_t Page = 0;    // from 0
    std::size_t Item = 0;    // its TextItem among the page's items
    std::size_t Start = 0;   // characters (not bytes) before it in the item's text
    std::size_t Length = 0;  // characters
    bool operator==(const FoundText&) const = default;
};

// Whether neither a rule nor a text but blanks stands on the page.
bool IsEmpty(const JobPage& page);
// The first page that is not empty, from 0; of empty pages only, the first one.
std::size_t FirstFilled(const std::vector<const JobPage*>& pages);

// Every place where the text stands, case ignored: page after page, on each as it is read. A text
// that a later one covers is not found, and none goes on from one item to another. Nothing is found
// of a text that is blank.
std::vector<FoundText> FindText(const std::vector<const JobPage*>& pages, std::string_view sought);

}  // namespace qfr
