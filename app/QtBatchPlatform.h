// Printing for the companion command, without a display. Qt starts when it is first needed.
#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QGuiApplication>

#include "app/batch/BatchCommand.h"
#include "platform/qt/QtTextMetrics.h"

namespace qfr {

class QtBatchPlatform : public BatchPlatform {
  public:
    std::optional<std::string> Start() override;
    TextMetrics& Metrics() override { return drawing_->metrics; }
    std::optional<std::string> WritePdf(const std::vector<PrintJob>& jobs, const std::string& title,
                                        const std::string& fileName) override;
    std::string FileNameForTitle(const std::string& title) override;
    std::vector<std::string> Printers() override;
    bool EndRequested() const override { return endRequested_; }
    // From any thread.
    void RequestEnd() { endRequested_ = true; }
    std::optional<std::string> PrintOnQueue(const PrintJob& job,
                                            const std::string& printer) override;

  private:
    struct Drawing {
        FormFonts fonts;
        QtTextMetrics metrics{fonts};
    };
    std::unique_ptr<QGuiApplication> application_;  // absent where the caller has one
    std::unique_ptr<Drawing> drawing_;              // from Start on
    std::atomic<bool> endRequested_ = false;
};

}  // namespace qfr
