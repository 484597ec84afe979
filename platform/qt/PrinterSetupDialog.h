// "Printer Setup": printer, paper and orientation of the coming jobs.
#pragma once

#include <vector>

#include <QComboBox>
#include <QDialog>
#include <QRadioButton>

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
    QRadioButton* landscapeButton_;
};

}  // namespace qfr
