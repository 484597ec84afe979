// An RF criteria file.
#include "forms/Form7Content.h"
#include "fuzz/Laboratory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const qfr::fuzz::Laboratory laboratory("criteria.txt");
    laboratory.Put(data, size);

    qfr::SavedBatch batch = laboratory.Example();
    batch.Entries.ContinuingCalibration.CriteriaFile = laboratory.Name();
    laboratory.Print(batch, {qfr::Form7CCDClick});
    return 0;
}
