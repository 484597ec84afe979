#include "platform/SettingsDir.h"

#include <system_error>

#include "platform/FileLookup.h"

#ifdef _WIN32
#include <optional>

#include "platform/FileReplace.h"
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace qfr {

namespace fs = std::filesystem;

namespace {

bool IsWritable(const fs::path& folder) {
    std::error_code error;
    if (!fs::is_directory(folder, error)) {
        return false;
    }
#ifdef _WIN32
    // Access lists decide, and only an attempt tells.
    const fs::path probe = folder / "qfr-probe.tmp";
    const bool written = !ReplaceFile(probe, "").has_value();
    fs::remove(probe, error);
    return written;
#else
    return ::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
#endif
}

}  // namespace

std::string SettingsDir::ProgramDir() const {
    return TextOf(programDir_ / "");
}

fs::path SettingsDir::ForReading(const std::string& name) const {
    const fs::path users = userDir_ / PathOf(name);
    std::error_code error;
    return !IsWritable(programDir_) && fs::exists(users, error) ? users
                                                                : programDir_ / PathOf(name);
}

fs::path SettingsDir::ForWriting(const std::string& name) const {
    if (IsWritable(programDir_)) {
        return programDir_ / PathOf(name);
    }
    std::error_code ignored;  // writing the file fails then, and says why
    fs::create_directories(userDir_, ignored);
    return userDir_ / PathOf(name);
}

}  // namespace qfr
