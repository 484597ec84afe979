// Where the program's files lie.
#pragma once

#include <filesystem>

namespace qfr {

std::filesystem::path ProgramFolder();

}  // namespace qfr
