// The outline of a PDF document that holds several print jobs.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QByteArray>

#include "platform/PrintJob.h"

namespace qfr {

// Lists the jobs whose pages `pdf` holds, in order: below each form its samples, each leading to
// its first page that shows something; a viewer opens the document with the list beside the pages.
// The reason of a failure, absent on success; after a failure `pdf` is as it was.
std::optional<std::string> AddOutline(QByteArray& pdf, const std::vector<PrintJob>& jobs);

// Name and version of the library that does it.
std::string OutlineLibrary();

}  // namespace qfr
