// The program around the form drivers when nobody sits before a screen: messages are lines of a
// stream, the entry dialogs answer with what was saved.
#pragma once

#include <cstddef>
#include <optional>
#include <ostream>
#include <vector>

#include "app/BatchFile.h"
#include "data/EntryFault.h"
#include "forms/FormHost.h"
#include "platform/JobSink.h"
#include "platform/Printer.h"

namespace qfr {

// "TITLE: text" as one line; a message without a title is its text alone.
void WriteMessage(std::ostream& out, const Message& message);

// What an entry dialog does without its user.
struct DialogRules {
    EntryDialog dialog = EntryDialog::kRecoveryRanges;
    // On showing: takes over what is known elsewhere by now; false when the dialog cannot be shown,
    // after a message. May be absent.
    bool (*onShow)(FormHost& host, std::size_t headerRecord) = nullptr;
    // On OK: why the dialog would stay open. Without it every entry is accepted.
    std::optional<EntryFault> (*onOk)(FormHost& host) = nullptr;
};

// Those of the program's entry dialogs.
std::vector<DialogRules> EntryDialogRules();

class HeadlessHost : public FormHost, private JobSink {
  public:
    // Messages go to `messages`. A dialog that has no rules closes with OK as it stands.
    HeadlessHost(SavedBatch saved, TextMetrics& metrics, std::ostream& messages,
                 std::vector<DialogRules> rules);

    // The whole jobs so far, in the order in which they were printed.
    const std::vector<PrintJob>& Jobs() const { return jobs_; }

    void Show(const Message& message) override;
    // Writes the question; the answer is No.
    bool AskYesNo(const Message& question) override;

    qfr::Page& Page() override { return page_; }
    qfr::Batch& Batch() override { return saved_.Batch; }
    qfr::Entries& Entries() override { return saved_.Entries; }
    BatchFlags& Flags() override { return flags_; }
    bool ShowEntryDialog(EntryDialog dialog, std::size_t headerRecord) override;
    void SetPendingFocus(HeaderField) override {}

  private:
    bool BeginJob(int, const std::string&) override { return true; }
    void TakeJob(int, PrintJob job) override { jobs_.push_back(std::move(job)); }

    SavedBatch saved_;
    BatchFlags flags_;
    std::ostream& messages_;
    std::vector<DialogRules> rules_;
    std::vector<PrintJob> jobs_;
    TPrinter printer_;
    qfr::Page page_;
};

}  // namespace qfr
