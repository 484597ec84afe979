// Form I VOA-TIC: tentatively identified compounds of one sample.
#pragma once

#include <cstddef>

#include "forms/FormHost.h"

namespace qfr {

// Prints the sheet of the record at this index of SampleList, or says that it has no TIC list. The
// printer has been tested already.
void PrintFormITic(FormHost& host, std::size_t record);

}  // namespace qfr
