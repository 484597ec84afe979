// The companion command: loads, prints and shows batches without a display. Its options select work
// and never change a page. Each command has a source of its own.
#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "app/BatchFile.h"
#include "platform/JobSink.h"
#include "platform/LineReader.h"
#include "platform/Messages.h"
#include "platform/PrintJob.h"
#include "platform/Printer.h"
#include "platform/Text.h"

namespace CLI {
class App;
}

namespace qfr {

// What the command needs of the system for printing; nothing else of it may need a window system.
// Texts are UTF-8. A result is the reason of a failure, absent on success.
class BatchPlatform {
  public:
    virtual ~BatchPlatform() = default;
    // Comes before everything else, once; nothing can be printed after a failure.
    virtual std::optional<std::string> Start() = 0;
    virtual TextMetrics& Metrics() = 0;
    virtual std::unique_ptr<PdfWriter> NewPdf() = 0;
    // Where there is none and the reason is known, it is in `reason`.
    virtual std::vector<std::string> Printers(std::string& reason) = 0;
    // Whether the system wants the command to end before its work is done.
    virtual bool EndRequested() const { return false; }
    virtual std::optional<std::string> PrintOnQueue(const PrintJob& job,
                                                    const std::string& printer) = 0;
};

// Runs the command with its arguments (UTF-8, without the program's name) and returns its exit
// code: 0 when all was done, 1 when something was left out, 2 for wrong usage or an unusable batch.
int RunBatchCommand(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
                    BatchPlatform& platform);

// ---- What the commands share

enum ExitCode { kDone, kIncomplete, kUnusable };

// What is wrong with the command line; nothing has been done yet.
struct WrongUsage : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// A line on standard error, written with what it has taken when it goes.
class Complaint : public std::ostringstream {
  public:
    explicit Complaint(std::ostream& err) : err_(err) {}
    ~Complaint() override { err_ << "qfrbatch: " << Visible(TrimRight(str())) << '\n'; }
    Complaint(const Complaint&) = delete;
    Complaint& operator=(const Complaint&) = delete;

  private:
    std::ostream& err_;
};

struct Context : Messages {
    std::ostream& out;
    std::ostream& err;
    BatchPlatform& platform;
    ExitCode exitCode = kDone;
    bool anyMessages = false;
    bool ending = false;
    std::string prefix;  // of messages: which of several batches they are about

    Context(std::ostream& output, std::ostream& errors, BatchPlatform& system)
        : out(output), err(errors), platform(system) {}

    // Nobody is there to answer: a question is a line too.
    void Show(const Message& message) override {
        err << Visible(prefix + AsLine(message)) << '\n';
        anyMessages = true;
    }
    bool AskYesNo(const Message& question) override {
        Show(question);
        return false;
    }
    // The exit code becomes at least this.
    void Fail(ExitCode code) { exitCode = std::max(exitCode, code); }
    // Fails; takes a line that says why.
    Complaint Complain(ExitCode code = kIncomplete) {
        Fail(code);
        return Complaint(err);
    }
    // Whether the rest of the work is to be left out, because the system wants the command to end.
    bool IsEnding() {
        if (!ending && platform.EndRequested()) {
            ending = true;
            Complain() << "ended before all was done\n";
        }
        return ending;
    }
    void WriteFailed(const std::string& fileName, const std::string& reason) {
        Show(CouldNotBeWritten(fileName));
        Complain() << reason << '\n';
    }
};

// Each declares its command, which runs as soon as its arguments are parsed.
void AddCheckCommand(CLI::App& program, Context& context);
void AddLoadCommand(CLI::App& program, Context& context);
void AddExportCommand(CLI::App& program, Context& context);
void AddPrintCommand(CLI::App& program, Context& context);
void AddShowCommand(CLI::App& program, Context& context);

// Declares an option; its value, which the help calls `text`, is empty when it is not given.
void AddOption(CLI::App& command, const std::string& name, std::string& value,
               const std::string& text, const std::string& help);
// An option that may be given again, and once an operand is given, with further values behind the
// first; or else, by a name without dashes, the operands.
void AddNames(CLI::App& command, const std::string& name, std::vector<std::string>& names,
              const std::string& text, const std::string& help);

// Absent after the message that says why the file cannot be opened. Of a report only the head is
// looked at: who takes it says what else is wrong.
std::optional<LineReader> OpenInput(Context& context, const std::string& name,
                                    bool onlyHead = false);

struct NamedBatch {
    std::string name;    // as the user gave it
    std::string prefix;  // "NAME: " when several are given
    SavedBatch saved;
};
// Those that can be restored, after the messages that say why others cannot. It is wrong usage to
// name none.
std::vector<NamedBatch> ReadBatches(Context& context, const std::vector<std::string>& names);

// Whether a file of that name is rather one of the laboratory's than a result.
bool IsReportName(std::string_view name);

}  // namespace qfr
