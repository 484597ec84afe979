#include "platform/qt/LargeWindow.h"

namespace qfr {

Qt::WindowType LargeWindowType() {
    return Qt::Window;
}

}  // namespace qfr
