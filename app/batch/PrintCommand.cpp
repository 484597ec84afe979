#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <iomanip>
#include <memory>
#include <set>
#include <sstream>
#include <system_error>

#include "app/HeadlessHost.h"
#include "app/Package.h"
#include "app/batch/BatchCommand.h"
#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/Text.h"

namespace qfr {
namespace {

namespace fs = std::filesystem;

struct Arguments {
    std::vector<std::string> Batches;
    std::string Forms;
    std::vector<std::string> Samples;
    // Where the pages go: one of these.
    std::string File;
    std::string Directory;
    std::string Printer;
};

std::string FormList() {
    std::ostringstream text;
    text << "Forms, in the order in which they print:";
    for (const FormRow& form : kForms) {
        text << "\n  " << std::left << std::setw(5) << form.name << form.caption
             << (form.printSample ? ", for each sample" : "");
    }
    return text.str();
}

PackageChoice ParseForms(const std::string& list) {
    PackageChoice choice;
    choice.byName = !list.empty();
    choice.forms.assign(kForms.size(), !choice.byName);
    std::istringstream items(choice.byName ? list + "," : "");
    for (std::string item; std::getline(items, item, ',');) {
        const std::string name = LowerCase(Trim(item));
        const auto form = std::ranges::find(kForms, name, &FormRow::name);
        if (form == kForms.end()) {
            throw WrongUsage("there is no form \"" + name + "\"");
        }
        choice.forms[static_cast<std::size_t>(form - kForms.begin())] = true;
    }
    return choice;
}

// Which records of the batch's SampleList are to be printed; the names that mean one of them are
// no longer unknown.
std::vector<bool> ChooseSamples(const Batch& batch, const std::vector<std::string>& names,
                                std::vector<std::string>& unknown) {
    std::vector<bool> chosen;
    for (const SampleRecord& sample : SamplesOf(batch)) {
        const std::string number = LowerCase(Trim(sample.Header[HeaderField::kZovSampleNo]));
        const std::string report = FileNameOnly(sample.FileName);
        const auto isMeant = [&](const std::string& name) {
            const std::string wanted = LowerCase(Trim(name));
            return wanted == number || wanted == report;
        };
        chosen.push_back(names.empty() || std::ranges::any_of(names, isMeant));
        std::erase_if(unknown, isMeant);
    }
    return chosen;
}

// The name, numbered where it is taken already by one that differs at most in case.
std::string UntakenName(const std::string& name, std::set<std::string>& taken) {
    std::string untaken = name;
    for (int i = 2; !taken.insert(LowerCase(untaken)).second; ++i) {
        untaken = name + " (" + std::to_string(i) + ")";
    }
    return untaken;
}

bool MakeFolder(Context& context, const fs::path& folder) {
    std::error_code failed;
    fs::create_directories(folder, failed);
    std::error_code unknown;
    if (failed && !fs::is_directory(folder, unknown)) {
        context.WriteFailed(TextOf(folder), failed.message());
        return false;
    }
    return true;
}

bool HasPrinter(Context& context, const std::string& printer) {
    std::string others;
    std::string reason = "none is installed, or the print service does not answer";
    for (const std::string& name : context.platform.Printers(reason)) {
        if (name == printer) {
            return true;
        }
        others += (others.empty() ? "there is " : ", ") + name;
    }
    context.Complain(kUnusable) << "there is no printer \"" << printer << "\"; "
                                << (others.empty() ? reason : others) << '\n';
    return false;
}

// Where the jobs go, one by one.
class Output {
  public:
    explicit Output(Context& context) : context_(context) {}
    virtual ~Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    // The next jobs are those of the batch of this name.
    virtual void Begin(const std::string& batch) = 0;
    // False: the other jobs of the batch cannot be taken either; the context knows why.
    virtual bool Take(PrintJob job) = 0;
    // There are no more jobs.
    virtual void Finish() {}

  protected:
    void Write(PdfWriter& pdf, const std::string& title, const std::string& fileName) {
        if (const auto reason = pdf.Write(title, fileName)) {
            context_.WriteFailed(fileName, *reason);
        }
    }

    Context& context_;
};

class OneDocument : public Output {
  public:
    OneDocument(Context& context, std::string file, bool several)
        : Output(context), file_(std::move(file)), several_(several) {}

    void Begin(const std::string& batch) override { batch_ = batch; }
    bool Take(PrintJob job) override {
        if (batches_.empty() || batch_ != lastPrinted_) {
            batches_ += (batches_.empty() ? "" : ", ") + batch_;
            lastPrinted_ = batch_;
        }
        title_ = jobs_++ == 0 ? job.title : batches_;
        job.form.insert(0, several_ ? batch_ + ": " : "");
        pdf_->Add(job);
        return true;
    }
    void Finish() override {
        if (pdf_->HasPages()) {
            RemoveLeftovers(PathOf(file_).parent_path());
            Write(*pdf_, title_, file_);
        }
    }

  private:
    const std::string file_;
    const bool several_;  // batches
    const std::unique_ptr<PdfWriter> pdf_ = context_.platform.NewPdf();
    std::string batch_;
    std::string lastPrinted_;
    std::string batches_;  // of which there is a job
    std::string title_;    // of the document: its only job's, or its batches'
    std::size_t jobs_ = 0;
};

class FileForEach : public Output {
  public:
    FileForEach(Context& context, std::string directory, bool several)
        : Output(context), directory_(std::move(directory)), several_(several) {}

    void Begin(const std::string& batch) override {
        folder_ = several_ ? PathOf(directory_) / PathOf(batch) : PathOf(directory_);
        files_.clear();
    }
    bool Take(PrintJob job) override {
        if (files_.empty()) {
            if (!MakeFolder(context_, folder_)) {
                return false;
            }
            RemoveLeftovers(folder_);
        }
        const std::string stem = UntakenName(FileNameForTitle(job.title), files_);
        const auto pdf = context_.platform.NewPdf();
        pdf->Add(job);
        Write(*pdf, job.title, TextOf(folder_ / PathOf(stem + ".pdf")));
        return true;
    }

  private:
    const std::string directory_;
    const bool several_;  // batches
    fs::path folder_;
    std::set<std::string> files_;  // of the batch
};

class OnPrinter : public Output {
  public:
    OnPrinter(Context& context, std::string printer)
        : Output(context), printer_(std::move(printer)) {}

    void Begin(const std::string& /*batch*/) override {}
    bool Take(PrintJob job) override {
        if (const auto reason = context_.platform.PrintOnQueue(job, printer_)) {
            context_.Complain() << job.title << " could not be printed: " << *reason << '\n';
        }
        return true;
    }

  private:
    const std::string printer_;
};

std::unique_ptr<Output> MakeOutput(Context& context, const Arguments& arguments) {
    const bool several = arguments.Batches.size() > 1;
    if (!arguments.Printer.empty()) {
        return std::make_unique<OnPrinter>(context, arguments.Printer);
    }
    if (!arguments.Directory.empty()) {
        return std::make_unique<FileForEach>(context, arguments.Directory, several);
    }
    return std::make_unique<OneDocument>(context, arguments.File, several);
}

// Records the jobs of the forms that are not refused and hands each over, in the order in which
// they print.
void PrintBatch(Context& context, NamedBatch batch, const PackageChoice& choice, Output& output) {
    context.prefix = batch.prefix;
    const std::vector<PackageWork> dueJobs = PlanPackage(batch.saved.Batch, choice);
    const std::optional<Message> limitsNote = batch.saved.LimitsNote;
    HeadlessHost host(std::move(batch.saved), context.platform.Metrics(), context);
    for (const PackageWork& dueJob : dueJobs) {
        if (context.IsEnding()) {
            break;
        }
        if (limitsNote && dueJob.form->entry == EntryDialog::kRecoveryRanges) {
            context.Show(*limitsNote);
        }
        auto job = PrintWork(host, dueJob);
        if (job && !output.Take(*std::move(job))) {
            break;
        }
    }
    // A page that was printed with a message is not to pass for one without.
    context.Fail(context.anyMessages ? kIncomplete : kDone);
    context.prefix.clear();
}

void Print(const Arguments& arguments, Context& context) {
    const auto& [names, forms, samples, file, directory, printer] = arguments;
    if (std::ranges::count(std::array{file, directory, printer}, "") != 2) {
        throw WrongUsage("exactly one of -o, --output-dir and --printer is needed");
    }
    if (IsReportName(file) || EndsWith(file, ".qff")) {
        throw WrongUsage(file + " is not the name of a PDF file");
    }
    PackageChoice choice = ParseForms(forms);
    std::vector<NamedBatch> batches = ReadBatches(context, names);
    std::vector<std::vector<bool>> chosen;
    std::vector<std::string> unknown = samples;
    for (const NamedBatch& batch : batches) {
        chosen.push_back(ChooseSamples(batch.saved.Batch, samples, unknown));
    }
    if (batches.empty()) {
        return;
    }
    if (!unknown.empty()) {
        context.Complain(kUnusable) << (batches.size() == 1 ? "the batch has" : "the batches have")
                                    << " no sample \"" << unknown.front() << "\"\n";
        return;
    }
    if (const auto reason = context.platform.Start()) {
        context.Complain() << *reason << '\n';
        return;
    }
    if (!printer.empty() && !HasPrinter(context, printer)) {
        return;
    }

    const std::unique_ptr<Output> output = MakeOutput(context, arguments);
    std::set<std::string> taken;
    for (std::size_t i = 0; i < batches.size(); ++i) {
        output->Begin(UntakenName(Visible(TextOf(PathOf(batches[i].name).stem())), taken));
        choice.samples = chosen[i];
        PrintBatch(context, std::move(batches[i]), choice, *output);
    }
    if (!context.IsEnding()) {
        output->Finish();
    }
}

}  // namespace

void AddPrintCommand(CLI::App& program, Context& context) {
    CLI::App& command = *program.add_subcommand(
        "print",
        "Prints the forms of batches with the entries that were saved in them,\n"
        "to one of -o, --output-dir and --printer.");
    const auto arguments = std::make_shared<Arguments>();
    AddNames(command, "BATCH.qff", arguments->Batches, "...",
             "batch files, in the order in which they print");
    AddOption(command, "--forms", arguments->Forms, "LIST",
              "forms to print, as 1,2,8; every form without this option\n"
              "(tic then only for samples that have TICs)");
    AddNames(command, "--sample", arguments->Samples, "NAME ...",
             "of the forms that are printed for each sample, only these samples:\n"
             "sample numbers or names of reports, of whichever batch; may be\n"
             "repeated. What is named behind a batch and --sample is a sample");
    AddOption(command, "-o", arguments->File, "FILE.pdf",
              "all forms in one PDF file, those of several batches one after another");
    AddOption(command, "--output-dir", arguments->Directory, "DIR",
              "one PDF file for each form and sample, in this directory; of several\n"
              "batches each in a directory of its own there, named as the batch");
    AddOption(command, "--printer", arguments->Printer, "QUEUE", "on an installed printer");
    command.footer(FormList());
    command.callback([arguments, &context] { Print(*arguments, context); });
}

}  // namespace qfr
