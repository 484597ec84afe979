// The checks that the entry dialogs share; each runs when its control is left and again on OK.
#pragma once

#include <optional>
#include <string_view>

#include "data/EntryFault.h"

namespace qfr {

// A text must be typed.
std::optional<EntryFault> RequireValue(std::string_view text, std::string_view control);

// A date-time, a date alone or a time alone must be typed; an empty mask is none.
std::optional<EntryFault> RequireDateTime(std::string_view text, std::string_view control);

// As RequireDateTime, but an empty mask passes.
std::optional<EntryFault> CheckDateTime(std::string_view text, std::string_view control);

// Title of every message about a text that should be a date or a time.
inline constexpr std::string_view kIncorrectTimeFormat = "Incorrect Time Format";

// How dates and times are to be typed.
Message DateTimeFormatMessage();

}  // namespace qfr
