// A recovery ranges file, for each kind of limits.
#include "data/RecoveryRanges.h"

#include "forms/Form2Content.h"
#include "fuzz/Laboratory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const qfr::fuzz::Laboratory laboratory("ranges.txt");
    laboratory.Put(data, size);

    qfr::SavedBatch batch = laboratory.Example();
    qfr::fuzz::Silence silence;
    qfr::BrowseRangesFile(batch.Entries, 0, laboratory.Name(), silence);
    for (const auto limits :
         {qfr::RecoveryLimits::kWater, qfr::RecoveryLimits::kSoil, qfr::RecoveryLimits::kOil}) {
        batch.Entries.Ranges = {laboratory.Name(), limits};
        laboratory.Print(batch, {qfr::Form2MCRClick});
    }
    return 0;
}
