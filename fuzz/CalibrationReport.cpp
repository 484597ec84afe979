// An initial calibration report: checked, then printed with the forms that read it.
#include "data/LoadFiles.h"
#include "forms/Form6Content.h"
#include "forms/Form7Content.h"
#include "forms/Form8Content.h"
#include "fuzz/Laboratory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const qfr::fuzz::Laboratory laboratory("voa0516.cal");
    laboratory.Put(data, size);

    qfr::fuzz::Silence silence;
    qfr::fuzz::NoDialogs owner;
    qfr::Batch batch;
    qfr::Reports reports;
    TakeCalReport(batch, {laboratory.Name()}, reports, silence, owner);
    laboratory.Print({qfr::Form6CIDClick, qfr::Form7CCDClick, qfr::Form8ARTClick});
    return 0;
}
