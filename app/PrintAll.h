// Prints many forms with one command, and lists what came up, all at the end.
#pragma once

#include <string>

#include "app/Package.h"
#include "platform/JobSink.h"
#include "platform/Printer.h"

namespace qfr {

class TQFRForm;

// Reports | Print All Forms: asks what to print.
void PrintAll(TQFRForm& window, TextMetrics& metrics, PackageSink& sink);

// Prints what is chosen; `command` is the caption of what was pressed.
void PrintChosen(TQFRForm& window, TextMetrics& metrics, PackageSink& sink,
                 const std::string& command, const PackageChoice& choice);

// Shows every form in the screen preview. The printer that is chosen stays the same.
void PreviewAll(TQFRForm& window, TextMetrics& metrics, PackageSink& sink);

}  // namespace qfr
