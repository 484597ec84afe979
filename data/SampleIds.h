// What laboratories tell by the ID of a sample, or the name of its file.
#pragma once

#include <string_view>

namespace qfr {

// Whether it is a method blank's: "VBLK01", "F0505-MB2", "Method Blank". Trip, field, holding and
// instrument blanks are samples.
bool IsBlankId(std::string_view id);

// Whether it is that of a standard, "VSTD050", or of a tune, "BFB0518".
bool IsStandardId(std::string_view id);

}  // namespace qfr
