// What Form VII reads of a continuing calibration report (*.check).
#pragma once

#include <string_view>
#include <vector>

#include "data/CalibrationTables.h"
#include "data/Entries.h"
#include "platform/LineReader.h"

namespace qfr {

// Takes the standard's date and time and its lab file ID from the raw data file that the report
// names on its sixth line; `folder` is the report's. A file that does not open changes nothing.
void ReadCheckStandardInfo(LineReader& report, std::string_view folder,
                           ContinuingCalibrationEntry& entry);

// Leaves the report on the line after its table head, searched from the report's start. False: it
// holds no table head and is left at its end.
bool FindCheckTable(LineReader& report);

// Where the records of a check table keep what Form VII prints, beside Name and Type. Levels from
// 0.
inline constexpr std::size_t kCheckMeanRF = 0;    // of RF: mean of the initial calibration
inline constexpr std::size_t kCheckRF = 1;        // of RF: of the continuing standard
inline constexpr std::size_t kCheckAmount = 0;    // of Amount: of the continuing standard
inline constexpr std::size_t kCheckPercentD = 1;  // of Amount: the %D

// One record for each of `rfTable`, matched by position and with its type; rows that the report
// lacks are empty.
std::vector<CalibrationRecord> ReadCheckTable(LineReader& report,
                                              const std::vector<CalibrationRecord>& rfTable);

}  // namespace qfr
