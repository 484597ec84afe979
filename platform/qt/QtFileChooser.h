// The open and save dialogs of the desktop program.
#pragma once

#include "platform/FileChooser.h"

namespace qfr {

class QtFileChooser : public FileChooser {
  public:
    std::optional<ChosenFiles> Open(const OpenRequest& request) override;
    std::optional<ChosenFiles> Save(const SaveRequest& request) override;
};

}  // namespace qfr
