// Holds the user at a date of the Form 1 header dialog that cannot be taken.
#pragma once

#include <QObject>

#include "dialogs/HeaderControls.h"
#include "platform/Messages.h"

namespace qfr {

class DateGuard : public QObject {
  public:
    // Both outlive it.
    DateGuard(const HeaderControls& controls, Messages& messages)
        : controls_(controls), messages_(messages) {}

    // Whether the control is a date that cannot be taken. The user is told so, and the focus comes
    // back to it, when what is going on has ended.
    bool Refuses(QWidget* control);
    // Whether that is still to come.
    bool IsHolding() const { return refused_ != nullptr; }
    // Whether the focus is on its way back.
    bool IsReturning() const { return returning_; }

  private:
    void Return();

    const HeaderControls& controls_;
    Messages& messages_;
    QWidget* refused_ = nullptr;
    bool returning_ = false;
};

}  // namespace qfr
