// The bar above the main window's status bar: where forms go when they are printed, and where the
// last ones have gone, for whoever wants to see them there.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include <QPushButton>
#include <QToolBar>

#include "platform/Messages.h"
#include "platform/PrintLog.h"
#include "platform/qt/PrinterChoice.h"

namespace qfr {

class ElidedLabel;

class PrintBar : public QToolBar {
    Q_OBJECT

  public:
    // Hands a file over; false: nothing takes it.
    using Opener = std::function<bool(const std::string& file)>;
    struct Services {
        qfr::Messages& Messages;
        PrinterChoice& Printers;
        const PrintLog& Printed;
        Opener OpenFile;
        Opener ShowInFolder;
    };

    // The services outlive it.
    PrintBar(Services services, QWidget* parent);

    // Names what has been printed since the last call, if anything.
    void ShowPrinted();
    // Of another batch nothing is printed yet.
    void Forget();

  private:
    void Open(const Opener& opener) const;

    const Services services_;
    ElidedLabel* note_;
    QPushButton* openButton_;
    QPushButton* folderButton_;
    std::size_t shown_ = 0;  // entries of the log
};

}  // namespace qfr
