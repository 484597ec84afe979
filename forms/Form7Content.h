// What Form VII states: the continuing calibration of each compound, and the limits that it must
// keep.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/CalibrationTables.h"
#include "data/CriteriaFile.h"
#include "data/Entries.h"
#include "forms/FormContent.h"

namespace qfr {

// The sample number is the continuing standard's.
struct Form7Content : FormContent {
    struct Compound {
        std::string Name;             // lower case
        std::string MeanRF;           // of the initial calibration, whole number
        std::string RF;               // of the continuing standard, whole number
        std::string PercentD;         // as reported
        std::string MinimumRF;        // as in the criteria file; empty without criteria
        std::string MaximumPercentD;  // likewise
    };
    std::string LabFileId;
    std::string CalibrationDate;
    std::string CalibrationTime;
    std::string FirstDate;  // of the initial calibration
    std::string FirstTime;
    std::string LastDate;
    std::string LastTime;
    std::string Amount;  // of the continuing standard
    std::vector<Compound> Compounds;
};

// One compound for each of `rfTable`, which the rows of the check report follow by position.
Form7Content BuildForm7Content(const SampleHeader& header,
                               const std::vector<CalibrationRecord>& rfTable,
                               const CheckReport& check, const std::vector<RFCriterion>& criteria,
                               const ContinuingCalibrationEntry& entry);

// Asks for what the form needs: what it would print for the batch; absent after a message, or when
// the dialog was cancelled.
std::optional<Form7Content> PrepareForm7(FormHost& host);

// The driver: prints that.
void Form7CCDClick(FormHost& host);

}  // namespace qfr
