// "Save this as PDF": asks for the file, starting where the last one went.
#pragma once

#include <optional>
#include <string>

#include "platform/FileChooser.h"
#include "platform/JobSink.h"
#include "platform/Messages.h"

namespace qfr {

class PdfSaver {
  public:
    PdfSaver(FileChooser& chooser, Messages& messages) : chooser_(chooser), messages_(messages) {}

    // Proposes a name made of the title. The full path (UTF-8), absent when the user
    // cancelled.
    std::optional<std::string> ChooseFile(const std::string& title);
    // False after the message that the file could not be written.
    bool Write(PdfWriter& pdf, const std::string& title, const std::string& file);

  private:
    FileChooser& chooser_;
    Messages& messages_;
    std::string directory_;  // last used in this run
};

}  // namespace qfr
