// The response factors of the initial calibration, read from the calibration report, and what the
// calibration forms print of them.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "data/Entries.h"

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

}  // namespace qfr
