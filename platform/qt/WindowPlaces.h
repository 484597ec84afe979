// Every window of the program opens where it was left, as large as it was left; so do its tables'
// columns and its splitters. Windows go by their object names, or else by their classes.
#pragma once

#include <QObject>

#include "platform/qt/Remembered.h"

class QWidget;

namespace qfr {

// A property of a table that remembers the widths of its columns itself.
inline constexpr const char* kKeepsColumns = "KeepsColumns";

// An event filter of the application. A window that cannot be resized is let alone. The memory
// outlives this.
class WindowPlaces : public QObject {
  public:
    explicit WindowPlaces(Remembered& memory);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Bring(QWidget& window) const;
    void Keep(const QWidget& window) const;
    void KeepAll() const;

    Remembered& memory_;
};

}  // namespace qfr
