// What a screen reader says of the controls, the same way in every window.
#pragma once

class QApplication;

namespace qfr {

// From now on, in every window that is shown, the toolkit's own dialogs among them:
// - a control is named by the label that is its buddy;
// - a drop-down, too, is named by its label, not by its choice. Where the choice cannot be typed
//   over, it is the drop-down's description;
// - a button right beside a control of its row, after it in the tab order, is described by the
//   control's name: so several "Browse" buttons can be told apart.
// Names and descriptions that a window gives itself stay.
void NameControls(QApplication& application);

}  // namespace qfr
