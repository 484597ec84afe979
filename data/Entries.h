// What is typed into the entry dialogs, as plain values. Each dialog shows one of these and yields
// it back; forms, batch save and batch restore see only the values. A default-constructed entry is
// the dialog's initial state.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/DateTime.h"

namespace qfr {

inline constexpr int kMaxLevels = 10;  // calibration levels that the forms have room for

enum class RecoveryLimits { kWater = 1, kSoil = 2, kOil = 3 };

// Form II: the recovery ranges file and the kind of limits taken from it.
struct RangesEntry {
    std::string FileName;
    RecoveryLimits Limits = RecoveryLimits::kWater;
    bool operator==(const RangesEntry&) const = default;
};

// Form IV: the comment lines.
struct BlankComments {
    std::vector<std::string> Lines = {""};
    bool operator==(const BlankComments&) const = default;
};

// Form V: the BFB tune.
struct TuneEntry {
    static constexpr int kIons = 9;
    std::string SampleNo;
    std::string InstrumentId;
    std::string LabFileId;
    std::string InjectionDate{kEmptyDateMask};  // "mm/dd/yyyy"
    std::string InjectionTime{kEmptyTimeMask};  // "hh:nn"
    std::array<std::string, kIons> Abundances;  // percent, in the order of the ion table
    bool operator==(const TuneEntry&) const = default;
};

// Form VI: the initial calibration.
struct InitialCalibrationEntry {
    std::string FirstStandard{kEmptyDateTimeMask};  // "mm/dd/yyyy hh:nn"
    std::string LastStandard{kEmptyDateTimeMask};
    std::array<std::string, kMaxLevels> LabFileIds;  // one per level
    bool operator==(const InitialCalibrationEntry&) const = default;
};

// Form VII: the continuing calibration standard.
struct ContinuingCalibrationEntry {
    std::string SampleNo;  // "VSTD#####"
    std::string LabFileId;
    std::string CriteriaFile;  // RF criteria, full path, lower case
    std::string InstrumentId;
    std::string AnalysisDateTime{kEmptyDateTimeMask};
    std::string FirstStandard{kEmptyDateTimeMask};
    std::string LastStandard{kEmptyDateTimeMask};
    bool operator==(const ContinuingCalibrationEntry&) const = default;
};

// Form VIII: the 12-hour standard.
struct StandardSummaryEntry {
    std::string SampleNo;  // "VSTD***##"
    std::string LabFileId;
    std::string AnalysisDateTime{kEmptyDateTimeMask};
    std::string FirstCalibrationDate{kEmptyDateMask};  // "mm/dd/yyyy"
    std::string LastCalibrationDate{kEmptyDateMask};
    std::array<std::string, 3> RetentionTimes;  // minutes, in the order of InternalStandardNames
    int LevelIndex = -1;                        // chosen calibration level, from 0; -1: none
    // Amounts of the levels to choose from, filled when the dialog is shown; never saved.
    std::vector<std::string> Levels;
    // The sample number, in lower case, whose level and data were taken over or corrected since;
    // never saved.
    std::string AnsweredSampleNo;
    bool operator==(const StandardSummaryEntry&) const = default;
};

// What is typed for the forms, a dialog each, in the order of the batch file's lines.
enum class EntryDialog {
    kRecoveryRanges,
    kBlankComments,
    kTune,
    kInitialCalibration,
    kContinuingCalibration,
    kStandardSummary,
};

struct Entries {
    RangesEntry Ranges;
    BlankComments Comments;
    TuneEntry Tune;
    InitialCalibrationEntry InitialCalibration;
    ContinuingCalibrationEntry ContinuingCalibration;
    StandardSummaryEntry StandardSummary;
    bool operator==(const Entries&) const = default;
};

}  // namespace qfr
