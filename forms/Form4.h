// Form IV: volatile method blank summary.
#pragma once

#include "forms/FormHost.h"

namespace qfr {

// Asks for the comments and prints the form for the batch.
void Form4MBSClick(FormHost& host);

}  // namespace qfr
