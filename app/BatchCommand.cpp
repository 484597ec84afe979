#include "app/BatchCommand.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <iomanip>
#include <map>
#include <set>
#include <span>
#include <string_view>
#include <system_error>
#include <utility>
#include <variant>

#include "app/BatchFile.h"
#include "app/HeadlessHost.h"
#include "app/Package.h"
#include "data/EntryTables.h"
#include "data/LabFiles.h"
#include "data/LoadFiles.h"
#include "platform/DateTime.h"
#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/Text.h"

namespace qfr {
namespace {

namespace fs = std::filesystem;

constexpr int kDone = 0;
constexpr int kIncomplete = 1;
constexpr int kUnusable = 2;

constexpr std::string_view kOverallHelp =
    R"(Usage: qfrbatch COMMAND [ARGUMENT ...]

Prepares and prints batches of QFR Forms without a display.

Commands:
  load    put reports together into a batch file
  print   print the forms of a batch file
  show    write a batch file as readable text

"qfrbatch COMMAND --help" explains a command.

Exit status: 0 when all was done, 1 when something was left out, 2 for wrong usage
or a batch that cannot be restored. Messages go to standard error.
)";

constexpr std::string_view kLoadHelp =
    R"(Usage: qfrbatch load [--blank FILE.prn] [--cal FILE.cal] [--check FILE.check]
                     [--defaults DefaultInfo.txt] -o BATCH.qff [FILE.prn ...]

Checks reports as the Load Files dialog does and writes a batch of those that pass.

  --blank FILE.prn    quantitation report of the lab blank
  --cal FILE.cal      initial calibration report
  --check FILE.check  continuing calibration report
  --defaults FILE     laboratory values for the empty header values of every sample,
                      as the Form 1 dialog saves them
  -o BATCH.qff        batch file to write; a file of that name is replaced
  FILE.prn ...        quantitation reports of the samples
  --help              this text

Exit status:
  0  every file was accepted
  1  a file was rejected and the batch holds the others (without any, none is written),
     the batch lacks a lab blank, calibration or check report, which it cannot be
     restored without, or it could not be written
  2  wrong usage
)";

constexpr std::string_view kPrintHelp =
    R"(Usage: qfrbatch print BATCH.qff [--forms LIST] [--sample NAME ...]
                      (-o FILE.pdf | --output-dir DIR | --printer QUEUE)

Prints the forms of a batch with the entries that were saved in it.

  --forms LIST        forms to print, as 1,2,8; every form without this option
                      (tic then only for samples that have TICs)
  --sample NAME ...   of the forms that are printed for each sample, only these samples:
                      sample numbers or names of reports; may be repeated
  -o FILE.pdf         all forms in one PDF file
  --output-dir DIR    one PDF file for each form and sample, in this directory
  --printer QUEUE     on an installed printer
  --help              this text

Forms, in the order in which they print:
)";

constexpr std::string_view kPrintStatus =
    R"(
Exit status:
  0  every form asked for was printed
  1  a form was refused or could not be written; the others are printed
  2  wrong usage, or a batch that cannot be restored
)";

constexpr std::string_view kShowHelp =
    R"(Usage: qfrbatch show BATCH.qff

Writes a batch as readable text: its samples, its files and what was typed for its forms.

  --help  this text

Exit status: 0, 1 when standard output cannot be written, 2 for wrong usage or a batch
that cannot be restored.
)";

struct Arguments {
    std::map<std::string, std::vector<std::string>, std::less<>> options;
    std::vector<std::string> operands;

    // Absent when the option is not given.
    const std::string* Value(std::string_view option) const {
        const auto found = options.find(option);
        return found == options.end() ? nullptr : &found->second.front();
    }
};

struct Context {
    std::string_view command;
    std::ostream& out;
    std::ostream& err;
    BatchPlatform& platform;

    std::ostream& Complain() const { return err << "qfrbatch: "; }
    int WrongUsage(std::string_view trouble) const {
        err << "qfrbatch " << command << ": " << trouble << "\nTry \"qfrbatch " << command
            << " --help\".\n";
        return kUnusable;
    }
};

struct Command {
    std::string_view name;
    std::span<const std::string_view> options;  // each takes a value
    void (*help)(std::ostream& out);
    int (*run)(const Arguments& arguments, const Context& context);
};

constexpr std::string_view kSampleOption = "--sample";

// The arguments, or what is wrong with them.
std::variant<Arguments, std::string> ParseArguments(std::span<const std::string> given,
                                                    std::span<const std::string_view> known) {
    const auto isOption = [&](std::string_view text) {
        return std::find(known.begin(), known.end(), text) != known.end();
    };
    Arguments arguments;
    bool onlyOperands = false;
    bool amongSamples = false;
    for (std::size_t i = 0; i < given.size(); ++i) {
        const std::string& argument = given[i];
        if (!onlyOperands && argument == "--") {
            onlyOperands = true;
        } else if (onlyOperands || argument.size() < 2 || argument.front() != '-') {
            // "--sample A B" names two samples, once the batch is named.
            const bool sample = amongSamples && !arguments.operands.empty();
            (sample ? arguments.options.find(kSampleOption)->second : arguments.operands)
                .push_back(argument);
        } else {
            const std::size_t equals = argument.find('=');
            const std::string option = argument.substr(0, equals);
            if (!isOption(option)) {
                return "unknown option " + option;
            }
            std::string value;
            if (equals != std::string::npos) {
                value = argument.substr(equals + 1);
            } else if (i + 1 < given.size() && !isOption(given[i + 1])) {
                value = given[++i];
            }
            if (value.empty()) {
                return "option " + option + " needs a value";
            }
            amongSamples = option == kSampleOption;
            std::vector<std::string>& values = arguments.options[option];
            if (!values.empty() && !amongSamples) {
                return "option " + option + " is given twice";
            }
            values.push_back(std::move(value));
        }
    }
    return arguments;
}

void WriteMessage(std::ostream& out, const Message& message) {
    out << AsLine(message) << '\n';
}

// Nobody is there to answer: a question is a line too.
class MessageLines : public Messages {
  public:
    explicit MessageLines(std::ostream& out) : out_(out) {}
    void Show(const Message& message) override { WriteMessage(out_, message); }
    bool AskYesNo(const Message& question) override {
        Show(question);
        return false;
    }

  private:
    std::ostream& out_;
};

bool WriteFailed(const Context& context, const std::string& fileName, const std::string& reason) {
    WriteMessage(context.err, CouldNotBeWritten(fileName));
    context.Complain() << reason << '\n';
    return false;
}

struct Input {
    fs::path Path;
    LineReader Content;
};

// Absent after the message that says why the file cannot be opened.
std::optional<Input> OpenInput(const Context& context, const std::string& name) {
    const std::optional<fs::path> path = FindFile(name);
    if (!path) {
        context.Complain() << name << " could not be found\n";
        return std::nullopt;
    }
    std::optional<LineReader> content = LineReader::Open(*path);
    if (!content) {
        context.Complain() << name << " could not be read\n";
        return std::nullopt;
    }
    return Input{*path, std::move(*content)};
}

// Whether a file of that name is rather one of the laboratory's than a result.
bool IsReportName(std::string_view name) {
    return EndsWith(name, ".prn") || EndsWith(name, ".cal") || EndsWith(name, ".check");
}

std::optional<SavedBatch> ReadBatch(const Context& context, const std::string& name) {
    std::optional<Input> file = OpenInput(context, name);
    if (!file) {
        return std::nullopt;
    }
    auto restored = RestoreBatch(std::move(file->Content), name, Entries());
    if (const auto* message = std::get_if<Message>(&restored)) {
        WriteMessage(context.err, *message);
        return std::nullopt;
    }
    return std::get<SavedBatch>(std::move(restored));
}

// ---- load

constexpr std::string_view kLoadOptions[] = {"--blank", "--cal", "--check", "--defaults", "-o"};

class LoadRun : private Messages, private BatchOwner {
  public:
    explicit LoadRun(const Context& context) : context_(context) {}

    void Load(const Arguments& arguments) {
        if (const auto file = Accept(arguments.Value("--blank"))) {
            TakeLabBlank(batch_, *file, reports_, *this, *this);
        }
        std::vector<std::string> reports;
        for (const std::string& name : arguments.operands) {
            if (const auto file = Accept(&name)) {
                reports.push_back(*file);
            }
        }
        AddQuantReports(batch_, reports, reports_, *this, *this);
        if (const auto file = Accept(arguments.Value("--cal"))) {
            TakeCalReport(batch_, *file, reports_, *this);
        }
        if (const auto file = Accept(arguments.Value("--check"))) {
            TakeCheckReport(batch_, *file, reports_, *this);
        }
        if (!batch_.SampleList) {
            BuildSampleList(batch_, reports_);
        }
        if (const auto file = Accept(arguments.Value("--defaults"))) {
            ApplyDefaults(ReadDefaultsFile(PathOf(*file)).value_or(std::vector<std::string>()));
        }
        StoreEmptyDates();
    }

    bool Rejected() const { return rejected_; }
    const Batch& Loaded() const { return batch_; }

  private:
    void Show(const Message& message) override {
        WriteMessage(context_.err, message);
        rejected_ = true;
    }
    bool AskYesNo(const Message& question) override {
        Show(question);
        return false;
    }
    // No entries have been made yet.
    void ResetEntryDialogs() override {}

    // The full path of a file that can be read. The dialog offers only such files, and its rules
    // let others pass.
    std::optional<std::string> Accept(const std::string* name) {
        if (!name) {
            return std::nullopt;
        }
        if (const std::optional<Input> file = OpenInput(context_, *name)) {
            std::error_code failed;
            const std::string full = TextOf(fs::absolute(file->Path, failed).lexically_normal());
            if (!failed && full.find_first_of(";\r\n") == std::string::npos) {
                return full;
            }
            context_.Complain() << OneLine(*name) << " has a path that no batch file can hold\n";
        }
        rejected_ = true;
        return std::nullopt;
    }

    void ApplyDefaults(const std::vector<std::string>& values) {
        if (!batch_.SampleList) {
            return;
        }
        for (SampleRecord& record : *batch_.SampleList) {
            for (std::size_t i = 0; i < std::min(values.size(), kDefaultsFields.size()); ++i) {
                std::string& value = record.Header[kDefaultsFields[i]];
                value = Trim(value).empty() ? values[i] : value;
            }
        }
    }

    // An untouched date is stored as its mask, as the dialog stores it, and counts as filled in.
    void StoreEmptyDates() {
        if (!batch_.SampleList) {
            return;
        }
        for (SampleRecord& record : *batch_.SampleList) {
            std::string& received = record.Header[HeaderField::kDateReceived];
            received = Trim(received).empty() ? std::string(kEmptyDateTimeMask) : received;
        }
    }

    const Context& context_;
    Batch batch_;
    Reports reports_;
    bool rejected_ = false;
};

void LoadHelp(std::ostream& out) {
    out << kLoadHelp;
}

int Load(const Arguments& arguments, const Context& context) {
    const std::string* target = arguments.Value("-o");
    if (!target) {
        return context.WrongUsage("-o BATCH.qff is missing");
    }
    // "-o *.prn" would replace the first report.
    if (IsReportName(*target)) {
        return context.WrongUsage(*target + " is the name of a report, not of a batch file");
    }
    LoadRun run(context);
    run.Load(arguments);

    if (const auto reason = ReplaceFile(PathOf(*target), SaveBatch(run.Loaded(), Entries()))) {
        WriteFailed(context, *target, *reason);
        return kIncomplete;
    }
    bool complete = true;
    const FileSet& files = run.Loaded().Files;
    const std::pair<std::string_view, const std::string&> required[] = {
        {"lab blank", files.LabBlank},
        {"calibration report", files.Calib},
        {"check report", files.CheckCal}};
    for (const auto& [what, name] : required) {
        if (name.empty()) {
            context.Complain() << *target << " has no " << what << " and cannot be restored\n";
            complete = false;
        }
    }
    return complete && !run.Rejected() ? kDone : kIncomplete;
}

// ---- print

constexpr std::string_view kPrintOptions[] = {"--forms", kSampleOption, "-o", "--output-dir",
                                              "--printer"};

void PrintHelp(std::ostream& out) {
    out << kPrintHelp;
    for (const FormRow& form : kForms) {
        out << "  " << std::left << std::setw(5) << form.name << form.caption
            << (form.printSample ? ", for each sample" : "") << '\n';
    }
    out << kPrintStatus;
}

// The forms asked for, or what is wrong with the list.
std::variant<decltype(PackageChoice::forms), std::string> ParseForms(const std::string& list) {
    decltype(PackageChoice::forms) chosen{};
    for (std::size_t start = 0; start <= list.size();) {
        const std::size_t end = std::min(list.find(',', start), list.size());
        const std::string name = LowerCase(Trim(list.substr(start, end - start)));
        const auto* form = std::find_if(kForms.begin(), kForms.end(),
                                        [&](const FormRow& row) { return row.name == name; });
        if (form == kForms.end()) {
            return "there is no form \"" + name + "\"";
        }
        chosen[static_cast<std::size_t>(form - kForms.begin())] = true;
        start = end + 1;
    }
    return chosen;
}

// Which records of SampleList are to be printed; absent after the message that names an unknown
// sample.
std::optional<std::vector<bool>> ChooseSamples(const Context& context, const Arguments& arguments,
                                               const SampleListType& samples) {
    const auto names = arguments.options.find(kSampleOption);
    std::vector<bool> chosen(samples.size(), names == arguments.options.end());
    if (names == arguments.options.end()) {
        return chosen;
    }
    for (const std::string& name : names->second) {
        const std::string wanted = LowerCase(Trim(name));
        bool known = false;
        for (std::size_t i = 0; i < samples.size(); ++i) {
            if (wanted == LowerCase(Trim(samples[i].Header[HeaderField::kZovSampleNo])) ||
                wanted == FileNameOnly(samples[i].FileName)) {
                chosen[i] = true;
                known = true;
            }
        }
        if (!known) {
            context.Complain() << "the batch has no sample \"" << name << "\"\n";
            return std::nullopt;
        }
    }
    return chosen;
}

bool WriteJobs(const Context& context, const std::vector<PrintJob>& jobs, const std::string& title,
               const std::string& fileName) {
    const auto reason = context.platform.WritePdf(jobs, title, fileName);
    return !reason || WriteFailed(context, fileName, *reason);
}

bool WriteJobFiles(const Context& context, const std::vector<PrintJob>& jobs,
                   const std::string& directory) {
    std::error_code failed;
    fs::create_directories(PathOf(directory), failed);
    if (failed && !fs::is_directory(PathOf(directory))) {
        return WriteFailed(context, directory, failed.message());
    }
    bool all = true;
    std::set<std::string> taken;  // lower case
    for (const PrintJob& job : jobs) {
        const std::string base = context.platform.FileNameForTitle(job.title);
        std::string name = base;
        for (int i = 2; !taken.insert(LowerCase(name)).second; ++i) {
            name = base + " (" + std::to_string(i) + ")";
        }
        const std::string file = TextOf(PathOf(directory) / PathOf(name + ".pdf"));
        all = WriteJobs(context, {job}, job.title, file) && all;
    }
    return all;
}

bool PrintJobs(const Context& context, const std::vector<PrintJob>& jobs,
               const std::string& printer) {
    bool all = true;
    for (const PrintJob& job : jobs) {
        if (const auto reason = context.platform.PrintOnQueue(job, printer)) {
            context.Complain() << job.title << " could not be printed: " << *reason << '\n';
            all = false;
        }
    }
    return all;
}

bool HasPrinter(const Context& context, const std::string& printer) {
    const std::vector<std::string> printers = context.platform.Printers();
    if (std::find(printers.begin(), printers.end(), printer) != printers.end()) {
        return true;
    }
    context.Complain() << "there is no printer \"" << printer << "\"";
    if (printers.empty()) {
        context.err << "; none is installed, or the print service does not answer";
    }
    for (const std::string& name : printers) {
        context.err << (name == printers.front() ? "; there is " : ", ") << name;
    }
    context.err << '\n';
    return false;
}

int Print(const Arguments& arguments, const Context& context) {
    if (arguments.operands.size() != 1) {
        return context.WrongUsage("exactly one batch file is to be named");
    }
    const std::string& batchName = arguments.operands.front();
    const std::string* file = arguments.Value("-o");
    const std::string* directory = arguments.Value("--output-dir");
    const std::string* printer = arguments.Value("--printer");
    if ((file ? 1 : 0) + (directory ? 1 : 0) + (printer ? 1 : 0) != 1) {
        return context.WrongUsage("exactly one of -o, --output-dir and --printer is needed");
    }
    if (file && (IsReportName(*file) || EndsWith(*file, ".qff"))) {
        return context.WrongUsage(*file + " is not the name of a PDF file");
    }
    PackageChoice choice;
    choice.forms.fill(true);
    if (const std::string* list = arguments.Value("--forms")) {
        const auto parsed = ParseForms(*list);
        if (const auto* trouble = std::get_if<std::string>(&parsed)) {
            return context.WrongUsage(*trouble);
        }
        choice.forms = std::get<decltype(choice.forms)>(parsed);
        choice.byName = true;
    }

    std::optional<SavedBatch> saved = ReadBatch(context, batchName);
    if (!saved) {
        return kUnusable;
    }
    const SampleListType none;
    auto samples = ChooseSamples(context, arguments,
                                 saved->Batch.SampleList ? *saved->Batch.SampleList : none);
    if (!samples) {
        return kUnusable;
    }
    choice.samples = *std::move(samples);
    if (const auto reason = context.platform.Start()) {
        context.Complain() << *reason << '\n';
        return kIncomplete;
    }
    if (printer && !HasPrinter(context, *printer)) {
        return kUnusable;
    }

    MessageLines messages(context.err);
    const std::vector<PackageWork> works = PlanPackage(saved->Batch, choice);
    HeadlessHost host(std::move(*saved), context.platform.Metrics(), messages);
    std::vector<PrintJob> jobs;
    bool all = true;
    for (const PackageWork& work : works) {
        if (auto job = PrintWork(host, work)) {
            jobs.push_back(*std::move(job));
        } else {
            all = false;
        }
    }
    if (jobs.empty()) {
        return kIncomplete;
    }
    if (file) {
        const std::string title =
            jobs.size() == 1 ? jobs.front().title : TextOf(PathOf(batchName).stem());
        all = WriteJobs(context, jobs, title, *file) && all;
    } else if (directory) {
        all = WriteJobFiles(context, jobs, *directory) && all;
    } else {
        all = PrintJobs(context, jobs, *printer) && all;
    }
    return all ? kDone : kIncomplete;
}

// ---- show

constexpr std::array<std::string_view, SampleHeader::kCount> kHeaderLabels = {"ZOV sample no.",
                                                                              "Lab sample ID",
                                                                              "Lab name",
                                                                              "Contract",
                                                                              "Lab code",
                                                                              "Case no.",
                                                                              "Mod. ref no.",
                                                                              "SDG no.",
                                                                              "Matrix",
                                                                              "Sample wt/vol",
                                                                              "Wt/vol units",
                                                                              "Lab file ID",
                                                                              "Level",
                                                                              "Date received",
                                                                              "Date analyzed",
                                                                              "% moisture",
                                                                              "GC column",
                                                                              "Column ID, mm",
                                                                              "Dilution factor",
                                                                              "Soil extract volume",
                                                                              "Soil aliquot vol",
                                                                              "Purge volume",
                                                                              "Concentration units",
                                                                              "Instrument ID",
                                                                              "Heated purge",
                                                                              "Column length, m"};

class BatchText {
  public:
    explicit BatchText(std::ostream& out) : out_(out) {}

    void Paragraph(const std::string& head) {
        out_ << (first_ ? "" : "\n") << head << '\n';
        first_ = false;
    }
    void Value(std::string_view label, std::string_view value) {
        const std::string text = TrimRight(OneLine(PrintableDate(value)));
        out_ << "  ";
        if (text.empty()) {
            out_ << label << ':';
        } else {
            constexpr int kValueColumn = 22;
            out_ << std::left << std::setw(kValueColumn) << std::string(label) + ":" << text;
        }
        out_ << '\n';
    }
    template <typename List>
    void Values(const std::string& label, const List& values) {
        int number = 0;
        for (const auto& value : values) {
            Value(label + " " + std::to_string(++number), value);
        }
    }

  private:
    std::ostream& out_;
    bool first_ = true;
};

void ShowSamples(BatchText& text, const Batch& batch) {
    const SampleListType none;
    const SampleListType& samples = batch.SampleList ? *batch.SampleList : none;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const SampleRecord& record = samples[i];
        text.Paragraph("Sample " + std::to_string(i + 1) + " of " + std::to_string(samples.size()) +
                       (i < LabBlankRecords(batch) ? " (lab blank)" : ""));
        text.Value("Report", record.FileName);
        text.Value("Compounds", std::to_string(record.CompoundCount));
        for (int number = 1; number <= SampleHeader::kCount; ++number) {
            text.Value(kHeaderLabels[static_cast<std::size_t>(number) - 1],
                       record.Header[HeaderFieldAt(number)]);
        }
        if (record.TicList) {
            std::vector<std::string> tics;
            for (const TicEntry& tic : *record.TicList) {
                std::string& line = tics.emplace_back();
                for (const std::string& cell : tic.cells) {
                    line += (line.empty() ? "" : "; ") + cell;
                }
            }
            text.Values("TIC", tics);
        }
    }
}

void ShowFiles(BatchText& text, const Batch& batch) {
    const FileSet& files = batch.Files;
    text.Paragraph("Files");
    text.Value("Library", files.LibFile);
    text.Value("Internal standard", files.SurrFile);
    text.Value("Calibration", files.CalFile);
    text.Value("Lab blank", files.LabBlank);
    text.Values("Quantitation", files.QFiles);
    text.Value("Calibration report", files.Calib);
    text.Value("Check report", files.CheckCal);
    std::string hits;
    for (std::size_t i = 0; i < batch.BlankHitFlags.size(); ++i) {
        if (batch.BlankHitFlags[i]) {
            hits += (hits.empty() ? "" : " ") + std::to_string(i + 1);
        }
    }
    text.Value("Blank rows", std::to_string(batch.BlankHitFlags.size()));
    text.Value("Blank hits, rows", hits);
}

void ShowEntries(BatchText& text, const Entries& entries) {
    for (const EntryTable* const table : kEntryTables) {
        text.Paragraph(std::string(table->Caption));
        for (const EntryField& field : table->Fields) {
            for (std::size_t item = 0; item < ItemCount(field, entries); ++item) {
                text.Value(LabelOf(field, item), ShownText(field, entries, item));
            }
        }
    }
}

void ShowHelp(std::ostream& out) {
    out << kShowHelp;
}

int Show(const Arguments& arguments, const Context& context) {
    if (arguments.operands.size() != 1) {
        return context.WrongUsage("exactly one batch file is to be named");
    }
    const std::optional<SavedBatch> saved = ReadBatch(context, arguments.operands.front());
    if (!saved) {
        return kUnusable;
    }
    BatchText text(context.out);
    ShowSamples(text, saved->Batch);
    ShowFiles(text, saved->Batch);
    ShowEntries(text, saved->Entries);
    return kDone;
}

constexpr std::array<Command, 3> kCommands = {{
    {"load", kLoadOptions, LoadHelp, Load},
    {"print", kPrintOptions, PrintHelp, Print},
    {"show", {}, ShowHelp, Show},
}};

bool IsHelp(std::string_view argument) {
    return argument == "--help" || argument == "-h";
}

int Dispatch(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
             BatchPlatform& platform) {
    if (arguments.empty()) {
        err << kOverallHelp;
        return kUnusable;
    }
    if (IsHelp(arguments.front())) {
        out << kOverallHelp;
        return kDone;
    }
    const auto* command = std::find_if(kCommands.begin(), kCommands.end(), [&](const Command& c) {
        return c.name == arguments.front();
    });
    if (command == kCommands.end()) {
        err << "qfrbatch: unknown command " << arguments.front() << "\nTry \"qfrbatch --help\".\n";
        return kUnusable;
    }
    const std::span<const std::string> rest = std::span(arguments).subspan(1);
    if (std::any_of(rest.begin(), rest.end(), IsHelp)) {
        command->help(out);
        return kDone;
    }
    const Context context{command->name, out, err, platform};
    const auto parsed = ParseArguments(rest, command->options);
    if (const auto* trouble = std::get_if<std::string>(&parsed)) {
        return context.WrongUsage(*trouble);
    }
    return command->run(std::get<Arguments>(parsed), context);
}

}  // namespace

int RunBatchCommand(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
                    BatchPlatform& platform) {
    const int result = Dispatch(arguments, out, err, platform);
    out.flush();
    if (!out) {
        err << "qfrbatch: standard output could not be written\n";
        return std::max(result, kIncomplete);
    }
    return result;
}

}  // namespace qfr
