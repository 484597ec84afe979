// The way back from a dialog that closes.
#pragma once

#include <QApplication>

namespace qfr {

// From now on a dialog that closes makes the window that it belongs to the active one. The window
// manager does so, too, but not where a question about it closes at the same moment: it may give
// the focus to the dialog when that is no longer there, and then nobody has it.
void ReturnToOwners(QApplication& application);

}  // namespace qfr
