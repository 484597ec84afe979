// Reports | Print All Forms: asks what to print, prints it, and lists what came up, all at the end.
#pragma once

#include "platform/JobSink.h"
#include "platform/Printer.h"

namespace qfr {

class TQFRForm;

void PrintAll(TQFRForm& window, TextMetrics& metrics, PackageSink& sink);

}  // namespace qfr
