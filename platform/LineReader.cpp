#include "platform/LineReader.h"

#include <algorithm>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The size in bytes; absent for what is no file: a pipe or a device may never end.
std::optional<std::uintmax_t> FileSize(const std::filesystem::path& file) {
    std::error_code error;
    const auto size = std::filesystem::file_size(file, error);
    return error ? std::nullopt : std::optional(size);
}

// The first `size` bytes, less where the file has become shorter.
std::optional<std::string> ReadBytes(const std::filesystem::path& file, std::uintmax_t size) {
    std::ifstream in(file, std::ios::binary);
    std::string content(static_cast<std::size_t>(size), '\0');
    in.read(content.data(), static_cast<std::streamsize>(content.size()));
    if (!in.is_open() || in.bad()) {
        return std::nullopt;
    }
    content.resize(static_cast<std::size_t>(in.gcount()));
    return content;
}

}  // namespace

bool LineReader::IsTooLarge(const std::filesystem::path& file) {
    return FileSize(file).value_or(0) > kMaxFileSize;
}

std::optional<LineReader> LineReader::Open(const std::filesystem::path& file) {
    const auto size = FileSize(file);
    return size ? Open(file, *size) : std::nullopt;
}

std::optional<LineReader> LineReader::Open(const std::filesystem::path& file, std::uintmax_t size) {
    auto content = size <= kMaxFileSize ? ReadBytes(file, size) : std::nullopt;
    return content ? std::optional<LineReader>(std::in_place, *std::move(content)) : std::nullopt;
}

std::optional<LineReader> LineReader::OpenHead(const std::filesystem::path& file, int lines) {
    const auto size = FileSize(file);
    auto content =
        size ? ReadBytes(file, std::min<std::uintmax_t>(*size, kMaxHeadSize)) : std::nullopt;
    if (!content) {
        return std::nullopt;
    }
    std::size_t end = 0;
    for (; lines > 0 && end < content->size(); --lines) {
        end = std::min(content->find('\n', end), content->size() - 1) + 1;
    }
    content->resize(end);
    return LineReader(*std::move(content));
}

LineReader::LineReader(std::string content) : content_(std::move(content)) {
    std::ranges::replace(content_, '\0', ' ');
    if (content_.starts_with(kByteOrderMark)) {
        content_.erase(0, kByteOrderMark.size());
    }
    content_ = ToUtf8(std::move(content_));
}

std::optional<std::string> LineReader::Next() {
    auto line = NextPiece(kMaxLineLength);
    if (line && content_[position_ - 1] != '\n') {
        position_ = std::min(content_.find('\n', position_), content_.size() - 1) + 1;
    }
    return line;
}

std::optional<std::string> LineReader::NextPiece(std::size_t maxCharacters) {
    if (AtEnd()) {
        return std::nullopt;
    }
    const std::string_view rest = std::string_view(content_).substr(position_);
    const std::string_view withEnd = rest.substr(0, rest.find('\n'));
    std::string_view line = withEnd;
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    const std::string_view piece = FirstCharacters(line, maxCharacters);
    position_ += piece.size() < line.size() ? piece.size() : withEnd.size() + 1;
    position_ = std::min(position_, content_.size());
    return std::string(piece);
}

std::string LineReader::NextOrEmpty() {
    return Next().value_or(std::string());
}

}  // namespace qfr
