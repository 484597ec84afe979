// What the windows remember from one run to the next: one file of names and values beside the
// program's other settings files. Losing it costs nothing but habit, so a file that cannot be read
// counts as empty, and one that cannot be written is not told of.
#pragma once

#include <QSettings>
#include <QString>
#include <QVariant>

#include "platform/SettingsDir.h"

namespace qfr {

class Remembered {
  public:
    explicit Remembered(const SettingsDir& settings);

    // An invalid value: nothing is remembered under the name. Names are paths: "preview/zoom".
    QVariant Value(const QString& name) const { return file_.value(name); }
    void Keep(const QString& name, const QVariant& value);

  private:
    QSettings file_;
};

}  // namespace qfr
