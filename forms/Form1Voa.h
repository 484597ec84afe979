// What Form I VOA-TIC takes over from the data sheet of Form I VOA.
#pragma once

#include <string_view>

#include "forms/FormContent.h"
#include "forms/Page.h"

namespace qfr {

// The title of both.
inline constexpr std::string_view kDataSheetTitle = "VOLATILE ORGANICS ANALYSIS DATA SHEET";

// The last of its fields, which Form I VOA-TIC has at another place.
inline constexpr FieldPlace<FormContent> kPurgeVolume = {
    "Purge Volume:", HeaderField::kPurgeVolume, 0.9, 3.7, 2.05, "(mL)", 3.95};

// The header of the page being drawn.
void PrintFormIVoaHeader(Page& page, const FormContent& content);

}  // namespace qfr
