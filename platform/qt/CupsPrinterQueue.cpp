// Printing with CUPS: the toolkit's printing drops a job that CUPS refuses without a word.
#include "platform/pdf/PdfFile.h"
#include "platform/posix/Cups.h"
#include "platform/qt/PrinterQueue.h"

namespace qfr {

std::vector<std::string> InstalledPrinters() {
    return CupsQueues();
}

std::optional<std::string> PrintOnQueue(const PrintJob& job, const std::string& printer,
                                        Typeface& typeface) {
    std::string reason;
    const std::string pdf = PdfForQueue(job, typeface, reason);
    return pdf.empty() ? reason : PrintWithCups({job.title, job.paper, pdf}, printer);
}

std::string PrintingLibrary() {
    return CupsVersion();
}

}  // namespace qfr
