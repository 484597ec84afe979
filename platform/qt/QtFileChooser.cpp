#include "platform/qt/QtFileChooser.h"

#include <span>
#include <utility>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QStringList>

#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/qt/WaitCursor.h"

namespace qfr {

namespace {

constexpr std::array<FileFilter, 2> kPdfFilters = {{{"PDF Files (*.pdf)"}, {"All Files (*.*)"}}};
constexpr std::array<FileFilter, 2> kValueFilters = {
    {{"JSON Documents (*.json)"}, {"All Files (*.*)"}}};

struct SaveShape {
    std::span<const FileFilter> filters;
    std::size_t filter;  // shown first
    const char* suffix;
};

// In the order of SaveKind.
constexpr SaveShape kSaveShapes[] = {
    {kSaveFilters, 0, "qff"},
    {kSaveFilters, 1, "txt"},
    {kPdfFilters, 0, "pdf"},
    {kValueFilters, 0, "json"},
};

QString TextOf(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), std::ssize(utf8));
}

// The dialog hides the last parenthesis of each, so that the user reads the names as they stand.
QStringList NameFilters(std::span<const FileFilter> filters) {
    QStringList names;
    for (const FileFilter& filter : filters) {
        const QString patterns = TextOf(filter.Patterns()).replace(u';', u' ');
        // "*.*" means every file, with or without an extension.
        names += TextOf(filter.name) + " (" + (patterns == "*.*" ? "*" : patterns) + ")";
    }
    return names;
}

// The directory, or the nearest one above it that is still there.
QString StartIn(const std::string& directory) {
    // A drive alone is no folder, but "C:/" is.
    QString path = QString::fromStdString(directory.empty() ? "" : directory + "/");
    path = QDir::cleanPath(QDir::fromNativeSeparators(path));
    while (!path.isEmpty() && QDir::isAbsolutePath(path)) {
        if (QDir(path).exists()) {
            return path;
        }
        const QString above = QDir::cleanPath(path + "/..");
        if (above == path) {
            break;
        }
        path = above;
    }
    return QDir::homePath();
}

// Two of the dialog's lists stand beside labels that do not name them.
void NameLists(const QFileDialog& dialog) {
    for (const auto& [label, list] :
         {std::pair("lookInLabel", "lookInCombo"), std::pair("fileTypeLabel", "fileTypeCombo")}) {
        if (auto* const found = dialog.findChild<QLabel*>(label)) {
            found->setBuddy(dialog.findChild<QWidget*>(list));
        }
    }
}

// What the user chose; absent when he cancelled. A dialog for folders has no filters.
std::optional<ChosenFiles> Run(QFileDialog& dialog, const QStringList& filters,
                               std::size_t filter) {
    // One dialog everywhere: it sorts, filters and asks alike on every desktop.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    if (!filters.isEmpty()) {
        dialog.setNameFilters(filters);
        dialog.selectNameFilter(filters[static_cast<qsizetype>(filter)]);
    }
    NameLists(dialog);
    const AskingCursor asking;
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    ChosenFiles chosen;
    for (const QString& file : dialog.selectedFiles()) {
        chosen.files.push_back(QDir::toNativeSeparators(file).toStdString());
    }
    return chosen;
}

}  // namespace

std::optional<ChosenFiles> QtFileChooser::Open(const OpenRequest& request) {
    QFileDialog dialog(QApplication::activeWindow(), QStringLiteral("Open"),
                       StartIn(request.directory));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(request.multiSelect ? QFileDialog::ExistingFiles
                                           : QFileDialog::ExistingFile);
    std::vector<FileFilter> filters;
    for (const FileKindRow& row : kFileKinds) {
        filters.push_back(row.filter);
    }
    const QStringList names = NameFilters(filters);
    auto chosen = Run(dialog, names, static_cast<std::size_t>(request.kind));
    for (const FileKindRow& row : kFileKinds) {
        // The dialog tells the name alone, as it shows it.
        const auto name = static_cast<qsizetype>(row.kind);
        if (chosen && names[name].startsWith(dialog.selectedNameFilter())) {
            chosen->kind = row.kind;
        }
    }
    return chosen;
}

std::optional<ChosenFiles> QtFileChooser::Save(const SaveRequest& request) {
    const SaveShape& shape = kSaveShapes[static_cast<std::size_t>(request.kind)];
    QFileDialog dialog(QApplication::activeWindow(), QStringLiteral("Save As"),
                       StartIn(request.directory));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(QString::fromLatin1(shape.suffix));
    dialog.selectFile(QString::fromStdString(request.fileName));
    auto chosen = Run(dialog, NameFilters(shape.filters), shape.filter);
    while (chosen && !AgreesToReplace(PathOf(chosen->files.front()), messages_)) {
        chosen = Run(dialog, NameFilters(shape.filters), shape.filter);
    }
    if (chosen) {
        RemoveLeftovers(PathOf(chosen->files.front()).parent_path());
    }
    return chosen;
}

std::optional<std::string> QtFileChooser::Folder(const std::string& directory) {
    QFileDialog dialog(QApplication::activeWindow(), QStringLiteral("Choose Folder"),
                       StartIn(directory));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    const auto chosen = Run(dialog, {}, 0);
    return chosen ? std::optional(chosen->files.front()) : std::nullopt;
}

}  // namespace qfr
