// What Form V states: the BFB tune, and the samples that it covers.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "data/Entries.h"
#include "forms/FormContent.h"

namespace qfr {

// The sample number is the tune's.
struct Form5Content : FormContent {
    struct Abundance {
        std::string Percent;  // as typed
        std::string Flag;     // "*": outside the ion's range
        bool operator==(const Abundance&) const = default;
    };
    using AbundanceList = std::array<Abundance, TuneEntry::kIons>;  // in the order of kTuneIons
    std::string LabFileId;
    std::string InjectionDate;
    std::string InjectionTime;
    AbundanceList Abundances;
    std::vector<ListedSample> Samples;
};

// `headerRecord`: whose header prints, as index of the samples.
Form5Content BuildForm5Content(const SampleListType& samples, std::size_t headerRecord,
                               const TuneEntry& tune, DateTime injection);

// The tune's abundances, with those that are outside their ion's range flagged.
Form5Content::AbundanceList FlagTuneValues(const TuneEntry& tune);

// Asks for what the form needs: what it would print for the batch; absent after a message, or when
// the dialog was cancelled.
std::optional<Form5Content> PrepareForm5(FormHost& host);

// The driver: prints that.
void Form5IPCClick(FormHost& host);

}  // namespace qfr
