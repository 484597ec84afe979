#include "platform/qt/LargeWindow.h"

namespace qfr {

// Windows is given the same window for both types. For the other one, the toolkit first asks
// Direct3D about the graphics card, for the sake of OpenGL, and loading its driver takes longer
// than all the rest of the start.
Qt::WindowType LargeWindowType() {
    return Qt::Dialog;
}

}  // namespace qfr
