// How the Form 1 header dialog marks what is complete and what is not this sample's yet.
#pragma once

#include <initializer_list>

#include "data/Batch.h"

class QComboBox;
class QWidget;

namespace qfr {

// Beside the item (from 0) of lists of samples: whether its header is complete, and to a screen
// reader and in the tooltip what is empty. The item's text stays.
void MarkCompleteness(std::initializer_list<QComboBox*> boxes, int item,
                      const SampleHeader& header);

// A value that came along from the sample shown before shows in another colour and in italics.
void ShowCarriedOver(QWidget& control, bool carriedOver);
bool IsShownCarriedOver(const QWidget& control);

}  // namespace qfr
