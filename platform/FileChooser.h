// How the user names files: the program's one open dialog and its one save dialog.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qfr {

// A line of a dialog's file type list.
struct FileFilter {
    std::string_view name;      // "Quantitation Files (*.prn)"
    std::string_view patterns;  // "*.prn", several with ";" between
};

// The open dialog's filters; their numbers, from 1, are the kinds of file.
inline constexpr std::array<FileFilter, 6> kOpenFilters = {{
    {"Quantitation Files (*.prn)", "*.prn"},
    {"Calibration Files (*.cal)", "*.cal"},
    {"Check Calib. Files (*.check)", "*.check"},
    {"QFRForm File (*.qff)", "*.qff"},
    {"Text Files (*.txt)", "*.txt"},
    {"All Files (*.*)", "*.*"},
}};

inline constexpr std::array<FileFilter, 3> kSaveFilters = {{
    {"QFR Forms (*.qff)", "*.qff"},
    {"Text Files (*.qff;*.txt)", "*.qff;*.txt"},
    {"All Files (*.*)", "*.*"},
}};

struct OpenRequest {
    int filter = 1;         // of kOpenFilters, from 1
    std::string directory;  // to start in, UTF-8
    bool multiSelect = false;
};

enum class SaveKind { kBatch, kLaboratoryFile, kPdf };

struct SaveRequest {
    SaveKind kind = SaveKind::kBatch;
    std::string directory;  // to start in, UTF-8
    std::string fileName;   // proposed; may be empty
};

struct ChosenFiles {
    std::vector<std::string> files;  // full paths, UTF-8; at least one
    int filter = 1;                  // that the dialog ended with, from 1
};

class FileChooser {
  public:
    virtual ~FileChooser() = default;
    // Absent when the user cancelled. The files exist.
    virtual std::optional<ChosenFiles> Open(const OpenRequest& request) = 0;
    // Absent when the user cancelled. The user has agreed to replace a file that exists; the kind's
    // extension (".qff", ".txt", ".pdf") is added to a name that has none.
    virtual std::optional<ChosenFiles> Save(const SaveRequest& request) = 0;
};

}  // namespace qfr
