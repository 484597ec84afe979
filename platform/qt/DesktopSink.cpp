#include "platform/qt/DesktopSink.h"

#include <utility>

#include <QApplication>

#include "platform/qt/PreviewWindow.h"
#include "platform/qt/PrinterQueue.h"
#include "platform/qt/WaitCursor.h"

namespace qfr {

const std::vector<std::string>& DesktopSink::Printers() {
    if (printers_.empty()) {
        const WaitCursor wait;
        printers_ = InstalledPrinters();
        printers_.push_back(kPdfPrinter);
        printers_.push_back(kPreviewPrinter);
    }
    return printers_;
}

const std::string& DesktopSink::PrinterAt(int index) {
    const std::vector<std::string>& printers = Printers();
    const auto at = static_cast<std::size_t>(index);
    return index >= 0 && at < printers.size() ? printers[at] : printers.back();
}

bool DesktopSink::BeginJob(int printerIndex, const std::string& title) {
    if (PrinterAt(printerIndex) != kPdfPrinter) {
        return true;
    }
    const auto file = pdfSaver_.ChooseFile(title);
    pdfFile_ = file.value_or("");
    return file.has_value();
}

void DesktopSink::TakeJob(int printerIndex, PrintJob job) {
    const std::string& printer = PrinterAt(printerIndex);
    if (printer == kPdfPrinter) {
        pdfSaver_.Write(job, pdfFile_);
    } else if (printer == kPreviewPrinter) {
        PreviewWindow preview(std::move(job), fonts_, pdfSaver_, messages_,
                              QApplication::activeWindow());
        const AskingCursor asking;
        preview.exec();
    } else if (const auto reason = PrintOnQueue(job, printer, fonts_)) {
        messages_.Show(CouldNotBePrinted(job.title, printer, *reason));
    }
}

}  // namespace qfr
