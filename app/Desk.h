// What the main window shows below its menu: the batch, or what there is to begin with.
#pragma once

#include <string>

#include <QStackedWidget>

#include "app/BatchPage.h"
#include "app/StartPage.h"

namespace qfr {

class Desk : public QStackedWidget {
  public:
    Desk(TQFRForm& window, const DesktopServices& services, StartCommands commands);

    // Shows what there is now.
    void Refresh();
    // The batch has become another one, of which nothing was printed yet; the next time it is shown
    // as a new one.
    void BeginBatch();
    // A batch was opened from this file or saved there (UTF-8).
    void RememberBatch(const std::string& file) { qfr::RememberBatch(memory_, file); }

  private:
    TQFRForm& window_;
    Remembered& memory_;
    StartPage* start_;
    BatchPage* batch_;
    bool isNew_ = true;
};

}  // namespace qfr
