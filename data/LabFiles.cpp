#include "data/LabFiles.h"

#include <functional>
#include <utility>

#include "platform/FileReplace.h"
#include "platform/LineReader.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::size_t kMaxDefaultLength = 29;  // characters

std::optional<std::vector<std::string>> ReadValues(
    const std::filesystem::path& file, std::size_t most,
    const std::function<std::string(LineReader&)>& next) {
    auto lines = LineReader::Open(file);
    if (!lines) {
        return std::nullopt;
    }
    std::vector<std::string> values;
    while (values.size() < most && !lines->AtEnd()) {
        values.push_back(next(*lines));
    }
    return values;
}

}  // namespace

std::optional<std::vector<std::string>> ReadDefaultsFile(const std::filesystem::path& file) {
    return ReadValues(file, kDefaultsFields.size(), [](LineReader& lines) {
        return Trim(lines.NextPiece(kMaxDefaultLength).value_or(""));
    });
}

std::optional<std::vector<std::string>> ReadLaboratoryFile(const std::filesystem::path& file) {
    return ReadValues(file, kLaboratoryFields.size(), &LineReader::NextOrEmpty);
}

Message CouldNotReadValues() {
    return {.text = "Can't perform one of the following file operations: Open, Seek, Read, Close",
            .title = "FileError",
            .offerCancel = true};
}

std::vector<Message> MakeBatchTexts(std::vector<std::string>& values, std::string_view fileName) {
    std::vector<Message> messages;
    std::vector<std::string> changed;
    bool cut = false;
    for (std::string& value : values) {
        cut |= CutText(value);
        std::string text = BatchText(value);
        if (text != value) {
            changed.push_back(FileNameOnly(fileName) + ": " + value);
        }
        value = std::move(text);
    }
    if (cut) {
        messages.push_back(TextsWereCut(fileName));
    }
    if (!changed.empty()) {
        messages.push_back(ListMessage(std::string(kDelimiterTaken), changed));
    }
    return messages;
}

std::optional<std::string> WriteValueLines(const std::filesystem::path& file,
                                           const std::vector<std::string>& values) {
    std::string content;
    for (const std::string& value : values) {
        content += OneLine(value) + "\n";
    }
    return ReplaceFile(file, content, ReadOnlyFile::kIsReplaced);
}

}  // namespace qfr
