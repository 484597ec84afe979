// What Form I VOA-TIC states: the tentatively identified compounds of one sample.
#pragma once

#include <cstddef>

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

// Prints it for the record at this index of SampleList, or says that it has no TIC list.
void PrintFormITic(FormHost& host, std::size_t record);

}  // namespace qfr
