#include "app/ExportMenu.h"

#include <algorithm>
#include <filesystem>
#include <optional>

#include <QStatusBar>

#include "app/MainForm.h"
#include "platform/FileLookup.h"
#include "platform/Text.h"
#include "platform/qt/WaitCursor.h"

namespace qfr {

namespace {

constexpr int kClosingNote = 8000;  // ms

// The file or folder, once the user has agreed to replace what stands there.
std::optional<std::string> ChoosePlace(FormHost& window, FileChooser& chooser, ExportFormat format,
                                       const std::string& directory) {
    if (format == ExportFormat::kJson) {
        const auto chosen = chooser.Save({SaveKind::kValues, directory, "values.json"});
        return chosen ? std::optional(chosen->files.front()) : std::nullopt;
    }
    auto folder = chooser.Folder(directory);
    const auto isThere = [&](const FormRow& form) {
        std::error_code unknown;
        return std::filesystem::exists(PathOf(*folder) / CsvName(form), unknown);
    };
    if (folder && std::ranges::any_of(kForms, isThere) &&
        !window.AskYesNo(RiskyQuestion(FileNameOnly(*folder) +
                                       " already holds exported values.\nReplace them?"))) {
        return std::nullopt;
    }
    return folder;
}

}  // namespace

void ExportFromMenu(TQFRForm& window, TextMetrics& metrics, FileChooser& chooser,
                    ExportFormat format, const std::string& directory, Remembered& memory) {
    if (!FilesSpecified(window.Batch())) {
        window.Show({std::string(kSpecifyFiles), kFilesNotSpecifiedTitle});
        return;
    }
    const std::string last = memory.Folder(kExportFolder);
    const std::optional<std::string> place =
        ChoosePlace(window, chooser, format, last.empty() ? directory : last);
    if (!place) {
        return;
    }
    memory.KeepFolder(kExportFolder, format == ExportFormat::kJson ? FolderOnly(*place) : *place);
    const WaitCursor wait;
    const CollectedValues values = CollectValues(window, metrics);
    std::string done = Counted(values.Forms.size(), "form") + " exported.";
    if (values.Forms.empty()) {
        done = "No form states any values; nothing was written.";
    } else if (const auto failure =
                   WriteValues(values.Forms, format, *place, ReadOnlyFile::kIsReplaced)) {
        window.Show(CouldNotBeWritten(TextOf(failure->Target)));
        return;
    }
    if (!values.Notes.empty()) {
        window.Show(ListMessage(done, values.Notes));
    }
    window.statusBar()->showMessage("Export Values: " + QString::fromStdString(done), kClosingNote);
}

}  // namespace qfr
