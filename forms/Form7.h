// Form VII: volatile continuing calibration data, each compound with the limits that it must keep.
#pragma once

#include "forms/FormHost.h"

namespace qfr {

// The whole print job, from its checks and the entry dialog to the last page.
void Form7CCDClick(FormHost& host);

}  // namespace qfr
