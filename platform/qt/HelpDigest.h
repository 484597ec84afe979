// How the program tells its own help file from others.
#pragma once

#include <string_view>

namespace qfr {

// The SHA-256 of the help file that was built with the program, as hexadecimal digits in small
// letters; empty when none was built.
std::string_view HelpDigest();

}  // namespace qfr
