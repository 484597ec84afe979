// The program around the form drivers when nobody is asked anything: messages are passed on, the
// entry dialogs answer with what was entered before.
#pragma once

#include <cstddef>
#include <optional>
#include <utility>

#include "app/BatchFile.h"
#include "forms/FormHost.h"
#include "platform/BoxesNote.h"
#include "platform/JobSink.h"
#include "platform/Printer.h"

namespace qfr {

class HeadlessHost : public FormHost, private JobSink {
  public:
    HeadlessHost(SavedBatch saved, TextMetrics& metrics, Messages& messages);

    // The job that a driver has printed since the last call; absent when it has refused.
    std::optional<PrintJob> CollectJob() { return std::exchange(job_, std::nullopt); }

    void Show(const Message& message) override { messages_.Show(message); }
    // Shows the question; the answer is No.
    bool AskYesNo(const Message& question) override;

    qfr::Page& Page() override { return page_; }
    qfr::Batch& Batch() override { return saved_.Batch; }
    qfr::Entries& Entries() override { return saved_.Entries; }
    BatchFlags& Flags() override { return flags_; }
    bool ShowEntryDialog(EntryDialog dialog, std::size_t headerRecord) override;
    void SetPendingFocus(HeaderField) override {}

  private:
    bool BeginJob(int, const std::string&) override { return true; }
    void TakeJob(int, PrintJob job) override;

    SavedBatch saved_;
    BatchFlags flags_;
    TextMetrics& metrics_;
    Messages& messages_;
    BoxesNote boxes_;
    std::optional<PrintJob> job_;
    TPrinter printer_;
    qfr::Page page_;
};

}  // namespace qfr
