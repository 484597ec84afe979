// Printing with CUPS.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/PrintJob.h"

namespace qfr {

// Names of the queues, the default one first; none where no print service answers.
std::vector<std::string> CupsQueues();

// A document whose pages are as large as the paper and lie as it lies in the printer.
struct CupsDocument {
    std::string title;
    Paper paper;
    std::string pdf;
};

// Sends the document as one job. The reason of a failure, a sentence, absent on success.
std::optional<std::string> PrintWithCups(const CupsDocument& document, const std::string& queue);

// Of the library, with its name.
std::string CupsVersion();

}  // namespace qfr
