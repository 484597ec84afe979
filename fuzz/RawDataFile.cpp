// The raw data file of the first calibration standard.
#include "data/Reports.h"
#include "forms/Form6Content.h"
#include "fuzz/Laboratory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const qfr::fuzz::Laboratory laboratory("vstd005.d");
    laboratory.Put(data, size);

    qfr::Reports().Read<qfr::RawDataFile>(laboratory.Name(), "");
    laboratory.Print({qfr::Form6CIDClick});
    return 0;
}
