// What qfrbatch loads when it is needed. A run that prints nothing starts without the libraries of
// PDF files, and a machine that has no CUPS prints into files.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/JobSink.h"
#include "platform/PrintJob.h"
#include "platform/Printer.h"

namespace qfr {

// The module "qfr-pdf".
class PdfModule {
  public:
    // The function that makes it, of the type below; null where the forms' typeface is not
    // installed.
    static constexpr char kFile[] = "qfr-pdf";
    static constexpr char kFunction[] = "QfrPdfModule";

    virtual ~PdfModule() = default;
    virtual TextMetrics& Metrics() = 0;
    virtual std::unique_ptr<PdfWriter> NewPdf() = 0;
    // The job as its pages lie on the paper in a printer. Empty after a failure, whose reason is in
    // `reason`.
    virtual std::string PdfForQueue(const PrintJob& job, std::string& reason) = 0;
};

// The module "qfr-cups".
class QueueModule {
  public:
    static constexpr char kFile[] = "qfr-cups";
    static constexpr char kFunction[] = "QfrQueueModule";

    virtual ~QueueModule() = default;
    virtual std::vector<std::string> Printers() = 0;
    // Prints what PdfForQueue has made of the job. The reason of a failure, absent on success.
    virtual std::optional<std::string> Print(const PrintJob& job, const std::string& pdf,
                                             const std::string& printer) = 0;
};

}  // namespace qfr
