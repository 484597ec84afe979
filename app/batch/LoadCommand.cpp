#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstddef>
#include <memory>
#include <variant>

#include "app/batch/BatchCommand.h"
#include "data/LabFiles.h"
#include "data/LoadFiles.h"
#include "data/QuantReport.h"
#include "data/ReportFrame.h"
#include "platform/DateTime.h"
#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/HostSystem.h"
#include "platform/Text.h"

namespace qfr {
namespace {

struct Arguments {
    std::string Blank;
    std::string Cal;
    std::string Check;
    std::string Defaults;
    std::string Target;
    std::vector<std::string> Reports;
};

// No entries have been made yet, and a report that cannot be taken costs no other.
class LoadOwner : public BatchOwner {
  public:
    explicit LoadOwner(Context& context) : context_(context) {}
    void ResetEntryDialogs() override {}
    bool ClearsForTooManyRows(const std::string& fileName) override {
        context_.Complain() << FileNameOnly(fileName) << " has more than " << kMaxCompoundRows
                            << " compound rows and is left out\n";
        return false;
    }

  private:
    Context& context_;
};

// The full path of a file that can be read. The dialog offers only such files, and its rules let
// others pass.
std::optional<std::string> FullPath(Context& context, const std::string& name) {
    if (!OpenInput(context, name, true)) {
        return std::nullopt;
    }
    std::string full = TextOf(FullPathOf(FindFile(name).value_or("")));
    if (full.empty() || full.find_first_of(";\r\n") != std::string::npos) {
        context.Complain() << OneLine(name) << " has a path that no batch file can hold\n";
        return std::nullopt;
    }
    return full;
}

void FillHeader(SampleHeader& header, const std::vector<std::string>& defaults) {
    for (std::size_t i = 0; i < std::min(defaults.size(), kDefaultsFields.size()); ++i) {
        std::string& value = header[kDefaultsFields[i]];
        value = Trim(value).empty() ? defaults[i] : value;
    }
    // An untouched date is stored as its mask, as the dialog stores it, and counts as filled in.
    std::string& received = header[HeaderField::kDateReceived];
    received = OrEmptyMask(received, kEmptyDateTimeMask);
}

Batch LoadBatch(const Arguments& arguments, Context& context) {
    const auto paths = [&](const std::vector<std::string>& names) {
        std::vector<std::string> found;
        for (const std::string& name : names) {
            if (const auto path = FullPath(context, name)) {
                found.push_back(*path);
            }
        }
        return found;
    };
    // None where the option is not given.
    const auto pathOf = [&](const std::string& name) {
        return name.empty() ? std::vector<std::string>() : paths({name});
    };
    Batch batch;
    Reports files(context);
    LoadOwner owner(context);
    const auto take = [&](TakeReports& takeReports, const std::vector<std::string>& found) {
        if (!found.empty()) {
            takeReports(batch, found, files, context, owner);
        }
    };
    take(TakeLabBlank, pathOf(arguments.Blank));
    take(AddQuantReports, paths(arguments.Reports));
    take(TakeCalReport, pathOf(arguments.Cal));
    take(TakeCheckReport, pathOf(arguments.Check));
    BuildSampleList(batch, files);
    std::vector<std::string> defaults;
    for (const std::string& path : pathOf(arguments.Defaults)) {
        if (auto values = ReadDefaultsFile(PathOf(path))) {
            defaults = *std::move(values);
            if (defaults.size() < kDefaultsFields.size()) {
                context.Show(CouldNotReadValues());
            }
        } else {
            context.Show(OverLimitMessage(FileNameOnly(path), LineReader::kMaxFileSizeText));
        }
        for (const Message& message : MakeBatchTexts(defaults, path)) {
            context.Show(message);
        }
    }
    if (batch.SampleList) {
        for (SampleRecord& record : *batch.SampleList) {
            FillHeader(record.Header, defaults);
        }
    }
    context.Fail(context.anyMessages ? kIncomplete : kDone);
    return batch;
}

bool CanBeRestored(std::optional<LineReader> file) {
    return file && std::holds_alternative<SavedBatch>(RestoreBatch(*std::move(file), ""));
}

void Load(const Arguments& arguments, Context& context) {
    const std::string& target = arguments.Target;
    if (target.empty()) {
        throw WrongUsage("-o BATCH.qff is missing");
    }
    // "-o *.prn" would replace the first report.
    if (IsReportName(target)) {
        throw WrongUsage(target + " is the name of a report, not of a batch file");
    }
    const Batch batch = LoadBatch(arguments, context);
    if (context.IsEnding()) {
        return;
    }
    const FileSet& files = batch.Files;
    if (!FilesSpecified(batch) && files.Calib.empty() && files.CheckCal.empty()) {
        context.Complain() << "no report was accepted; " << target << " is not written\n";
        return;
    }
    const std::string content = SaveBatch(batch, Entries());
    const bool restores = CanBeRestored(LineReader(content));
    const bool keeps = !restores && CanBeRestored(LineReader::Open(PathOf(target)));
    if (!keeps) {
        RemoveLeftovers(PathOf(target).parent_path());
        if (const auto reason = ReplaceFile(PathOf(target), content)) {
            context.WriteFailed(target, *reason);
            return;
        }
    }
    const std::vector<std::string_view> lacking = LackingForRestore(files);
    const std::string batchName = keeps ? "the new batch" : target;
    for (const std::string_view what : lacking) {
        context.Complain() << batchName << " has no " << what << " and cannot be restored\n";
    }
    if (!restores && lacking.empty()) {
        context.Complain() << batchName << " cannot be restored\n";
    }
    if (keeps) {
        context.Complain() << target << " can be restored and is not replaced\n";
    }
}

}  // namespace

void AddLoadCommand(CLI::App& program, Context& context) {
    CLI::App& command = *program.add_subcommand(
        "load",
        "Checks reports as the Load Files dialog does and writes a batch of\n"
        "those that pass.");
    const auto arguments = std::make_shared<Arguments>();
    AddOption(command, "--blank", arguments->Blank, "FILE.prn",
              "quantitation report of the lab blank");
    AddOption(command, "--cal", arguments->Cal, "FILE.cal", "initial calibration report");
    AddOption(command, "--check", arguments->Check, "FILE.check", "continuing calibration report");
    AddOption(command, "--defaults", arguments->Defaults, "FILE",
              "laboratory values for the empty header values of every sample,\n"
              "as the Form 1 dialog saves them");
    AddOption(command, "-o", arguments->Target, "BATCH.qff",
              "batch file to write; a file of that name is replaced, but no batch that can\n"
              "be restored by one that cannot");
    AddNames(command, "FILE.prn", arguments->Reports, "...", "quantitation reports of the samples");
    command.callback([arguments, &context] { Load(*arguments, context); });
}

}  // namespace qfr
