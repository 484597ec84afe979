#include "data/EntryChecks.h"

#include <string>

#include "platform/DateTime.h"
#include "platform/Text.h"

namespace qfr {

std::optional<EntryFault> RequireValue(std::string_view text, std::string_view control) {
    if (!Trim(text).empty()) {
        return std::nullopt;
    }
    return EntryFault{{"Please enter a value.", "All Fields Are Required"}, std::string(control)};
}

std::optional<EntryFault> RequireDateTime(std::string_view text, std::string_view control) {
    if (IsDateTimeText(text)) {
        return std::nullopt;
    }
    return EntryFault{DateTimeFormatMessage(), std::string(control)};
}

std::optional<EntryFault> CheckDateTime(std::string_view text, std::string_view control) {
    return IsEmptyMask(text) ? std::nullopt : RequireDateTime(text, control);
}

Message DateTimeFormatMessage() {
    return {"Enter the date/time format as\n MM/DD/YYYY or HH:MI",
            std::string(kIncorrectTimeFormat)};
}

}  // namespace qfr
