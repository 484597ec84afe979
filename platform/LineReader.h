// The one way the program reads text files. A file is taken whole when it is opened, so memory goes
// with the file's size, and nothing read from it can decide how much more is allocated.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace qfr {

class LineReader {
  public:
    // A longer line is cut here and its rest is dropped (characters).
    static constexpr std::size_t kMaxLineLength = 1 << 20;
    // A larger file is treated as one that cannot be opened (bytes, and as it is told).
    static constexpr std::size_t kMaxFileSize = std::size_t{1} << 26;
    static constexpr std::string_view kMaxFileSizeText = "64 MB";
    // Whether it is such a file.
    static bool IsTooLarge(const std::filesystem::path& file);

    // Absent when the file does not exist, is a directory, cannot be read or is too large.
    // The content is UTF-8, or Windows-1252 when it is no valid UTF-8; NULs become blanks.
    static std::optional<LineReader> Open(const std::filesystem::path& file);
    // As Open, for a file of which the size has just been asked (bytes).
    static std::optional<LineReader> Open(const std::filesystem::path& file, std::uintmax_t size);

    // As Open, for a file of any size of which nothing behind its first lines is looked at. They
    // are looked for in the first kMaxHeadSize bytes.
    static std::optional<LineReader> OpenHead(const std::filesystem::path& file, int lines);
    static constexpr std::size_t kMaxHeadSize = std::size_t{1} << 16;

    // Reads lines of a text in memory instead of a file.
    explicit LineReader(std::string content);

    // The next line without its LF or CR LF; absent at the end of the file. A last line without a
    // line end counts; an empty rest after the last line end does not.
    std::optional<std::string> Next();

    // As Next, but at most `maxCharacters` of the line; its rest is read as the next line.
    std::optional<std::string> NextPiece(std::size_t maxCharacters);

    // As Next, but an empty text at the end of the file.
    std::string NextOrEmpty();

    bool AtEnd() const { return position_ >= content_.size(); }

    // A place to return to with Seek; 0 is the start.
    std::size_t Position() const { return position_; }
    void Seek(std::size_t position) { position_ = position; }

  private:
    std::string content_;
    std::size_t position_ = 0;
};

}  // namespace qfr
