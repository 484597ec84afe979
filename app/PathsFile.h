// "QFRpaths.txt": the directory last used for each kind of file, one a line.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/Messages.h"
#include "platform/SettingsDir.h"

namespace qfr {

// The kinds of file that a directory is remembered for, which are the filters of the open dialog.
enum class FileKind {
    kQuantReport = 1,
    kCalibration = 2,
    kCheckReport = 3,
    kBatch = 4,
    kText = 5,
    kAny = 6,
};

class PathsFile {
  public:
    PathsFile(const SettingsDir& settings, Messages& messages)
        : settings_(settings), messages_(messages) {}

    // The directory that a dialog starts in, without a trailing separator unless it is the
    // program's own. `slot` is a line of the file, from 1 to 4. A missing file is reported and
    // created anew.
    std::string ReadPath(int slot);

    // Records the directory of a file that was chosen with this filter, and rewrites the file.
    // Check reports share the quantitation reports' line; kAny changes no line.
    void RememberDir(std::string_view fileName, FileKind filter);

    void NewPathsFile();

  private:
    void Write();

    const SettingsDir& settings_;
    Messages& messages_;
    std::array<std::string, 4> slots_;
};

}  // namespace qfr
