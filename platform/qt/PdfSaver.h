// "Save this as PDF": asks for the file, starting where the last one went.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/FileChooser.h"
#include "platform/Messages.h"
#include "platform/PrintJob.h"
#include "platform/qt/QtTextMetrics.h"

namespace qfr {

class PdfSaver {
  public:
    PdfSaver(FormFonts& fonts, FileChooser& chooser, Messages& messages)
        : fonts_(fonts), chooser_(chooser), messages_(messages) {}

    // Proposes a name made of the title. The full path (UTF-8), absent when the user
    // cancelled.
    std::optional<std::string> ChooseFile(const std::string& title);
    // Writes the jobs as one document. False after the message that the file could not be written.
    bool Write(const std::vector<PrintJob>& jobs, const std::string& title,
               const std::string& file);

  private:
    FormFonts& fonts_;
    FileChooser& chooser_;
    Messages& messages_;
    std::string directory_;  // last used in this run
};

// A title as a file name without extension: without the characters that file systems refuse.
std::string FileNameForTitle(const std::string& title);

}  // namespace qfr
