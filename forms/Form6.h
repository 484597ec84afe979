// Form VI: volatile organics initial calibration data. Portrait for up to five calibration levels,
// landscape with ten response factor columns for more.
#pragma once

#include "forms/FormHost.h"

namespace qfr {

// The whole print job, from its checks and the entry dialog to the last page.
void Form6CIDClick(FormHost& host);

}  // namespace qfr
