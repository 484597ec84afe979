#include "platform/qt/PdfSaver.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

#include <QDir>
#include <QStandardPaths>

#include "platform/FileLookup.h"
#include "platform/Text.h"

namespace qfr {

namespace {

std::string FolderFor(const Remembered& memory) {
    for (const char* const name : {kPdfFolder, kBatchFolder}) {
        if (std::string folder = memory.Folder(name); !folder.empty()) {
            return folder;
        }
    }
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return (QDir(documents).exists() && !documents.isEmpty() ? documents : QDir::homePath())
        .toStdString();
}

}  // namespace

std::optional<std::string> PdfSaver::ChooseFile(const std::string& title) {
    const auto chosen = chooser_.Save({.kind = SaveKind::kPdf,
                                       .directory = FolderFor(memory_),
                                       .fileName = FileNameForTitle(title) + ".pdf"});
    if (!chosen) {
        return std::nullopt;
    }
    memory_.KeepFolder(kPdfFolder, TextOf(PathOf(chosen->files.front()).parent_path()));
    return chosen->files.front();
}

bool PdfSaver::Write(PdfWriter& pdf, const std::string& title, const std::string& file) {
    if (pdf.Write(title, file, ReadOnlyFile::kIsReplaced)) {
        messages_.Show(CouldNotBeWritten(file));
        return false;
    }
    return true;
}

}  // namespace qfr
