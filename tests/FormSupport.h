// A scripted program around the forms, and a sink that keeps their jobs.
#pragma once

#include <string>
#include <vector>

#include "forms/FormHost.h"
#include "platform/JobSink.h"
#include "tests/Support.h"

namespace qfr::test {

class JobLog : public JobSink {
  public:
    bool BeginJob(int /*printerIndex*/, const std::string& title) override {
        begun.push_back(title);
        return accept;
    }
    void TakeJob(int /*printerIndex*/, PrintJob job) override { jobs.push_back(std::move(job)); }

    bool accept = true;
    std::vector<std::string> begun;
    std::vector<PrintJob> jobs;
};

// Closes every entry dialog with the same button.
class ScriptedHost : public FormHost {
  public:
    ScriptedHost();

    qfr::Page& Page() override { return page; }
    qfr::Batch& Batch() override { return batch; }
    qfr::Entries& Entries() override { return entries; }
    BatchFlags& Flags() override { return flags; }
    bool ShowEntryDialog(EntryDialog dialog, std::size_t /*headerRecord*/) override {
        dialogs.push_back(dialog);
        return ok;
    }
    void SetPendingFocus(HeaderField field) override { pendingFocus = field; }
    void Show(const Message& message) override { messages.Show(message); }
    bool AskYesNo(const Message& question) override { return messages.AskYesNo(question); }

    SquareMetrics metrics;
    JobLog sink;
    TPrinter printer{metrics, sink};
    int printerSetups = 0;
    qfr::Page page{printer, [this] { ++printerSetups; }};
    qfr::Batch batch;
    qfr::Entries entries;
    BatchFlags flags;
    MessageLog messages;
    std::optional<HeaderField> pendingFocus;
    bool ok = true;
    std::vector<EntryDialog> dialogs;  // as they were shown
};

// A record whose 26 header values are all filled.
SampleRecord CompleteRecord(const std::string& sampleNo, const std::string& fileName = "");

// The item of the page with exactly this text; fails the test when there is none.
TextItem FindText(const JobPage& page, std::string_view text);
bool HasText(const JobPage& page, std::string_view text);
// Texts whose left edge is at this x (inches, to the pixel), from top to bottom as drawn.
std::vector<std::string> TextsAt(const JobPage& page, double x);
// Texts whose right edge is within a pixel of this x (inches).
std::vector<std::string> TextsEndingAt(const JobPage& page, double x);
// Levels, in inches, of the horizontal rules from x1 to x2 (inches).
std::vector<double> RulesAcross(const JobPage& page, double x1, double x2);

}  // namespace qfr::test
