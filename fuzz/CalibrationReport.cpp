// An initial calibration report: checked, then printed with the forms that read it.
#include "data/CalibrationReports.h"
#include "forms/Form6.h"
#include "forms/Form7.h"
#include "forms/Form8.h"
#include "fuzz/Laboratory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const qfr::fuzz::Laboratory laboratory("voa0516.cal");
    laboratory.Put(data, size);

    qfr::fuzz::Silence silence;
    qfr::FileSet files;
    ValidateCalReport(laboratory.Name(), files, silence);
    laboratory.Print({qfr::Form6CIDClick, qfr::Form7CCDClick, qfr::Form8ARTClick});
    return 0;
}
