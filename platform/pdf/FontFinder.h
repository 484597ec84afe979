// Where the system keeps its fonts.
#pragma once

#include <memory>
#include <optional>
#include <string>

namespace qfr {

struct FontFile {
    std::string path;   // as the system names it
    unsigned face = 0;  // of a file that holds several, from 0
    bool operator==(const FontFile&) const = default;
};

class FontFinder {
  public:
    FontFinder();
    ~FontFinder();
    FontFinder(const FontFinder&) = delete;
    FontFinder& operator=(const FontFinder&) = delete;

    // The regular face of the family, in outlines; absent when the family is not installed. A
    // likeness that the system offers in its place does not count.
    std::optional<FontFile> Family(const std::string& family) const;
    // Of the other fonts, those most like the family first, the first one of one colour, in
    // outlines, that has the character; absent without one.
    std::optional<FontFile> With(char32_t character, const std::string& family);

  private:
    struct Fonts;
    std::unique_ptr<Fonts> fonts_;
};

}  // namespace qfr
