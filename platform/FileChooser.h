// How the user names files: the program's one open dialog and its one save dialog.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qfr {

// A line of a dialog's file type list.
struct FileFilter {
    std::string_view name;  // "Text Files (*.qff;*.txt)"
    constexpr std::string_view Patterns() const {
        const std::string_view patterns = name.substr(name.rfind('(') + 1);
        return patterns.substr(0, patterns.size() - 1);
    }
};

// The kinds of file that the user opens, in the order of the open dialog's list.
enum class FileKind { kQuantReport, kCalibration, kCheckReport, kBatch, kText, kAny };

// Where the open dialog looks for a kind of file: its filter, and lines of the file of directories
// last used (from 1).
struct FileKindRow {
    FileKind kind;
    FileFilter filter;
    int startsFrom;  // the line that tells the directory to start in
    int remembered;  // the line that keeps the directory of the choice; 0: none
};

inline constexpr std::array<FileKindRow, 6> kFileKinds = {{
    {FileKind::kQuantReport, {"Quantitation Files (*.prn)"}, 1, 1},
    {FileKind::kCalibration, {"Calibration Files (*.cal)"}, 2, 2},
    // On purpose: check reports share the quantitation reports' directory.
    {FileKind::kCheckReport, {"Check Calib. Files (*.check)"}, 1, 1},
    {FileKind::kBatch, {"QFRForm File (*.qff)"}, 4, 4},
    {FileKind::kText, {"Text Files (*.txt)"}, 3, 3},
    // Raw data files, which have any name, are looked for beside the calibration.
    {FileKind::kAny, {"All Files (*.*)"}, 2, 0},
}};

constexpr const FileKindRow& RowOf(FileKind kind) {
    return kFileKinds.at(static_cast<std::size_t>(kind));
}

static_assert(std::ranges::all_of(kFileKinds,
                                  [](const FileKindRow& row) { return &RowOf(row.kind) == &row; }));

inline constexpr std::array<FileFilter, 3> kSaveFilters = {
    {{"QFR Forms (*.qff)"}, {"Text Files (*.qff;*.txt)"}, {"All Files (*.*)"}}};

struct OpenRequest {
    FileKind kind = FileKind::kQuantReport;
    std::string directory;  // to start in, UTF-8
    bool multiSelect = false;
};

enum class SaveKind { kBatch, kLaboratoryFile, kPdf, kValues };

struct SaveRequest {
    SaveKind kind = SaveKind::kBatch;
    std::string directory;  // to start in, UTF-8
    std::string fileName;   // proposed; may be empty
};

struct ChosenFiles {
    std::vector<std::string> files;  // full paths, UTF-8; at least one
    // That the open dialog ended with; the save dialog has no kinds.
    FileKind kind = FileKind::kQuantReport;
};

class FileChooser {
  public:
    virtual ~FileChooser() = default;
    // Absent when the user cancelled. The files exist.
    virtual std::optional<ChosenFiles> Open(const OpenRequest& request) = 0;
    // Absent when the user cancelled. The user has agreed to replace a file that exists, and once
    // more where it is read-only; the kind's
    // extension (".qff", ".txt", ".pdf", ".json") is added to a name that has none.
    virtual std::optional<ChosenFiles> Save(const SaveRequest& request) = 0;
    // A folder that exists, maybe since a moment ago, to put files into; its full path. Absent when
    // the user cancelled. `directory`: to start in.
    virtual std::optional<std::string> Folder(const std::string& directory) = 0;
};

}  // namespace qfr
