// RF criteria files: a title that begins "RF Criteria", then one compound a line with the limits
// that its continuing calibration must keep.
#pragma once

#include <string>
#include <vector>

#include "platform/LineReader.h"

namespace qfr {

struct RFCriterion {
    std::string Name;             // lower case
    std::string MinimumRF;        // as written
    std::string MaximumPercentD;  // as written
};

struct CriteriaFile {
    bool HasTitle = false;  // blanks before the title make it none
    // Every line with a text after the title, in the order of the file.
    std::vector<RFCriterion> Criteria;
    bool TextsCut = false;  // it holds texts longer than kMaxPrintedText

    static CriteriaFile Read(LineReader file);
};

}  // namespace qfr
