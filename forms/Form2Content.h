// What Form II states: the recovery of every volatile monitoring compound in every sample.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Entries.h"
#include "data/RecoveryRanges.h"
#include "data/Reports.h"
#include "forms/FormContent.h"
#include "platform/Messages.h"

namespace qfr {

struct Form2Content : FormContent {
    struct Recovery {
        std::string Percent;  // whole number
        std::string Flag;
    };
    struct Sample {
        std::string SampleNo;
        std::vector<Recovery> Recoveries;  // in report order
    };
    struct Compound {
        std::string Number;  // "VMC1" and so on
        std::string Name;    // lower case
        std::string Limits;  // "(80-120)"; empty without a range
    };
    std::size_t SampleCount = 0;      // of the batch
    std::vector<Sample> Samples;      // those whose report was there
    std::vector<Compound> Compounds;  // of the first of these
};

// `headerRecord`: whose header prints, as index of SampleList. A report without a "volatile"
// section is told in a message, and neither it nor any report after it is taken. Another message
// names the samples that are missing for it or because their report cannot be opened. Absent after
// the message that the ranges file could not be read.
std::optional<Form2Content> BuildForm2Content(const Batch& batch, std::size_t headerRecord,
                                              const RangesEntry& entry, Reports& reports,
                                              Messages& messages);

// How the form calls the compound at this position, from 0.
std::string CompoundNumber(std::size_t compound);

// "*" for a recovery outside the range, else empty; so also without a range and for a text that is
// no number.
std::string RecoveryFlag(const RecoveryRange* range, std::string_view recovery);

// Asks for what the form needs: what it would print for the batch; absent after a message, or when
// the dialog was cancelled.
std::optional<Form2Content> PrepareForm2(FormHost& host);

// The driver: prints that.
void Form2MCRClick(FormHost& host);

}  // namespace qfr
