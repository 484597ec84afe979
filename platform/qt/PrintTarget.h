// The drop-down beside a print button: where the form goes. To choose there is the same as in the
// printer setup.
#pragma once

#include <QComboBox>

#include "platform/qt/PrinterChoice.h"

class QGridLayout;
class QHBoxLayout;
class QPushButton;

namespace qfr {

class PrintTarget : public QComboBox {
    Q_OBJECT

  public:
    // The choice outlives the drop-down. The printers are not asked for before the list is opened
    // or gone through by key.
    explicit PrintTarget(PrinterChoice& printers, QWidget* parent = nullptr);

    // Puts one in front of the dialog's row of buttons ("Buttons"), of which this one prints and is
    // the first, also in the tab order.
    static void PutBefore(QPushButton& printButton, PrinterChoice& printers);
    // Puts one at the end of a row.
    static PrintTarget* PutInto(QHBoxLayout& row, PrinterChoice& printers);
    // Puts one at the lower end of two columns of labels and fields, into their last row if there
    // is room, and in the tab order before the first one of the buttons below. It has no mnemonic:
    // beside so many fields its letters are theirs.
    static void PutBelow(QGridLayout& fields, int labelColumn, QPushButton& firstButton,
                         PrinterChoice& printers);

    void showPopup() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    // A wheel that passes over the window must not send forms elsewhere.
    void wheelEvent(QWheelEvent* event) override;

  private:
    void TabBefore(QWidget& button);
    void ShowChoice();
    void ShowAll();

    PrinterChoice& printers_;
};

}  // namespace qfr
