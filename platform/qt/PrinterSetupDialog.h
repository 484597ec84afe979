// "Printer Setup": printer and paper of the coming jobs. Each form turns the paper as it
// needs it.
#pragma once

#include <vector>

#include <QComboBox>
#include <QDialog>

#include "platform/Printer.h"
#include "platform/qt/Remembered.h"

namespace qfr {

class PrinterSetupDialog : public QDialog {
    Q_OBJECT

  public:
    // Shows the printer's current choice, or, while that is none of the user's, the one of the run
    // before as far as it is still there. OK takes and remembers it, Cancel leaves the printer.
    PrinterSetupDialog(TPrinter& printer, Remembered& memory, QWidget* parent);

    void accept() override;

  private:
    void ProposeLast();

    TPrinter& printer_;
    Remembered& memory_;
    std::vector<Paper> papers_;  // in the order of the list
    QComboBox* printerCombo_;
    QComboBox* paperCombo_;
};

}  // namespace qfr
