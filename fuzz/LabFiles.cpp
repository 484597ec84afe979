// The laboratory defaults and laboratory files.
#include "data/LabFiles.h"

#include "fuzz/Laboratory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const qfr::fuzz::Laboratory laboratory("defaultinfo.txt");
    laboratory.Put(data, size);

    if (const auto values = qfr::ReadDefaultsFile(laboratory.File())) {
        qfr::WriteValueLines(laboratory.File(), *values);
    }
    qfr::ReadLaboratoryFile(laboratory.File());
    return 0;
}
