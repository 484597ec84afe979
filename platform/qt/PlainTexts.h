// Texts of files and of people show as they stand, whatever they look like.
#pragma once

#include <QApplication>

namespace qfr {

// From now on every label and tooltip shows plain text. By itself the toolkit takes a text that
// looks like markup for it, and reads the files that this names.
void ShowPlainTexts(QApplication& application);

}  // namespace qfr
