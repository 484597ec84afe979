// What is said about a text that should be a date or a time, in a dialog or before a form prints.
#pragma once

#include <string_view>

#include "platform/Messages.h"

namespace qfr {

inline constexpr std::string_view kIncorrectTimeFormat = "Incorrect Time Format";  // the title

// How dates and times are to be typed.
inline Message DateTimeFormatMessage() {
    return {"Enter the date/time format as\n MM/DD/YYYY or HH:MI",
            std::string(kIncorrectTimeFormat)};
}

}  // namespace qfr
