// RF criteria files: a title that begins "RF Criteria", then one compound a line with the limits
// that its continuing calibration must keep.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/LineReader.h"

namespace qfr {

struct RFCriterion {
    std::string Name;             // lower case
    std::string MinimumRF;        // as written
    std::string MaximumPercentD;  // as written
};

// Whether a file that begins with this line is an RF criteria file. Blanks before the title make it
// none.
bool IsCriteriaTitle(std::string_view firstLine);

// Every line with a text after the title, in the order of the file.
std::vector<RFCriterion> ReadCriteriaTable(LineReader& file);

}  // namespace qfr
