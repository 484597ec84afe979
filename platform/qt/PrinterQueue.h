// Printing on the installed printers.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Messages.h"
#include "platform/PrintJob.h"
#include "platform/pdf/Typeface.h"

namespace qfr {

// Names of the installed printers, the default one first.
std::vector<std::string> InstalledPrinters();

// Sends the job, full page, with its title, paper and orientation. The reason of a failure, a
// sentence, absent on success.
std::optional<std::string> PrintOnQueue(const PrintJob& job, const std::string& printer,
                                        Typeface& typeface);

// Name and version of the library that does it; empty where that is the system itself.
std::string PrintingLibrary();

// Tells the user of such a failure.
inline Message CouldNotBePrinted(const std::string& title, const std::string& printer,
                                 const std::string& reason) {
    return {.text = title + " could not be printed on " + printer + ".\n" + reason,
            .title = "Printer Error",
            .icon = MessageIcon::kWarning};
}

}  // namespace qfr
