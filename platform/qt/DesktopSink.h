// Takes the desktop program's print jobs to the chosen printer, to a PDF file or to the preview.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/BoxesNote.h"
#include "platform/FileChooser.h"
#include "platform/JobSink.h"
#include "platform/Messages.h"
#include "platform/PrintLog.h"
#include "platform/pdf/Typeface.h"
#include "platform/qt/PdfSaver.h"
#include "platform/qt/Remembered.h"

namespace qfr {

inline const std::string kPdfPrinter = "PDF file";
inline const std::string kPreviewPrinter = "Screen preview";

class DesktopSink : public JobSink, public PackageSink {
  public:
    // All outlive the sink. What has reached a printer or a file is noted in `printed`.
    DesktopSink(Typeface& typeface, FileChooser& chooser, Messages& messages, PrintLog& printed,
                Remembered& memory)
        : typeface_(typeface),
          messages_(messages),
          printed_(printed),
          memory_(memory),
          pdfSaver_(chooser, messages, memory) {}

    // Installed printers, then "PDF file", then "Screen preview". Indexes of the jobs refer to it,
    // so it stays the same for the run.
    const std::vector<std::string>& Printers();

    bool BeginJob(int printerIndex, const std::string& title) override;
    void TakeJob(int printerIndex, PrintJob job) override;
    // A printer gets each job at once; the PDF file, chosen now, and the preview show all jobs
    // together when the package is finished.
    std::unique_ptr<JobPackage> BeginPackage(int printerIndex, const std::string& title) override;

  private:
    const std::string& PrinterAt(int index);

    Typeface& typeface_;
    Messages& messages_;
    BoxesNote boxes_;
    PrintLog& printed_;
    Remembered& memory_;
    PdfSaver pdfSaver_;
    std::vector<std::string> printers_;
    std::unique_ptr<JobPackage> job_;  // the job being recorded, as a package of its own
};

}  // namespace qfr
