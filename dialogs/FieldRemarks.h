// What a dialog says of its entries beside their captions.
#pragma once

#include <QString>

class QWidget;

namespace qfr {

// Says something of the control: its tooltip shows it, and a screen reader hears it after the
// control's own description. There is one remark `about` each thing; an empty one takes it back.
void Remark(QWidget& control, const char* about, const QString& text);

bool HasRemark(const QWidget& control, const char* about);

}  // namespace qfr
