// "Printer Setup": printer and paper of the coming jobs. Each form turns the paper as it
// needs it.
#pragma once

#include <vector>

#include <QComboBox>
#include <QDialog>

#include "platform/Printer.h"

namespace qfr {

class PrinterSetupDialog : public QDialog {
    Q_OBJECT

  public:
    // Shows the printer's current choice; OK changes it, Cancel leaves it.
    PrinterSetupDialog(TPrinter& printer, QWidget* parent);

    void accept() override;

  private:
    TPrinter& printer_;
    std::vector<Paper> papers_;  // in the order of the list
    QComboBox* printerCombo_;
    QComboBox* paperCombo_;
};

}  // namespace qfr
