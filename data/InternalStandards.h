// Peak areas and retention times of the internal standards, in the samples and in the 12-hour
// standard, and the window that the samples must keep.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Batch.h"
#include "data/CalibrationTables.h"
#include "data/Entries.h"
#include "platform/LineReader.h"
#include "platform/Messages.h"

namespace qfr {

// Slots as in InternalStandardNames. A standard that the report lacks is empty.
struct SampleISData {
    std::array<std::string, InternalStandardNames.size()> Area;  // counts, decimals cut off
    std::array<std::string, InternalStandardNames.size()> RT;    // minutes, as written
};

// The values of one sample from its quantitation report, read from its start.
SampleISData ReadISBlock(LineReader& report);

// One per record of SampleList. Absent when a report cannot be opened; each such report is named in
// a message.
std::optional<std::vector<SampleISData>> ReadSampleISData(const Batch& batch, Messages& messages);

struct StandardISRecord {
    std::string Area;
    std::string RT;
    std::string AreaUpper;  // the limits are empty where area or RT is no number
    std::string AreaLower;
    std::string RTUpper;
    std::string RTLower;
};
// Slots as in InternalStandardNames.
using StandardISTable = std::array<StandardISRecord, InternalStandardNames.size()>;

// The standard's values from the continuing calibration report.
StandardISTable StandardFromCheckReport(LineReader& report);

// The standard's areas from the initial calibration report, at the level whose amount is
// `concentration`, and the typed retention times. Absent, after a message, when no level has it. Of
// several levels of that amount the one at `chosenLevel` (from 0) is taken, if it is among them.
std::optional<StandardISTable> StandardFromCalibration(
    LineReader& report, const CalibrationTables& tables, std::string_view concentration,
    const std::array<std::string, InternalStandardNames.size()>& retentionTimes, Messages& messages,
    int chosenLevel = -1);

// The number in the text times `factor`, or plus `offset`; empty when the text is no number.
std::string ScaleText(std::string_view text, double factor, int decimals);
std::string ShiftText(std::string_view text, double offset, int decimals);

// Whether the value is beyond its limits. A value at a limit is inside, and so is one that cannot
// be compared because one of the three is empty or no number.
bool OutsideLimits(std::string_view value, std::string_view lower, std::string_view upper);

}  // namespace qfr
