// Reports | Export Values: asks where the values go, writes them, and says how it went.
#pragma once

#include <string>

#include "app/ExportValues.h"
#include "platform/FileChooser.h"
#include "platform/Printer.h"
#include "platform/qt/Remembered.h"

namespace qfr {

class TQFRForm;

// `directory`: where the user looks first who has never exported any values (UTF-8).
void ExportFromMenu(TQFRForm& window, TextMetrics& metrics, FileChooser& chooser,
                    ExportFormat format, const std::string& directory, Remembered& memory);

}  // namespace qfr
