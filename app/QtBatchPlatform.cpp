#include "app/QtBatchPlatform.h"

#include <iostream>

#include "platform/qt/PdfFile.h"
#include "platform/qt/PdfSaver.h"
#include "platform/qt/PrinterQueue.h"

namespace qfr {

namespace {

// Qt's remarks about the machine are none of the command's messages.
void DropRemark(QtMsgType type, const QMessageLogContext& /*where*/, const QString& text) {
    if (type == QtFatalMsg) {
        std::cerr << "qfrbatch: " << text.toStdString() << '\n';
    }
}

}  // namespace

std::optional<std::string> QtBatchPlatform::Start() {
    if (!QCoreApplication::instance()) {
        qInstallMessageHandler(DropRemark);
        // Whatever the desktop around it is set to, the command draws on none.
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qunsetenv("QT_QPA_PLATFORMTHEME");
        qunsetenv("QT_DEBUG_PLUGINS");
        static int argumentCount = 1;
        static char programName[] = "qfrbatch";
        static char* arguments[] = {programName, nullptr};
        application_ = std::make_unique<QGuiApplication>(argumentCount, arguments);
    }
    if (FormTypeface().empty()) {
        return std::string(kNoTypeface);
    }
    drawing_ = std::make_unique<Drawing>();
    return std::nullopt;
}

std::optional<std::string> QtBatchPlatform::WritePdf(const std::vector<PrintJob>& jobs,
                                                     const std::string& title,
                                                     const std::string& fileName) {
    return qfr::WritePdf(jobs, title, fileName, drawing_->fonts);
}

std::string QtBatchPlatform::FileNameForTitle(const std::string& title) {
    return qfr::FileNameForTitle(title);
}

std::vector<std::string> QtBatchPlatform::Printers() {
    return InstalledPrinters();
}

std::optional<std::string> QtBatchPlatform::PrintOnQueue(const PrintJob& job,
                                                         const std::string& printer) {
    return qfr::PrintOnQueue(job, printer, drawing_->fonts);
}

}  // namespace qfr
