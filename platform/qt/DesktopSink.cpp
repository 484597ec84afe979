#include "platform/qt/DesktopSink.h"

#include <functional>
#include <utility>

#include <QApplication>

#include "platform/pdf/PdfFile.h"
#include "platform/qt/PreviewWindow.h"
#include "platform/qt/PrinterQueue.h"
#include "platform/qt/WaitCursor.h"

namespace qfr {

namespace {

class QueuePackage : public JobPackage {
  public:
    QueuePackage(std::string printer, Typeface& typeface, PrintLog& log)
        : printer_(std::move(printer)), typeface_(typeface), log_(log) {}
    // Finished or given up: what is printed is printed.
    ~QueuePackage() override { log_.NoteNow(std::move(titles_), printer_, false); }
    QueuePackage(const QueuePackage&) = delete;
    QueuePackage& operator=(const QueuePackage&) = delete;

    std::optional<Message> Take(PrintJob job) override {
        if (const auto reason = PrintOnQueue(job, printer_, typeface_)) {
            return CouldNotBePrinted(job.title, printer_, *reason);
        }
        titles_.push_back(std::move(job.title));
        return std::nullopt;
    }
    void Finish() override {}
    std::size_t Printed() const override { return titles_.size(); }

  private:
    const std::string printer_;
    Typeface& typeface_;
    PrintLog& log_;
    std::vector<std::string> titles_;  // of what is printed
};

// Keeps the pages of the jobs until all of them can be written.
class PdfPackage : public JobPackage {
  public:
    PdfPackage(std::string file, std::string title, Typeface& typeface, PdfSaver& saver,
               PrintLog& log)
        : file_(std::move(file)),
          title_(std::move(title)),
          pdf_(typeface),
          saver_(saver),
          log_(log) {}

    std::optional<Message> Take(PrintJob job) override {
        pdf_.Add(job);
        titles_.push_back(std::move(job.title));
        return std::nullopt;
    }
    void Finish() override {
        const WaitCursor wait;
        if (pdf_.HasPages() && saver_.Write(pdf_, title_, file_)) {
            printed_ = titles_.size();
            log_.NoteNow(titles_, file_, true);
        }
    }
    std::size_t Printed() const override { return printed_; }

  private:
    const std::string file_;
    const std::string title_;
    PdfFile pdf_;
    PdfSaver& saver_;
    PrintLog& log_;
    std::vector<std::string> titles_;
    std::size_t printed_ = 0;
};

// Keeps the jobs until all of them can be shown together.
class PreviewPackage : public JobPackage {
  public:
    // `show` gets the jobs, unless there is none.
    explicit PreviewPackage(std::function<void(std::vector<PrintJob> jobs)> show)
        : show_(std::move(show)) {}

    std::optional<Message> Take(PrintJob job) override {
        jobs_.push_back(std::move(job));
        return std::nullopt;
    }
    void Finish() override {
        printed_ = jobs_.size();
        if (printed_ > 0) {
            show_(std::exchange(jobs_, {}));
        }
    }
    std::size_t Printed() const override { return printed_; }
    bool IsOnlyShown() const override { return true; }

  private:
    std::function<void(std::vector<PrintJob> jobs)> show_;
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
    if (index == kPreviewIndex) {
        return kPreviewPrinter;
    }
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
    if (const auto boxes = boxes_.About(typeface_.TakeBoxes())) {
        messages_.Show(*boxes);
    }
    if (const auto failure = package->Take(std::move(job))) {
        messages_.Show(*failure);
    }
    package->Finish();
}

std::unique_ptr<JobPackage> DesktopSink::BeginPackage(int printerIndex, const std::string& title) {
    const std::string& printer = PrinterAt(printerIndex);
    if (printer == kPreviewPrinter) {
        return std::make_unique<PreviewPackage>([this, title](std::vector<PrintJob> jobs) {
            PreviewWindow preview(std::move(jobs), title,
                                  {typeface_, pdfSaver_, messages_, printed_, memory_},
                                  QApplication::activeWindow());
            const AskingCursor asking;
            preview.exec();
        });
    }
    if (printer != kPdfPrinter) {
        return std::make_unique<QueuePackage>(printer, typeface_, printed_);
    }
    const auto file = pdfSaver_.ChooseFile(title);
    if (!file) {
        return nullptr;
    }
    return std::make_unique<PdfPackage>(*file, title, typeface_, pdfSaver_, printed_);
}

}  // namespace qfr
