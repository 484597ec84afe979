#include "platform/qt/PdfSaver.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

#include <QDir>
#include <QStandardPaths>

#include "platform/FileLookup.h"
#include "platform/Text.h"
#include "platform/qt/PdfFile.h"

namespace qfr {

namespace {

std::string FirstDirectory() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return (QDir(documents).exists() && !documents.isEmpty() ? documents : QDir::homePath())
        .toStdString();
}

}  // namespace

std::optional<std::string> PdfSaver::ChooseFile(const std::string& title) {
    if (directory_.empty()) {
        directory_ = FirstDirectory();
    }
    const auto chosen = chooser_.Save({.kind = SaveKind::kPdf,
                                       .directory = directory_,
                                       .fileName = FileNameForTitle(title) + ".pdf"});
    if (!chosen) {
        return std::nullopt;
    }
    directory_ = TextOf(PathOf(chosen->files.front()).parent_path());
    return chosen->files.front();
}

bool PdfSaver::Write(const std::vector<PrintJob>& jobs, const std::string& title,
                     const std::string& file) {
    if (WritePdf(jobs, title, file, fonts_, ReadOnlyFile::kIsReplaced)) {
        messages_.Show(CouldNotBeWritten(file));
        return false;
    }
    return true;
}

std::string FileNameForTitle(const std::string& title) {
    static constexpr std::string_view kRefused = "\\/:*?\"<>|";
    constexpr std::size_t kMaxCharacters = 60;  // of four bytes, with room for an extension
    std::string name(FirstCharacters(Trim(title), kMaxCharacters));
    std::ranges::replace_if(
        name, [](char c) { return kRefused.find(c) != std::string_view::npos; }, '-');
    name = Visible(name);
    if (std::filesystem::path::preferred_separator == '\\') {
        std::ranges::replace(name, '?', '-');
    }
    // Windows drops blanks and dots at the end, and a leading dot hides a file elsewhere.
    name.erase(name.find_last_not_of(" .") + 1);
    name.erase(0, name.find_first_not_of(" ."));
    return name.empty() ? "Form" : name;
}

}  // namespace qfr
