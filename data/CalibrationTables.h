// The response factors of the initial calibration, read from the calibration report, and what the
// calibration forms print of them.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Entries.h"
#include "platform/LineReader.h"
#include "platform/Messages.h"

namespace qfr {

// One compound. Slot i, from 0, belongs to calibration level i + 1.
struct CalibrationRecord {
    std::string Name;                            // lower case
    char Type = ' ';                             // 'A' or 'S'
    std::array<std::string, kMaxLevels> Amount;  // as written in the report
    std::array<std::string, kMaxLevels> RF;      // whole numbers; empty where the level is not used
    std::string MeanRF;                          // empty when no level is used
    std::string RSD;                             // percent, two decimals; empty as MeanRF
};

// What the calibration forms keep from one job to the next.
struct CalibrationTables {
    std::vector<CalibrationRecord> RFTable;  // in the order of the report
    int LevelCount = 0;                      // levels of the calibration report, up to kMaxLevels
    std::array<std::string, kMaxLevels> LevelAmount;  // head of each level's column
    int RFRowCount = 0;                               // records of RFTable
};

// The paths of the raw data files that a calibration report lists, as they stand there. Reads the
// report from its start; empty when it holds no list.
std::vector<std::string> ReadDataFileList(LineReader& report);

// Takes the lab file IDs and the dates of the first and the last standard from the raw data files
// that the report lists, into `entry`. `folder` is the report's. A file that is missing empties the
// entry, with one message, unless the user has accepted the entry before (`initCalEntered`).
// Returns the number of levels, at most kMaxLevels (a message tells of more).
int ReadCalibrationDataFiles(LineReader& report, std::string_view folder, bool initCalEntered,
                             InitialCalibrationEntry& entry, Messages& messages);

// Leaves the report on the first compound block: behind its second blank line.
void SkipCalibrationHeader(LineReader& report);

// The compounds of the report, up to the first block that is neither an analyte's nor a
// surrogate's. Absent, after a message, when a response factor that is used is no number.
std::optional<std::vector<CalibrationRecord>> BuildRFTable(LineReader& report, int levelCount,
                                                           Messages& messages);

// The amount that heads the column of a level (from 0): one that more than half of the compounds
// share, without trailing zeros. Empty for an empty table.
std::string ChooseLevelAmount(const std::vector<CalibrationRecord>& table, std::size_t level);

// Sets all of LevelAmount from RFTable; levels beyond LevelCount get none.
void ChooseLevelAmounts(CalibrationTables& tables);

}  // namespace qfr
