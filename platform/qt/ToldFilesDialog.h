// Tells about many files at once.
#pragma once

#include <vector>

#include <QWidget>

#include "platform/Messages.h"

namespace qfr {

// Shows the files, one a row, in a dialog above the parent until the user closes it; returns at
// once. `helpTopic`: of its F1.
void ShowToldFiles(const std::vector<ToldFile>& files, int helpTopic, QWidget* parent);

}  // namespace qfr
