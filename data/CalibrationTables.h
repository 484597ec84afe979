// The response factors of the initial calibration and what the calibration forms print of them; the
// rows of the continuing calibration beside them.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/CalibrationReport.h"
#include "data/CheckReport.h"
#include "data/Entries.h"
#include "data/Reports.h"
#include "platform/Messages.h"

namespace qfr {

// The title of what is said of a check report that cannot be used as it is.
inline constexpr char kCheckFileError[] = "Check Calibration File Error";

// One compound, its response factors as whole numbers.
struct CalibrationRecord : CompoundBlock {
    std::string MeanRF;  // empty when no level is used
    std::string RSD;     // percent, two decimals; empty without a mean to relate to
};

// Takes the lab file IDs and the dates of the first and the last standard from the raw data files
// that the report lists, into `entry`. A file that is missing empties the entry, with one message,
// unless the user has accepted the entry before (`initCalEntered`): then one message names the
// levels whose lab file ID is another one now, and the dates. Returns the number of levels, at most
// kMaxLevels (a message tells of more).
int ReadCalibrationDataFiles(const FileContent<CalibrationReport>& report, Reports& reports,
                             bool initCalEntered, InitialCalibrationEntry& entry,
                             Messages& messages);

// The compounds of the report with the results of its first `levelCount` levels. Absent, after a
// message, when a response factor that is used is no number.
std::optional<std::vector<CalibrationRecord>> BuildRFTable(const CalibrationReport& report,
                                                           int levelCount, Messages& messages);

// Tells of a report that has no compounds or, behind them, text that is not read; `name`: of its
// file.
void TellOfDamage(const CalibrationReport& report, std::string_view name, Messages& messages);

// What a compound says about the amount of a level.
struct AmountVote {
    std::string_view Amount;  // as written; its text outlives the vote
    char Type = ' ';          // only 'A' votes count
};

// The amount that heads a column: one that more than half of the compounds share, without trailing
// zeros. Empty without compounds.
std::string ChooseAmount(std::span<const AmountVote> votes);
// That of a level, from 0.
std::string ChooseLevelAmount(const std::vector<CalibrationRecord>& table, std::size_t level);
// Those of the first `levelCount` levels.
std::vector<std::string> ChooseLevelAmounts(const std::vector<CalibrationRecord>& table,
                                            int levelCount);

// Takes the standard's date and time and its lab file ID from the raw data file that the report
// names. A file that cannot be opened changes nothing, and so does one without the title of a raw
// data file: the report may name any file, and the form would print its lines.
void ReadCheckStandardInfo(const FileContent<CheckReport>& report, Reports& reports,
                           ContinuingCalibrationEntry& entry);

// One row for each of `rfTable`, matched by position; rows that the report lacks are empty.
std::vector<CheckRow> ReadCheckTable(const CheckReport& report,
                                     const std::vector<CalibrationRecord>& rfTable);

// Tells of a report whose rows do not follow `rfTable`: they are fewer, or name other compounds.
// `name`: of its file. Not of one without a table.
void TellOfOtherRows(const CheckReport& report, const std::vector<CalibrationRecord>& rfTable,
                     std::string_view name, Messages& messages);

}  // namespace qfr
