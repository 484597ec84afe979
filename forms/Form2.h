// Form II: volatile monitoring compound recovery of every sample.
#pragma once

#include "forms/FormHost.h"

namespace qfr {

// Asks for the recovery ranges and prints the form for the batch.
void Form2MCRClick(FormHost& host);

}  // namespace qfr
