// The wait cursor, while the object lives.
#pragma once

#include <QGuiApplication>

namespace qfr {

class WaitCursor {
  public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

// Shows the ordinary cursor for as long as the user is asked something in the midst of a wait.
class AskingCursor {
  public:
    AskingCursor() : waiting_(QGuiApplication::overrideCursor() != nullptr) {
        if (waiting_) {
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
        }
    }
    ~AskingCursor() {
        if (waiting_) {
            QGuiApplication::restoreOverrideCursor();
        }
    }
    AskingCursor(const AskingCursor&) = delete;
    AskingCursor& operator=(const AskingCursor&) = delete;

  private:
    const bool waiting_;
};

}  // namespace qfr
