// "Save this as PDF": asks for the file, starting where the last one went, or beside the batch.
#pragma once

#include <optional>
#include <string>

#include "platform/FileChooser.h"
#include "platform/JobSink.h"
#include "platform/Messages.h"
#include "platform/qt/Remembered.h"

namespace qfr {

class PdfSaver {
  public:
    PdfSaver(FileChooser& chooser, Messages& messages, Remembered& memory)
        : chooser_(chooser), messages_(messages), memory_(memory) {}

    // Proposes a name made of the title. The full path (UTF-8), absent when the user
    // cancelled.
    std::optional<std::string> ChooseFile(const std::string& title);
    // False after the message that the file could not be written.
    bool Write(PdfWriter& pdf, const std::string& title, const std::string& file);

  private:
    FileChooser& chooser_;
    Messages& messages_;
    Remembered& memory_;
};

}  // namespace qfr
