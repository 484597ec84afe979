#include "platform/qt/QtFileChooser.h"

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
    const FileFilter* first;
    std::size_t count;
    int filter;  // shown first, from 1
    const char* suffix;
};

SaveShape ShapeOf(SaveKind kind) {
    switch (kind) {
        case SaveKind::kLaboratoryFile:
            return {kSaveFilters.data(), kSaveFilters.size(), 2, "txt"};
        case SaveKind::kPdf:
            return {kPdfFilters.data(), kPdfFilters.size(), 1, "pdf"};
        case SaveKind::kBatch:
            break;
    }
    return {kSaveFilters.data(), kSaveFilters.size(), 1, "qff"};
}

QString TextOf(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// The dialog hides the last parenthesis of each, so that the user reads the names as they stand.
QStringList NameFilters(const FileFilter* first, std::size_t count) {
    QStringList filters;
    for (std::size_t i = 0; i < count; ++i) {
        QString patterns = TextOf(first[i].patterns).replace(u';', u' ');
        // "*.*" means every file, with or without an extension.
        filters += TextOf(first[i].name) + " (" + (patterns == "*.*" ? "*" : patterns) + ")";
    }
    return filters;
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

std::optional<ChosenFiles> Run(QFileDialog& dialog, const QStringList& filters, int filter) {
    // One dialog everywhere: it sorts, filters and asks alike on every desktop.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(filters);
    const qsizetype first = filter >= 1 && filter <= filters.size() ? filter - 1 : 0;
    dialog.selectNameFilter(filters[first]);
    NameLists(dialog);
    const AskingCursor asking;
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    ChosenFiles chosen;
    for (const QString& file : dialog.selectedFiles()) {
        chosen.files.push_back(QDir::toNativeSeparators(file).toStdString());
    }
    // The dialog tells the name alone, as it shows it.
    for (qsizetype i = 0; i < filters.size(); ++i) {
        if (filters[i].startsWith(dialog.selectedNameFilter())) {
            chosen.filter = static_cast<int>(i) + 1;
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
    return Run(dialog, NameFilters(kOpenFilters.data(), kOpenFilters.size()), request.filter);
}

std::optional<ChosenFiles> QtFileChooser::Save(const SaveRequest& request) {
    const SaveShape shape = ShapeOf(request.kind);
    QFileDialog dialog(QApplication::activeWindow(), QStringLiteral("Save As"),
                       StartIn(request.directory));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(QString::fromLatin1(shape.suffix));
    dialog.selectFile(QString::fromStdString(request.fileName));
    return Run(dialog, NameFilters(shape.first, shape.count), shape.filter);
}

}  // namespace qfr
