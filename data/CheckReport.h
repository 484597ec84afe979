// Continuing calibration reports (*.check) of Tallyworks 4.2: title, the files that it was made
// with, on its sixth line the raw data file of the standard, and a table with one compound a line.
#pragma once

#include <string>
#include <vector>

#include "data/QuantReport.h"
#include "data/ReportFrame.h"
#include "platform/LineReader.h"

namespace qfr {

// One compound of the table, as written.
struct CheckRow {
    std::string Name;      // lower case
    std::string MeanRF;    // of the initial calibration
    std::string Amount;    // of the continuing standard
    std::string RF;        // of the continuing standard
    std::string PercentD;  // its difference from the mean
};

struct CheckReport {
    ReportFrame Frame;
    std::string StandardFile;  // path of the standard's raw data file
    bool HasTable = false;     // also with an indented head
    // The lines of the table to the end of the report, the first kMaxCompounds; a blank one is an
    // empty row.
    std::vector<CheckRow> Rows;
    InternalStandardPeaks InternalStandards;  // of the continuing standard
    bool TextsCut = false;                    // it holds texts longer than kMaxPrintedText

    static CheckReport Read(LineReader file);
};

}  // namespace qfr
