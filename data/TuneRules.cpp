#include "data/TuneRules.h"

namespace qfr {

void ShowTune(TuneEntry& entry, const SampleHeader& header) {
    entry.InstrumentId = header[HeaderField::kInstrumentId];
}

std::optional<DateTime> InjectionDateTime(const TuneEntry& entry) {
    return ParseDateTime(entry.InjectionDate + " " + entry.InjectionTime);
}

}  // namespace qfr
