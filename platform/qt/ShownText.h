// Texts of files and people as cells and lists show them.
#pragma once

#include <string_view>

#include <QString>

#include "platform/Text.h"

namespace qfr {

// As one line, without characters that would rule how it shows.
inline QString Shown(std::string_view text) {
    return QString::fromStdString(Visible(OneLine(text)));
}

// In the place of what is still being found out.
inline constexpr const char* kNotKnownYet = "...";

// As the reports and forms write a date and time.
inline constexpr const char* kShownDateTime = "MM/dd/yyyy hh:mm";

}  // namespace qfr
