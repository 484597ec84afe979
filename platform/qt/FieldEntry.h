// Entries whose text becomes a field of a batch file's line, which ends at its ";".
#pragma once

#include <QLineEdit>
#include <QWidget>

namespace qfr {

// ";" cannot be typed into the widget, nor into a combo box that has it as its edit.
void TypeNoFieldEnd(QWidget& entry);

// The same; what comes in by another way, such as a paste, becomes one field as EnteredField makes
// it.
void KeepToOneField(QLineEdit& edit);
// So in all edits of the window that take any text.
void KeepToOneFieldEach(const QWidget& window);

}  // namespace qfr
