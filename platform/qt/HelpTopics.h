// The pages of the help by the context numbers that the windows ask for.
#pragma once

#include <string_view>

namespace qfr {

// The page's name in the help file. A number that has no page gives the main page.
std::string_view HelpPageOf(int topic);

}  // namespace qfr
