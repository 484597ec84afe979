// Doubles and small helpers that the tests share, a scripted program around the forms among them.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/Package.h"
#include "data/Batch.h"
#include "forms/FormHost.h"
#include "platform/JobSink.h"
#include "platform/Messages.h"
#include "platform/Printer.h"

namespace qfr::test {

// Keeps a log of what was shown and asked. A question without a prepared answer fails the test, and
// so does an answer that nobody asked for.
class MessageLog : public Messages {
  public:
    ~MessageLog() override { EXPECT_TRUE(answers.empty()) << "an expected question never came"; }
    void Show(const Message& message) override { shown.push_back(message); }
    bool AskYesNo(const Message& question) override;
    // The texts, or the titles, shown since the last call.
    std::vector<std::string> TakeTexts() { return Take(&Message::text); }
    std::vector<std::string> TakeTitles() { return Take(&Message::title); }

    std::vector<Message> shown;
    std::deque<bool> answers;
    bool noByDefault = false;  // of the last question

  private:
    std::vector<std::string> Take(std::string Message::*part);
};

// A directory that is gone after the test.
class TempDir {
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::filesystem::path& Path() const { return path_; }
    // Writes a file below the directory and returns its full name.
    std::string Write(std::string_view name, std::string_view content) const;

  private:
    std::filesystem::path path_;
};

// A valid quantitation report; a test changes what it is about.
struct ReportText {
    std::string header =
        "Acquisition Date: 5/12/2005 2:05 PM\nSample Size: 5.0\nClient Sample ID: C-17\n"
        "Sample ID: VBLK01\nLab File ID: ABC01.D; Instrument: GCMS2\n"
        "Calibration File: C:\\cal\\DAY1.CAL\nCompound Library: C:\\lib\\VOA.LIB\n"
        "Internal Standards: C:\\lib\\VOA.IST\nCRQL Limit: 10\n";
    int rows = 2;
    std::string afterRows = "\n";

    std::string Text() const;
};

// What the function makes of each value, with "|" between.
template <typename Value, typename Function>
std::string Joined(std::initializer_list<Value> values, Function function) {
    std::string results;
    for (const Value& value : values) {
        results += (&value == values.begin() ? "" : "|") + std::string(function(value));
    }
    return results;
}

// 50 MB without a line end.
std::string EndlessLine();

std::string ReadAll(const std::filesystem::path& file);
std::filesystem::path ExampleDir();
// A file of tests/data.
std::filesystem::path TestData(std::string_view name);

// The forms' typeface without its font file: ASCII, and "é" for the names that are not.
class TimesMetrics : public TextMetrics {
  public:
    int TextWidth(std::string_view utf8, int points) override;
    int TextHeight(int points) override;
};

class JobLog : public JobSink, public PackageSink {
  public:
    bool BeginJob(int printerIndex, const std::string& title) override {
        begun.push_back(title);
        printer = printerIndex;
        return accept;
    }
    void TakeJob(int /*printerIndex*/, PrintJob job) override { jobs.push_back(std::move(job)); }

    std::unique_ptr<JobPackage> BeginPackage(int printerIndex, const std::string& title) override {
        return BeginJob(printerIndex, title) ? std::make_unique<Package>(*this) : nullptr;
    }

    bool accept = true;
    std::vector<std::string> begun;
    int printer = 0;  // index of the last one
    std::vector<PrintJob> jobs;
    // Of a package: what is done while a job is taken, and the job that fails.
    std::function<void()> onTake = [] {};
    std::string failing;
    bool finished = false;
    bool onlyShown = false;

  private:
    struct Package : JobPackage {
        explicit Package(JobLog& sink) : log(sink) {}
        std::optional<Message> Take(PrintJob job) override {
            log.onTake();
            if (job.title == log.failing) {
                return Message{"The printer is\nstopped.", "Printer Error"};
            }
            log.jobs.push_back(std::move(job));
            return std::nullopt;
        }
        void Finish() override { log.finished = true; }
        std::size_t Printed() const override { return log.jobs.size(); }
        bool IsOnlyShown() const override { return log.onlyShown || log.printer == kPreviewIndex; }
        JobLog& log;
    };
};

// A batch whose pages stand approved in tests/pages.
struct ApprovedBatch {
    const char* name;  // of its folder in tests/pages
    std::filesystem::path file;
    std::size_t samples;  // of the forms that print for each sample, only the first so many
    // Without its continuing calibration report, which a batch file cannot do without.
    bool uncheckedCalibration = false;
};
std::vector<ApprovedBatch> ApprovedBatches();
// Prints all forms of the batch as the companion command does; `take` gets each with its job, if
// there is one, and what it had to say.
void PrintApproved(const ApprovedBatch& batch, TextMetrics& metrics,
                   const std::function<void(const FormRow& form, const std::optional<PrintJob>& job,
                                            const std::vector<Message>& messages)>& take);

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

    TimesMetrics metrics;
    JobLog sink;
    TPrinter printer{metrics, sink};
    int printerSetups = 0;
    bool chooses = true;  // does not cancel the printer setup
    qfr::Page page{printer, [this] { return ++printerSetups > 0 && chooses; }};
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

// The reports of a run with this many calibration levels, compounds "Compound-1" and so on, and
// samples. Level k, from 1, has the amount 10 k, the raw data file STD<k>.D of 05/16/2005, k
// o'clock, and the response factors 8.4 + 2 k, so that they round to 10, 12, 14, ...; internal
// standards have the area 1000 k, and 1000 and 7.25 minutes in the continuing calibration standard
// and in every sample. The tune is injected on 05/18/2005 at 8:00, the lab blank (the first
// sample) is analyzed at 9:00, the others at 21:01. The reports name their files by Windows paths.
struct CalibratedRun {
    CalibratedRun(int levels, int compounds, int samples = 1);

    TempDir dir;
    std::string calibration;  // text of RUN.CAL
    std::string check;        // text of RUN.CHECK
    ScriptedHost host;        // with the batch loaded and all headers complete

    // Prints all forms, or one, of all samples as one package. What was noted, each after its form.
    std::string PrintAll(JobLog& sink, std::string_view only = "");
    // Runs a form's driver and returns the titles of its messages.
    std::vector<std::string> Run(void (*driver)(FormHost&));
    // The first page of the form, which is to print without a message.
    const JobPage& FirstPage(void (*driver)(FormHost&));
};

bool HasText(const JobPage& page, std::string_view text);
// Texts whose left edge is at this x (inches, to the pixel), from top to bottom as drawn.
std::vector<std::string> TextsAt(const JobPage& page, double x);

}  // namespace qfr::test
