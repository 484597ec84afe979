// Reports that end before their end, as of a copy that was broken off.
#pragma once

#include <string>

#include "data/CalibrationReport.h"
#include "data/CheckReport.h"
#include "data/QuantReport.h"

namespace qfr {

// What a whole report has and this one, whose table has begun, has not: "the end of row 12 and the
// internal standards"; empty: nothing.
std::string WhatIsCutOff(const QuantReport& report);
std::string WhatIsCutOff(const CalibrationReport& report);
std::string WhatIsCutOff(const CheckReport& report);

}  // namespace qfr
