#include "app/PathsFile.h"

#include <algorithm>
#include <optional>

#include "platform/FileReplace.h"
#include "platform/LineReader.h"
#include "platform/Text.h"

namespace qfr {

namespace {

const std::string kFileName = "QFRpaths.txt";
constexpr std::string_view kInstallPath = "installPath";
constexpr std::size_t kMaxLineLength = 99;  // characters; the rest is read as the next line

// The lines of the file have always gone out through the format of a print call: "%%" comes out as
// "%", and any other conversion of a directory's name comes out as nothing.
std::string ExpandFormat(std::string_view format) {
    const auto skip = [&format](std::size_t& i, std::string_view characters) {
        while (i < format.size() && characters.find(format[i]) != std::string_view::npos) {
            ++i;
        }
    };
    std::string result;
    for (std::size_t i = 0; i < format.size();) {
        if (format[i] != '%') {
            result += format[i++];
            continue;
        }
        ++i;
        if (i < format.size() && format[i] == '%') {
            result += '%';
            ++i;
            continue;
        }
        skip(i, "-+ #0");
        skip(i, "0123456789*");
        skip(i, ".");
        skip(i, "0123456789*");
        skip(i, "hlLqjzt");
        // The conversion itself may be any character, of one byte or more.
        i += FirstCharacters(format.substr(std::min(i, format.size())), 1).size();
    }
    return result;
}

bool CanBeLine(std::string_view directory) {
    return FirstCharacters(directory, kMaxLineLength).size() == directory.size() &&
           IsUtf8(directory) && directory.find_first_of("\r\n") == std::string_view::npos;
}

}  // namespace

void PathsFile::Read(bool tells) {
    known_ = true;
    std::optional<LineReader> file = LineReader::Open(settings_.ForReading(kFileName));
    if (!file && tells) {
        messages_.Show({"Pathfile missing.  Creating new pathfile.", ""});
        NewPathsFile();
        file = LineReader::Open(settings_.ForReading(kFileName));
    }
    if (file) {
        std::string last;
        for (std::string& text : lines_) {
            if (std::optional<std::string> line = file->NextPiece(kMaxLineLength)) {
                last = Trim(*line);
            } else if (tells) {
                messages_.Show({"End of file:\nreached before expected", "Message"});
            }
            text = last;
        }
    }
}

std::string PathsFile::ReadPath(FileKind kind) {
    Read(true);
    const std::string& path = LineAt(RowOf(kind).startsFrom);
    return path == kInstallPath ? settings_.ProgramDir() + "example" + settings_.ProgramDir().back()
                                : path;
}

bool PathsFile::IsInitial(int line) {
    const std::string& path = LineAt(line);
    return path.empty() || path == kInstallPath || path == settings_.ProgramDir();
}

std::string PathsFile::StartFolder(FileKind kind) {
    const std::string own = ReadPath(kind);
    const int line = RowOf(kind).startsFrom;
    const int reports = RowOf(FileKind::kQuantReport).startsFrom;
    return line != RowOf(FileKind::kText).startsFrom && IsInitial(line) && !IsInitial(reports)
               ? LineAt(reports)
               : own;
}

void PathsFile::RememberDir(std::string_view fileName, FileKind kind) {
    // What there is to tell was told when the choice began; reports may be dropped without one.
    Read(!known_);
    const std::string directory = FolderOnly(fileName);
    if (const int line = RowOf(kind).remembered; line > 0 && CanBeLine(directory)) {
        LineAt(line) = directory;
    }
    for (std::string& text : lines_) {
        text = ExpandFormat(text);
    }
    Write();
}

void PathsFile::NewPathsFile() {
    lines_.fill(settings_.ProgramDir());
    Write();
}

void PathsFile::Write() {
    std::string content;
    for (const std::string& text : lines_) {
        content += text + "\n";
    }
    // A directory that is not remembered is a small loss; the choice just made goes on.
    static_cast<void>(ReplaceFile(settings_.ForWriting(kFileName), content));
}

}  // namespace qfr
