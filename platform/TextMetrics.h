// The one service that drawing needs from outside: how large a text is in the forms' typeface.
#pragma once

#include <string_view>

namespace qfr {

class TextMetrics {
  public:
    virtual ~TextMetrics() = default;
    // Sum of the advance widths of the characters at `points` points, rounded to whole pixels at
    // kResolution. No kerning, no ligatures.
    virtual int TextWidth(std::string_view utf8, int points) = 0;
    // Ascent plus descent at `points` points, in whole pixels at kResolution.
    virtual int TextHeight(int points) = 0;
};

}  // namespace qfr
