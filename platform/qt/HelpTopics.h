// What the build knows of the help file.
#pragma once

#include <string_view>

namespace qfr {

// The page's name in the help file. A number that has no page gives the main page.
std::string_view HelpPageOf(int topic);

// The SHA-256 of the help file that was built with the program, as hexadecimal digits in small
// letters; empty when none was built.
std::string_view HelpDigest();

}  // namespace qfr
