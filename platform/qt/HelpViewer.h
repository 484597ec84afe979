// The viewer of the help file: the system's, or a window of the program's own where it has none.
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

namespace qfr {

class HelpWindow;

// Shows the page of a context number in the system's own viewer of such files. False where it has
// none, or when there is no such file. platform/posix and platform/windows implement it.
bool OpenSystemHelp(const std::filesystem::path& file, int topic);

class HelpViewer {
  public:
    // Nothing is read before help is asked for.
    explicit HelpViewer(std::filesystem::path file) : file_(std::move(file)) {}

    // Opens the help file at the page of a context number, or at its first page when the number has
    // none. False when there is no such file, or when it is damaged.
    bool Open(int topic);

    // The library that reads the help file.
    static std::string_view Library();

  private:
    const std::filesystem::path file_;
    std::shared_ptr<HelpWindow> window_;  // once the file could be read
};

}  // namespace qfr
