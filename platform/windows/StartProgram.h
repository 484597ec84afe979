// Starts one of the system's own programs.
#pragma once

#include <string>

namespace qfr {

// The command line as the system reads it; the program is left to itself. False: it did not start.
bool StartProgram(std::wstring commandLine);

// The argument as one of a command line. No file's name has a quotation mark.
std::wstring Quoted(const std::wstring& argument);

}  // namespace qfr
