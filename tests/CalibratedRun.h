// A folder with everything that the forms of one run read.
#pragma once

#include "tests/FormSupport.h"

namespace qfr::test {

// The reports of a run with this many calibration levels, compounds "Compound-1" and so on, and
// samples. Level k, from 1, has the amount 10 k, the raw data file STD<k>.D of 05/16/2005, k
// o'clock, and the response factors 8.4 + 2 k, so that they round to 10, 12, 14, ...; internal
// standards have the area 1000 k, and 1000 and 7.25 minutes in the continuing calibration standard
// and in every sample. The tune is injected on 05/18/2005 at 8:00, the lab blank (the first
// sample) is analyzed at 9:00, the others at 21:01. The reports name their files by Windows paths.
struct CalibratedRun {
    CalibratedRun(int levels, int compounds, int samples = 1);

    TempDir dir;
    std::string calibration;  // text of RUN.CAL
    std::string check;        // text of RUN.CHECK
    ScriptedHost host;        // with the batch loaded and all headers complete

    // Runs a form's driver and returns the titles of its messages.
    std::vector<std::string> Run(void (*driver)(FormHost&));
    // The first page of the form, which is to print without a message.
    const JobPage& FirstPage(void (*driver)(FormHost&));
};

// A quantitation report with this area and retention time for each internal standard.
std::string SampleText(const std::string& area, const std::string& rt);

}  // namespace qfr::test
