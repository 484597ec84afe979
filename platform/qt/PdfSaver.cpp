#include "platform/qt/PdfSaver.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

#include "platform/FileLookup.h"
#include "platform/Text.h"

namespace qfr {

std::optional<std::string> PdfSaver::ChooseFile(const std::string& title) {
    const auto chosen = chooser_.Save({.kind = SaveKind::kPdf,
                                       .directory = memory_.UsersFolder({kPdfFolder, kBatchFolder}),
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
