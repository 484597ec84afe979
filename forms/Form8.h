// Form VIII: volatile internal standard area and retention time summary of all samples.
#pragma once

#include "forms/FormHost.h"

namespace qfr {

// The whole print job, from its checks and the entry dialog to the last page.
void Form8ARTClick(FormHost& host);

}  // namespace qfr
