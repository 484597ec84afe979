#include "platform/qt/QtFileChooser.h"

#include <span>
#include <utility>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QStringList>

#include "platform/qt/WaitCursor.h"

namespace qfr {

namespace {

constexpr std::array<FileFilter, 2> kPdfFilters = {{
    {"PDF Files (*.pdf)", "*.pdf"},
    {"All Files (*.*)", "*.*"},
}};

struct SaveShape {
    std::span<const FileFilter> filters;
    std::size_t filter;  // shown first
    const char* suffix;
};

SaveShape ShapeOf(SaveKind kind) {
    switch (kind) {
        case SaveKind::kLaboratoryFile:
            return {kSaveFilters, 1, "txt"};
        case SaveKind::kPdf:
            return {kPdfFilters, 0, "pdf"};
        case SaveKind::kBatch:
            break;
    }
    return {kSaveFilters, 0, "qff"};
}

QString TextOf(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// The dialog hides the last parenthesis of each, so that the user reads the names as they stand.
QStringList NameFilters(std::span<const FileFilter> filters) {
    QStringList names;
    for (const FileFilter& filter : filters) {
        QString patterns = TextOf(filter.patterns).replace(u';', u' ');
        // "*.*" means every file, with or without an extension.
        names += TextOf(filter.name) + " (" + (patterns == "*.*" ? "*" : patterns) + ")";
    }
    return names;
}

// The directory, or the nearest one above it that is still there.
QString StartIn(const std::string& directory) {
    QString path = QDir::cleanPath(QDir::fromNativeSeparators(QString::fromStdString(directory)));
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

// What the user chose, and the filter that the dialog ended with; absent when he cancelled.
struct Choice {
    std::vector<std::string> files;
    std::size_t filter = 0;
};

std::optional<Choice> Run(QFileDialog& dialog, const QStringList& filters, std::size_t filter) {
    // One dialog everywhere: it sorts, filters and asks alike on every desktop.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters[static_cast<qsizetype>(filter)]);
    NameLists(dialog);
    const AskingCursor asking;
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    Choice chosen;
    for (const QString& file : dialog.selectedFiles()) {
        chosen.files.push_back(QDir::toNativeSeparators(file).toStdString());
    }
    // The dialog tells the name alone, as it shows it.
    for (qsizetype i = 0; i < filters.size(); ++i) {
        if (filters[i].startsWith(dialog.selectedNameFilter())) {
            chosen.filter = static_cast<std::size_t>(i);
        }
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
    const auto chosen = Run(dialog, NameFilters(filters), static_cast<std::size_t>(request.kind));
    return chosen ? std::optional(ChosenFiles{chosen->files, kFileKinds.at(chosen->filter).kind})
                  : std::nullopt;
}

std::optional<ChosenFiles> QtFileChooser::Save(const SaveRequest& request) {
    const SaveShape shape = ShapeOf(request.kind);
    QFileDialog dialog(QApplication::activeWindow(), QStringLiteral("Save As"),
                       StartIn(request.directory));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(QString::fromLatin1(shape.suffix));
    dialog.selectFile(QString::fromStdString(request.fileName));
    const auto chosen = Run(dialog, NameFilters(shape.filters), shape.filter);
    return chosen ? std::optional(ChosenFiles{chosen->files}) : std::nullopt;
}

}  // namespace qfr
