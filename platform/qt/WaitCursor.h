// The wait cursor, while the object lives.
#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace qfr {

class WaitCursor {
  public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

// Shows the windows' own cursors for as long as the user is asked something in the midst of a wait.
class AskingCursor {
  public:
    AskingCursor() {
        for (; QGuiApplication::overrideCursor() != nullptr; ++waits_) {
            QGuiApplication::restoreOverrideCursor();
        }
    }
    ~AskingCursor() {
        for (; waits_ > 0; --waits_) {
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        }
    }
    AskingCursor(const AskingCursor&) = delete;
    AskingCursor& operator=(const AskingCursor&) = delete;

  private:
    int waits_ = 0;
};

}  // namespace qfr
