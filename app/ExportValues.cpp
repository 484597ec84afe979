#include "app/ExportValues.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>

#include "platform/FileLookup.h"
#include "platform/Text.h"
#include "review/ValueFiles.h"

namespace qfr {

namespace {

namespace fs = std::filesystem;

std::vector<NewFile> CsvFiles(const std::vector<FormValues>& forms, const fs::path& folder) {
    std::vector<NewFile> files;
    for (const FormRow& row : kForms) {
        std::vector<FormValues> ofForm;
        std::ranges::copy_if(forms, std::back_inserter(ofForm),
                             [&](const FormValues& form) { return form.Form == row.name; });
        files.push_back({folder / CsvName(row), CsvText(ofForm)});
    }
    return files;
}

}  // namespace

std::optional<FormValues> ValuesOfWork(HeadlessHost& host, const PackageWork& work) {
    const auto content = PrepareWork(host, work);
    if (!content) {
        return std::nullopt;
    }
    FormValues values = ValuesOf(*content);
    values.Form = work.form->name;
    if (work.record) {
        const SampleRecord& sample = (*host.Batch().SampleList)[*work.record];
        values.Sample = SampleName(sample);
        values.Report = FileNameOnly(sample.FileName);
    }
    return values;
}

CollectedValues CollectValues(FormHost& program, TextMetrics& metrics) {
    KeptMessages messages;
    // On copies, as a package is printed.
    HeadlessHost host({program.Batch(), program.Entries(), program.Flags()}, metrics, messages);
    host.LevelCount() = program.LevelCount();
    CollectedValues collected;
    for (const PackageWork& work : PlanWholePackage(host.Batch())) {
        auto values = ValuesOfWork(host, work);
        for (const Message& message : messages.Take()) {
            std::string note(work.form->caption);
            if (work.record) {
                note += ", " + SampleName((*host.Batch().SampleList)[*work.record]);
            }
            note += values ? ": " : ", left out: ";
            collected.Notes.push_back(note + AsLine(message));
        }
        if (values) {
            collected.Forms.push_back(*std::move(values));
        }
    }
    return collected;
}

std::string CsvName(const FormRow& form) {
    return "form-" + std::string(form.name) + ".csv";
}

std::optional<WriteFailure> WriteValues(const std::vector<FormValues>& forms, ExportFormat format,
                                        const std::string& path, ReadOnlyFile readOnly) {
    const fs::path target = PathOf(path);
    const bool isFolder = format == ExportFormat::kCsv;
    std::error_code failed;
    if (isFolder) {
        fs::create_directories(target, failed);
        std::error_code unknown;
        if (failed && !fs::is_directory(target, unknown)) {
            return WriteFailure{target, failed.message()};
        }
    }
    RemoveLeftovers(isFolder ? target : target.parent_path());
    return ReplaceFiles(
        isFolder ? CsvFiles(forms, target) : std::vector<NewFile>{{target, JsonText(forms)}},
        readOnly);
}

}  // namespace qfr
