// What Form VI states: the response factors of the initial calibration.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/CalibrationTables.h"
#include "data/Entries.h"
#include "forms/FormContent.h"
#include "platform/Messages.h"

namespace qfr {

struct Form6Content : FormContent {
    struct Level {
        std::string LabFileId;
        std::string Amount;  // heads the level's columns
    };
    std::string FirstDate;  // of the first standard
    std::string FirstTime;
    std::string LastDate;
    std::string LastTime;
    std::vector<Level> Levels;
    std::vector<CalibrationRecord> Compounds;
};

// For the first `levelCount` levels of the report. Absent, after a message, when a response factor
// that is used is no number.
std::optional<Form6Content> BuildForm6Content(const SampleHeader& header,
                                              const CalibrationReport& report, int levelCount,
                                              const InitialCalibrationEntry& entry,
                                              Messages& messages);

// Asks for what the form needs: what it would print for the batch; absent after a message, or when
// the dialog was cancelled.
std::optional<Form6Content> PrepareForm6(FormHost& host);

// The driver: prints that.
void Form6CIDClick(FormHost& host);

}  // namespace qfr
