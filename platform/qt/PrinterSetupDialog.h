// "Printer Setup": printer, paper and orientation of the coming jobs.
#pragma once

#include <QDialog>

#include "platform/Printer.h"

namespace qfr {

class PrinterSetupDialog : public QDialog {
    Q_OBJECT

  public:
    // Shows the printer's current choice; OK changes it, Cancel leaves it.
    PrinterSetupDialog(TPrinter& printer, QWidget* parent);
};

}  // namespace qfr
