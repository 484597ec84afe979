#include "platform/SettingsDir.h"

#include <system_error>

#include "platform/FileLookup.h"
#include "platform/HostSystem.h"

namespace qfr {

namespace fs = std::filesystem;

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
