// What the toolkit's dialogs remember by themselves.
#pragma once

#include <QTemporaryDir>

namespace qfr {

// While this lives, they keep it where it goes with this: the program has only its own settings. On
// Windows they share a place with other programs, whose habits stay.
class ToolkitSettings {
  public:
    ToolkitSettings();
    ~ToolkitSettings();
    ToolkitSettings(const ToolkitSettings&) = delete;
    ToolkitSettings& operator=(const ToolkitSettings&) = delete;

  private:
    const QTemporaryDir folder_;
    bool othersUseThem_ = false;
};

}  // namespace qfr
