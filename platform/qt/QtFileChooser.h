// The open and save dialogs of the desktop program.
#pragma once

#include "platform/FileChooser.h"
#include "platform/Messages.h"

namespace qfr {

class QtFileChooser : public FileChooser {
  public:
    explicit QtFileChooser(Messages& messages) : messages_(messages) {}

    std::optional<ChosenFiles> Open(const OpenRequest& request) override;
    std::optional<ChosenFiles> Save(const SaveRequest& request) override;
    std::optional<std::string> Folder(const std::string& directory) override;

  private:
    Messages& messages_;
};

}  // namespace qfr
