// The windows that can take the whole screen.
#pragma once

#include <Qt>

namespace qfr {

// Each system has its own.
Qt::WindowType LargeWindowType();

inline Qt::WindowFlags LargeWindowFlags() {
    return LargeWindowType() | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
           Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint;
}

}  // namespace qfr
