// Where the system keeps its fonts.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qfr {

struct FontFile {
    std::string path;  // as the system names it
    unsigned face = 0;  // of a file that holds several, from 0
    bool operator==(const FontFile&) const = default;
};

// The regular face of the family, in outlines; absent when the family is not installed. A likeness
// that the system offers in its place does not count.
std::optional<FontFile> FindFamily(const std::string& family);

// The other installed fonts, those most like a family first.
class OtherFonts {
  public:
    explicit OtherFonts(const std::string& family);
    ~OtherFonts();
    OtherFonts(const OtherFonts&) = delete;
    OtherFonts& operator=(const OtherFonts&) = delete;

    // The first font of one colour, in outlines, that has the character; absent without one.
    std::optional<FontFile> With(char32_t character) const;

  private:
    struct List;
    std::unique_ptr<List> list_;
};

}  // namespace qfr
