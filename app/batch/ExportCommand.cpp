#include <CLI/CLI.hpp>
#include <memory>

#include "app/ExportValues.h"
#include "app/HeadlessHost.h"
#include "app/batch/BatchCommand.h"
#include "platform/FileLookup.h"
#include "platform/Text.h"

namespace qfr {
namespace {

struct Arguments {
    std::vector<std::string> Batches;
    std::string Format;
    std::string Path;
};

ExportFormat ParseFormat(const std::string& name) {
    if (name.empty()) {
        throw WrongUsage("--format csv or --format json is missing");
    }
    if (name != "csv" && name != "json") {
        throw WrongUsage("there is no format \"" + name + "\"");
    }
    return name == "csv" ? ExportFormat::kCsv : ExportFormat::kJson;
}

// Of the forms that are not refused, in the order in which they print.
std::vector<FormValues> Collect(Context& context, SavedBatch saved) {
    const std::vector<PackageWork> dueWork = PlanWholePackage(saved.Batch);
    const std::optional<Message> limitsNote = saved.LimitsNote;
    HeadlessHost host(std::move(saved), context.platform.Metrics(), context);
    std::vector<FormValues> forms;
    for (const PackageWork& work : dueWork) {
        if (context.IsEnding()) {
            break;
        }
        if (limitsNote && work.form->entry == EntryDialog::kRecoveryRanges) {
            context.Show(*limitsNote);
        }
        if (auto values = ValuesOfWork(host, work)) {
            forms.push_back(*std::move(values));
        }
    }
    // Values that were exported with a message are not to pass for some without.
    context.Fail(context.anyMessages ? kIncomplete : kDone);
    return forms;
}

void Export(const Arguments& arguments, Context& context) {
    const ExportFormat format = ParseFormat(arguments.Format);
    const std::string& path = arguments.Path;
    if (path.empty()) {
        throw WrongUsage("-o PATH is missing");
    }
    if (IsReportName(path) || EndsWith(path, ".qff") || EndsWith(path, ".d") ||
        EndsWith(path, ".txt")) {
        throw WrongUsage(path + " has the name of what a batch is made of, not of exported values");
    }
    if (arguments.Batches.size() > 1) {
        throw WrongUsage("only one batch can be exported at a time");
    }
    std::vector<NamedBatch> batches = ReadBatches(context, arguments.Batches);
    if (batches.empty()) {
        return;
    }
    // The room for comments is measured.
    if (const auto reason = context.platform.Start()) {
        context.Complain() << *reason << '\n';
        return;
    }
    const std::vector<FormValues> forms = Collect(context, std::move(batches.front().saved));
    if (context.IsEnding()) {
        return;
    }
    if (forms.empty()) {
        context.Complain() << "no form states any values; " << path << " is not written\n";
        return;
    }
    if (const auto failure = WriteValues(forms, format, path)) {
        context.WriteFailed(TextOf(failure->Target), failure->Reason);
    }
}

}  // namespace

void AddExportCommand(CLI::App& program, Context& context) {
    CLI::App& command = *program.add_subcommand(
        "export",
        "Writes the values and flags that the forms of a batch state, for other\n"
        "programs. A form that would not print is left out.");
    const auto arguments = std::make_shared<Arguments>();
    AddNames(command, "BATCH.qff", arguments->Batches, "", "the batch file");
    AddOption(command, "--format", arguments->Format, "csv|json",
              "csv: a table for each form, form-1.csv to form-8.csv\n"
              "json: one document");
    AddOption(command, "-o", arguments->Path, "PATH",
              "the directory of the tables, which is made where there is none, or\n"
              "the file of the document");
    command.callback([arguments, &context] { Export(*arguments, context); });
}

}  // namespace qfr
