// What Form I VOA-TIC states: the tentatively identified compounds of one sample.
#pragma once

#include "forms/FormContent.h"

namespace qfr {

struct Form1TicContent : FormContent {
    TicListType Entries;  // as typed
};

// `sample` has a TIC list.
inline Form1TicContent BuildForm1TicContent(const SampleRecord& sample) {
    return {{PrintedHeader(sample.Header), sample.Header[HeaderField::kZovSampleNo]},
            *sample.TicList};
}

}  // namespace qfr
