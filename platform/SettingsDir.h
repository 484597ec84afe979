// Where the program's two settings files live: in the program's directory while that is writable,
// else in the user's own configuration directory, which starts from what the program was shipped
// with.
#pragma once

#include <filesystem>
#include <string>

namespace qfr {

class SettingsDir {
  public:
    // `userDir` is created when something is first written there.
    SettingsDir(std::filesystem::path programDir, std::filesystem::path userDir)
        : programDir_(std::move(programDir)), userDir_(std::move(userDir)) {}

    // The program's directory with a trailing separator (UTF-8).
    std::string ProgramDir() const;
    // The user's own configuration directory, wherever the settings are.
    const std::filesystem::path& UserDir() const { return userDir_; }
    // The file to read; it need not exist.
    std::filesystem::path ForReading(const std::string& name) const;
    // The file to write; its directory exists afterwards, if it can.
    std::filesystem::path ForWriting(const std::string& name) const;

  private:
    std::filesystem::path programDir_;
    std::filesystem::path userDir_;
};

}  // namespace qfr
