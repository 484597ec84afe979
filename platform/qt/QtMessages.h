// Message boxes of the desktop program.
#pragma once

#include "platform/Messages.h"

namespace qfr {

class QtMessages : public Messages {
  public:
    // Boxes stand over the active window.
    void Show(const Message& message) override;
    bool AskYesNo(const Message& question) override;
};

}  // namespace qfr
