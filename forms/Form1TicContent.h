// What Form I VOA-TIC states: the tentatively identified compounds of one sample.
#pragma once

#include <string>

#include "forms/FormContent.h"

namespace qfr {

struct Form1TicContent : FormContent {
    std::string SampleNo;
    TicListType Entries;  // as typed
};

// `sample` has a TIC list.
Form1TicContent BuildForm1TicContent(const SampleRecord& sample);

}  // namespace qfr
