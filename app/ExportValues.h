// Export of values: what the forms of a batch state, as they would print, into files for other
// programs.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/Package.h"
#include "platform/FileReplace.h"
#include "review/FormValues.h"

namespace qfr {

enum class ExportFormat {
    kCsv,   // a folder with one file for each form
    kJson,  // one document
};

// Those of one form, and of one sample where it prints for each; absent when the driver refuses it
// with a message. The host is left as PrintWork leaves it.
std::optional<FormValues> ValuesOfWork(HeadlessHost& host, const PackageWork& work);

struct CollectedValues {
    std::vector<FormValues> Forms;   // that are not refused, in the order in which they print
    std::vector<std::string> Notes;  // what forms had to say, or why they are missing; a line each
};
// Of what the program holds at the moment; it is left as it was.
CollectedValues CollectValues(FormHost& program, TextMetrics& metrics);

// Of the file that a form has in a folder of tables.
std::string CsvName(const FormRow& form);

// Writes them at `path` (UTF-8), all files or none. Each form of kForms has its CSV file, also
// where it holds no values, so that none is left of an earlier batch. A folder that is not there is
// made.
std::optional<WriteFailure> WriteValues(const std::vector<FormValues>& forms, ExportFormat format,
                                        const std::string& path,
                                        ReadOnlyFile readOnly = ReadOnlyFile::kStays);

}  // namespace qfr
