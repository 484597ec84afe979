// A quantitation report: checked and taken as sample and as lab blank, then printed.
#include "data/LoadFiles.h"
#include "forms/Form2Content.h"
#include "forms/Form4Content.h"
#include "forms/Form8Content.h"
#include "fuzz/Laboratory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const qfr::fuzz::Laboratory laboratory("za101.prn");
    laboratory.Put(data, size);

    qfr::fuzz::Silence silence;
    qfr::fuzz::NoDialogs owner;
    qfr::Batch taken;
    qfr::Reports reports;
    TakeLabBlank(taken, {laboratory.Name()}, reports, silence, owner);
    AddQuantReports(taken, {laboratory.Name()}, reports, silence, owner);
    BuildSampleList(taken, reports);
    laboratory.Print({taken, laboratory.Example().Entries}, {qfr::fuzz::PrintDataSheets});

    laboratory.Print({qfr::Form2MCRClick, qfr::Form4MBSClick, qfr::Form8ARTClick});
    return 0;
}
