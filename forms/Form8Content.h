// What Form VIII states: areas and retention times of the internal standards in the 12-hour
// standard and in every sample, and which of them are outside the standard's window.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/CalibrationTables.h"
#include "data/Entries.h"
#include "data/Reports.h"
#include "forms/FormContent.h"
#include "platform/Messages.h"

namespace qfr {

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

// The sample number is the 12-hour standard's.
struct Form8Content : FormContent {
    struct Peak {
        std::string Area;
        std::string AreaFlag;
        std::string RT;
        std::string RTFlag;
    };
    struct Sample {
        std::string SampleNo;
        std::array<Peak, InternalStandardNames.size()> Peaks;
    };
    std::string LabFileId;
    std::string FirstCalibrationDate;
    std::string LastCalibrationDate;
    std::string DateAnalyzed;
    std::string TimeAnalyzed;
    StandardISTable Standard;
    std::vector<Sample> Samples;  // as in SampleList
};

// The standard is that of the check report when there is one, else the chosen level of the
// calibration report. A message names it and the samples where they lack values. Absent, after
// messages, when a sample's report cannot be opened or no level
// has the chosen concentration.
std::optional<Form8Content> BuildForm8Content(const Batch& batch, std::size_t headerRecord,
                                              const CheckReport* check,
                                              const CalibrationReport* calibration, int levelCount,
                                              const StandardSummaryEntry& entry, Reports& reports,
                                              Messages& messages);

// The number in the text times `factor`, or plus `offset`; empty when the text is no number.
std::string ScaleText(std::string_view text, double factor, int decimals);
std::string ShiftText(std::string_view text, double offset, int decimals);

// Whether the value is beyond its limits. A value at a limit is inside, and so is one that cannot
// be compared because one of the three is empty or no number.
bool OutsideLimits(std::string_view value, std::string_view lower, std::string_view upper);

// Asks for what the form needs: what it would print for the batch; absent after a message, or when
// the dialog was cancelled.
std::optional<Form8Content> PrepareForm8(FormHost& host);

// The driver: prints that.
void Form8ARTClick(FormHost& host);

}  // namespace qfr
