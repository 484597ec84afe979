// What Form V states: the BFB tune, and the samples that it covers.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "data/Entries.h"
#include "forms/FormContent.h"

namespace qfr {

// The sample number is the tune's.
struct Form5Content : FormContent {
    std::string LabFileId;
    std::string InjectionDate;
    std::string InjectionTime;
    std::array<std::string, TuneEntry::kIons> Abundances;  // flagged, in the order of kTuneIons
    std::vector<ListedSample> Samples;
};

// `headerRecord`: whose header prints, as index of the samples.
Form5Content BuildForm5Content(const SampleListType& samples, std::size_t headerRecord,
                               const TuneEntry& tune, DateTime injection);

// The tune's abundances as they print: "  *" follows one that is outside its ion's range, four
// blanks follow the others.
std::array<std::string, TuneEntry::kIons> FlagTuneValues(const TuneEntry& tune);

// The driver: asks for what the form needs and prints it for the batch.
void Form5IPCClick(FormHost& host);

}  // namespace qfr
