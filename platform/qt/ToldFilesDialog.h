// Tells about many files at once.
#pragma once

#include <vector>

#include <QWidget>

#include "platform/Messages.h"

namespace qfr {

// Shows what is told of files, each of which has one row, in a dialog above the parent until the
// user closes it; returns at once. `helpTopic`: of its F1.
void ShowToldFiles(const std::vector<ToldFile>& told, int helpTopic, QWidget* parent);

}  // namespace qfr
