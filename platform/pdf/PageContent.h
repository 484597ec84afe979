// What a PDF file says of a page: its texts and rules in the language of PDF.
#pragma once

#include <string>

#include "platform/PrintJob.h"
#include "platform/pdf/Typeface.h"

namespace qfr {

class DocumentFonts;

// How the landscape pages of a document lie: to be read, or on the paper as it goes through a
// printer, upright, with their top along its left edge.
enum class Landscape { kUpright, kTurnedOntoPaper };

// The operators that draw the page, uncompressed. The characters get their codes from `fonts`.
std::string PageContent(const JobPage& page, Landscape landscape, Typeface& typeface,
                        DocumentFonts& fonts);

}  // namespace qfr
