// Which revision of the source the program was built from.
#pragma once

#include <string_view>

namespace qfr {

// As the version control names it; empty in a build from a source archive.
std::string_view Revision();

}  // namespace qfr
