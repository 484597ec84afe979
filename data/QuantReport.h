// Quantitation reports (*.prn) of Tallyworks 4.2: title, labelled header lines, and a compound
// table that starts at "compound#" and ends at the first blank line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Batch.h"
#include "platform/FileLookup.h"
#include "platform/LineReader.h"
#include "platform/Messages.h"

namespace qfr {

// A report carries at most this many compound rows.
inline constexpr int kMaxCompoundRows = 301;

enum class QuantReportVerdict {
    kAccepted,
    kRejected,     // the message was shown; the report is to be left out
    kTooManyRows,  // as kRejected, and an otherwise empty batch is to be cleared
};

// The file names that the reports of one batch must agree on, lower case and trimmed.
struct ExpectedNames {
    std::string Library;
    std::string Calibration;
    std::string InternalStandard;
};
ExpectedNames ExpectedNamesOf(const FileSet& files);

// Checks one report before it enters the batch and shows the message of a rejection. A file that
// cannot be opened is accepted. An empty name in `files` takes the report's (and so does
// `expected`), also when the report is rejected at a later line.
QuantReportVerdict ValidateQuantReport(const std::string& fileName, FileSet& files,
                                       ExpectedNames& expected, Messages& messages);

// Fills a new record from the report's header and counts its compound rows. `folder` is where a
// report that is not at its name is looked for. A file that cannot be opened leaves the record's
// defaults (and sets its FileName).
void ReadSampleHeader(const std::string& fileName, std::string_view folder, SampleRecord& record);
// The same for many reports in a row.
void ReadSampleHeader(const std::string& fileName, std::string_view folder, SampleRecord& record,
                      FileFinder& finder);

// Which compounds the lab blank contains, one flag per compound row: detected, and not an estimate.
std::vector<bool> ReadBlankHits(const std::string& fileName, std::string_view folder);

// The report opened on the line after its table head; absent when it cannot be opened. A report
// without a table head is left at its end.
std::optional<LineReader> OpenCompoundTable(const std::string& fileName, std::string_view folder);

// Whether the line, trimmed, is the head of a compound table.
bool IsCompoundTableHead(std::string_view line);

}  // namespace qfr
