// Printing with the toolkit, where there is no CUPS.
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

#include "platform/Text.h"
#include "platform/qt/PagePainter.h"
#include "platform/qt/PrinterQueue.h"

namespace qfr {

std::vector<std::string> InstalledPrinters() {
    std::vector<std::string> names;
    const QString first = QPrinterInfo::defaultPrinterName();
    if (!first.isEmpty()) {
        names.push_back(first.toStdString());
    }
    for (const QString& name : QPrinterInfo::availablePrinterNames()) {
        if (name != first) {
            names.push_back(name.toStdString());
        }
    }
    return names;
}

std::optional<std::string> PrintOnQueue(const PrintJob& job, const std::string& printer,
                                        Typeface& typeface) {
    if (job.pages.empty()) {
        return "There is no page to print.";
    }
    const QPrinterInfo queue = QPrinterInfo::printerInfo(QString::fromStdString(printer));
    if (queue.isNull()) {
        return "The printer is not installed any more.";
    }
    if (queue.state() == QPrinter::Error) {
        return "The printer is stopped.";
    }
    QPrinter device(queue, QPrinter::HighResolution);
    device.setResolution(kResolution);
    device.setFullPage(true);
    device.setDocName(QString::fromStdString(Visible(job.title)));
    device.setCreator(QStringLiteral("QFR Forms"));
    if (!device.isValid()) {
        return "The printer does not answer.";
    }
    QPainter painter;
    PagePainter pages(typeface);
    for (const JobPage& page : job.pages) {
        device.setPageSize(PageSizeOf(job.paper));
        device.setPageOrientation(page.orientation == PageOrientation::kLandscape
                                      ? QPageLayout::Landscape
                                      : QPageLayout::Portrait);
        if (painter.isActive() ? !device.newPage() : !painter.begin(&device)) {
            device.abort();
            return "The printer does not take the job.";
        }
        painter.save();
        painter.scale(device.logicalDpiX() / double{kResolution},
                      device.logicalDpiY() / double{kResolution});
        pages.Paint(painter, page);
        painter.restore();
    }
    const bool ended = painter.end();
    if (!ended || device.printerState() == QPrinter::Error ||
        device.printerState() == QPrinter::Aborted) {
        return "The printer gave up the job.";
    }
    return std::nullopt;
}

std::string PrintingLibrary() {
    return {};
}

}  // namespace qfr
