// What POSIX systems and Windows do differently; platform/posix and platform/windows implement it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace qfr {

// The arguments that main got, as UTF-8 and without the program's name.
std::vector<std::string> ProgramArguments(int argc, const char* const* argv);

// Whether the folder exists and files can be made in it.
bool IsWritable(const std::filesystem::path& folder);

// Writes a file that is not there yet and brings it to the disk. Where files have owners and
// permissions, those of the file that it is to replace (it need not exist) are taken over as far as
// the user may set them. After a failure the caller removes what there is of the file.
std::error_code WriteNewFile(const std::filesystem::path& file,
                             const std::filesystem::path& replaced, std::string_view content);

// Makes a rename in the folder last. The files are whole either way, so a file system that cannot
// do it is no failure.
void FlushFolder(const std::filesystem::path& folder);

}  // namespace qfr
