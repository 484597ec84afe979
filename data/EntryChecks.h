// What is wrong with what was entered, in a dialog or before a form prints.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "data/Entries.h"
#include "platform/Messages.h"

namespace qfr {

// What an entry dialog's OK finds wrong: the message, and where the focus goes.
struct EntryFault {
    qfr::Message Message;
    std::string Control;  // name of the control to focus
    int Row = 0;          // of a grid, from 1; 0: no grid
};

// What a file that was chosen with Browse does to the entries, in a list to the item (from 0).
using BrowseAction = std::optional<EntryFault>(Entries& entries, std::size_t item,
                                               const std::string& fileName, Messages& messages);

inline constexpr std::string_view kIncorrectTimeFormat = "Incorrect Time Format";  // the title

// How dates and times are to be typed.
inline Message DateTimeFormatMessage() {
    return {"Enter the date/time format as\n MM/DD/YYYY or HH:MI",
            std::string(kIncorrectTimeFormat)};
}

}  // namespace qfr
