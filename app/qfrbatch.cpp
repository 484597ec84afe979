// The companion command as a program.
#include <atomic>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "app/batch/BatchCommand.h"
#include "platform/FileReplace.h"
#include "platform/HostSystem.h"
#include "platform/PrinterQueue.h"
#include "platform/pdf/PdfFile.h"
#include "platform/pdf/Typeface.h"

namespace {

class Platform : public qfr::BatchPlatform {
  public:
    std::optional<std::string> Start() override {
        typeface_ = qfr::Typeface::Load();
        return typeface_ ? std::nullopt : std::optional(std::string(qfr::kNoTypeface));
    }
    qfr::TextMetrics& Metrics() override { return *typeface_; }
    std::unique_ptr<qfr::PdfWriter> NewPdf() override {
        return std::make_unique<qfr::PdfFile>(*typeface_);
    }
    std::optional<qfr::Message> TakeBoxesNote() override { return typeface_->TakeBoxesNote(); }
    std::vector<std::string> Printers() override { return qfr::InstalledPrinters(); }
    std::optional<std::string> PrintOnQueue(const qfr::PrintJob& job,
                                            const std::string& printer) override {
        return qfr::PrintOnQueue(job, printer, *typeface_);
    }
    bool EndRequested() const override { return endRequested_; }
    // From any thread.
    void RequestEnd() { endRequested_ = true; }

  private:
    std::unique_ptr<qfr::Typeface> typeface_;  // from Start on
    std::atomic<bool> endRequested_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    std::ios_base::sync_with_stdio(false);
    Platform platform;
    const qfr::EndRequests endRequests([&platform] { platform.RequestEnd(); });
    std::error_code failed;
    if (const auto folder = std::filesystem::temp_directory_path(failed); !failed) {
        qfr::RemoveLeftovers(folder);
    }
    return qfr::RunBatchCommand(qfr::ProgramArguments(argc, argv), std::cout, std::cerr, platform);
}
