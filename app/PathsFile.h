// "QFRpaths.txt": the directory last used for each kind of file, one a line.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/FileChooser.h"
#include "platform/Messages.h"
#include "platform/SettingsDir.h"

namespace qfr {

class PathsFile {
  public:
    PathsFile(const SettingsDir& settings, Messages& messages)
        : settings_(settings), messages_(messages) {}

    // The directory that a dialog starts in for this kind of file, without a trailing separator
    // unless it is the program's own. A missing file is reported and created anew.
    std::string ReadPath(FileKind kind);

    // Where a dialog starts: calibrations and batches of which no directory was ever chosen are
    // looked for where the reports were chosen.
    std::string StartFolder(FileKind kind);

    // Records the directory of a file that was chosen as one of this kind, and rewrites the file,
    // as it is by now. A directory that would not be read back as it is, being no text or of more
    // than 99 characters, is not remembered.
    void RememberDir(std::string_view fileName, FileKind kind);

    void NewPathsFile();

  private:
    // Whether the line, from 1, is as the program has made it.
    bool IsInitial(int line);
    // From 1.
    std::string& LineAt(int line) { return lines_.at(static_cast<std::size_t>(line) - 1); }
    // Takes the lines over; tells what is missing when it is to.
    void Read(bool tells);
    void Write();

    const SettingsDir& settings_;
    Messages& messages_;
    std::array<std::string, 4> lines_;
    bool known_ = false;  // the lines have been read in this run
};

}  // namespace qfr
