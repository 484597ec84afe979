#include "data/Entries.h"

namespace qfr {

void ResetEntries(Entries& entries) {
    // The tune's sample, instrument and injection stay: only its abundances belong to the batch.
    TuneEntry tune = entries.Tune;
    tune.Abundances = {};
    entries = Entries{};
    entries.Tune = tune;
}

}  // namespace qfr
