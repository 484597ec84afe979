// Initial calibration reports (*.cal) of Tallyworks 4.2: title, the files that it was made with,
// the raw data files of its standards, and behind the second blank line a block of three lines for
// each compound.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "data/Entries.h"
#include "data/QuantReport.h"
#include "data/ReportFrame.h"
#include "platform/LineReader.h"

namespace qfr {

// Slot i, from 0, belongs to calibration level i + 1; its texts are as written.
struct CompoundBlock {
    std::string Name;  // lower case
    char Type = ' ';   // 'A' analyte, 'S' surrogate
    std::array<std::string, kMaxLevels> Amount;
    std::array<std::string, kMaxLevels> RF;  // empty where the level is not used
};

// A report with more is refused.
inline constexpr std::size_t kMaxCompounds = 2'000;
inline constexpr std::string_view kMaxCompoundsText = "2,000 compounds";

struct CalibrationReport {
    ReportFrame Frame;
    // The paths of the raw data files, as they stand; one for each level.
    std::vector<std::string> DataFiles;
    // In report order, up to the first block that is neither an analyte's nor a surrogate's; the
    // first kMaxCompounds.
    std::vector<CompoundBlock> Blocks;
    // There is text behind the block at which Blocks end, besides the blocks of internal standards
    // (type 'I'); or a compound's block is cut short at the end of the report.
    bool HasTextBehind = false;
    bool TooManyBlocks = false;
    bool TextsCut = false;  // it holds texts longer than kMaxPrintedText
    // The areas of each internal standard, in the order of InternalStandardNames, by level; counts,
    // decimals cut off. Empty for a standard that the report lacks.
    std::array<std::array<std::string, kMaxLevels>, InternalStandardNames.size()> StandardAreas;

    static CalibrationReport Read(LineReader file);
};

}  // namespace qfr
