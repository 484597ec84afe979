// What makes a PDF document one for the archive (PDF/A-2u): who made it, when and of what, in the
// words that archives read, and what its black is.
#pragma once

#include <set>
#include <string>

#include "platform/pdf/Qpdf.h"

namespace qfr {

struct DocumentData {
    std::string title;
    // What it holds: the forms and the samples of its jobs (UTF-8).
    std::set<std::string> subjects;
};

// Puts the data into the document, once. The time is that of SOURCE_DATE_EPOCH (seconds since 1970)
// where the environment holds it, else now, both in the local time zone.
void AddArchiveData(QPDF& document, const DocumentData& data);

}  // namespace qfr
