// What Form I VOA-TIC takes over from the data sheet of Form I VOA.
#pragma once

#include <string_view>

#include "forms/FormContent.h"
#include "forms/Page.h"

namespace qfr {

// The title of both.
inline constexpr std::string_view kDataSheetTitle = "VOLATILE ORGANICS ANALYSIS DATA SHEET";

// The header of the page being drawn.
void PrintFormIVoaHeader(Page& page, const FormContent& content);

}  // namespace qfr
