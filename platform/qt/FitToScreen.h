// Windows on small screens, and with large letters.
#pragma once

#include <QApplication>

namespace qfr {

// From now on no window shows larger than the free part of its screen, or partly beside it. A
// dialog whose contents do not fit scrolls them, all but its row of buttons; where there is room it
// is left as it was made, but for captions that large letters would cut. The control that has the
// focus is in view. Names, tab order and mnemonics stay; the area that scrolls takes the focus only
// where nothing in it does.
void FitToScreen(QApplication& application);

}  // namespace qfr
