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
#include "app/batch/Modules.h"
#include "platform/FileReplace.h"
#include "platform/HostSystem.h"

namespace {

// What makes the module; null when it cannot be loaded.
template <typename Module>
Module* (*MakerOf(std::string& reason))() {
    return reinterpret_cast<Module* (*)()>(
        qfr::FindInModule(Module::kFile, Module::kFunction, reason));
}

// Prints with the modules that lie beside the program.
class Platform : public qfr::BatchPlatform {
  public:
    std::optional<std::string> Start() override {
        std::string reason;
        const auto make = MakerOf<qfr::PdfModule>(reason);
        if (make == nullptr) {
            return reason;
        }
        pdf_.reset(make());
        return pdf_ ? std::nullopt : std::optional(std::string(qfr::kNoTypeface));
    }
    qfr::TextMetrics& Metrics() override { return pdf_->Metrics(); }
    std::unique_ptr<qfr::PdfWriter> NewPdf() override { return pdf_->NewPdf(); }
    std::vector<std::string> Printers(std::string& reason) override {
        if constexpr (!QFR_HAS_QUEUES) {
            reason =
                "on this system qfrbatch prints into files, and the desktop program on printers";
            return {};
        }
        if (const auto make = queues_ ? nullptr : MakerOf<qfr::QueueModule>(reason)) {
            queues_.reset(make());
        }
        return queues_ ? queues_->Printers() : std::vector<std::string>();
    }
    std::optional<std::string> PrintOnQueue(const qfr::PrintJob& job,
                                            const std::string& printer) override {
        std::string reason;
        const std::string pdf = pdf_->PdfForQueue(job, reason);
        return pdf.empty() ? reason : queues_->Print(job, pdf, printer);
    }
    bool EndRequested() const override { return endRequested_; }
    // From any thread.
    void RequestEnd() { endRequested_ = true; }

  private:
    std::unique_ptr<qfr::PdfModule> pdf_;       // from Start on
    std::unique_ptr<qfr::QueueModule> queues_;  // when printers have been asked for
    std::atomic<bool> endRequested_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    std::ios_base::sync_with_stdio(false);
    const qfr::PlainOutput plainOutput;
    Platform platform;
    const qfr::EndRequests endRequests([&platform] { platform.RequestEnd(); });
    std::error_code failed;
    if (const auto folder = std::filesystem::temp_directory_path(failed); !failed) {
        qfr::RemoveLeftovers(folder);
    }
    return qfr::RunBatchCommand(qfr::ProgramArguments(argc, argv), std::cout, std::cerr, platform);
}
