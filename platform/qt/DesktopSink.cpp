#include "platform/qt/DesktopSink.h"

#include <functional>
#include <utility>

#include <QApplication>

#include "platform/qt/PreviewWindow.h"
#include "platform/qt/PrinterQueue.h"
#include "platform/qt/WaitCursor.h"

namespace qfr {

namespace {

class QueuePackage : public JobPackage {
  public:
    QueuePackage(std::string printer, FormFonts& fonts)
        : printer_(std::move(printer)), fonts_(fonts) {}

    std::optional<Message> Take(PrintJob job) override {
        if (const auto reason = PrintOnQueue(job, printer_, fonts_)) {
            return CouldNotBePrinted(job.title, printer_, *reason);
        }
        ++printed_;
        return std::nullopt;
    }
    void Finish() override {}
    std::size_t Printed() const override { return printed_; }

  private:
    const std::string printer_;
    FormFonts& fonts_;
    std::size_t printed_ = 0;
};

// Keeps the jobs until all of them can be shown together.
class JoinedPackage : public JobPackage {
  public:
    // `show` gets the jobs, unless there is none: true when they have reached the user.
    explicit JoinedPackage(std::function<bool(std::vector<PrintJob> jobs)> show)
        : show_(std::move(show)) {}

    std::optional<Message> Take(PrintJob job) override {
        jobs_.push_back(std::move(job));
        return std::nullopt;
    }
    void Finish() override {
        const std::size_t count = jobs_.size();
        if (count > 0 && show_(std::exchange(jobs_, {}))) {
            printed_ = count;
        }
    }
    std::size_t Printed() const override { return printed_; }

  private:
    std::function<bool(std::vector<PrintJob> jobs)> show_;
    std::vector<PrintJob> jobs_;
    std::size_t printed_ = 0;
};

}  // namespace

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
    job_ = BeginPackage(printerIndex, title);
    return job_ != nullptr;
}

void DesktopSink::TakeJob(int /*printerIndex*/, PrintJob job) {
    const std::unique_ptr<JobPackage> package = std::move(job_);
    if (const auto failure = package->Take(std::move(job))) {
        messages_.Show(*failure);
    }
    package->Finish();
}

std::unique_ptr<JobPackage> DesktopSink::BeginPackage(int printerIndex, const std::string& title) {
    const std::string& printer = PrinterAt(printerIndex);
    if (printer == kPreviewPrinter) {
        return std::make_unique<JoinedPackage>([this, title](std::vector<PrintJob> jobs) {
            PreviewWindow preview(std::move(jobs), title, fonts_, pdfSaver_, messages_,
                                  QApplication::activeWindow());
            const AskingCursor asking;
            preview.exec();
            return true;
        });
    }
    if (printer != kPdfPrinter) {
        return std::make_unique<QueuePackage>(printer, fonts_);
    }
    const auto file = pdfSaver_.ChooseFile(title);
    if (!file) {
        return nullptr;
    }
    return std::make_unique<JoinedPackage>([this, title, file](const std::vector<PrintJob>& jobs) {
        const WaitCursor wait;
        return pdfSaver_.Write(jobs, title, *file);
    });
}

}  // namespace qfr
