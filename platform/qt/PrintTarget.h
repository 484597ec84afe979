// The drop-down beside a print button: where the form goes. To choose there is the same as in the
// printer setup.
#pragma once

#include <QComboBox>

#include "platform/qt/PrinterChoice.h"

class QHBoxLayout;
class QPushButton;

namespace qfr {

class PrintTarget : public QComboBox {
    Q_OBJECT

  public:
    // The choice outlives the drop-down. The printers are not asked for before the list is opened
    // or gone through by key.
    explicit PrintTarget(PrinterChoice& printers, QWidget* parent = nullptr);

    // Puts one after its label into the row before this place, next to the button in the tab order.
    static void Insert(QHBoxLayout& row, int place, const QString& caption, PrinterChoice& printers,
                       QPushButton& printButton);
    // Puts one in front of the dialog's row of buttons ("Buttons"), of which this one prints.
    static void PutBefore(QPushButton& printButton, const QString& caption,
                          PrinterChoice& printers);

    void showPopup() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    // A wheel that passes over the window must not send forms elsewhere.
    void wheelEvent(QWheelEvent* event) override;

  private:
    void ShowChoice();
    void ShowAll();

    PrinterChoice& printers_;
};

}  // namespace qfr
