// What Form I VOA-TIC states: the tentatively identified compounds of one sample.
#pragma once

#include <cstddef>
#include <optional>

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

// What it would print for the record at this index of SampleList; absent after the message that
// this has no TIC list.
std::optional<Form1TicContent> PrepareForm1Tic(FormHost& host, std::size_t record);

// Prints it.
void PrintFormITic(FormHost& host, std::size_t record);

}  // namespace qfr
