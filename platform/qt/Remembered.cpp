#include "platform/qt/Remembered.h"

#include "platform/FileLookup.h"

namespace qfr {

Remembered::Remembered(const SettingsDir& settings)
    : file_(QString::fromStdString(TextOf(settings.ForWriting("QFRwindows.ini"))),
            QSettings::IniFormat) {}

void Remembered::Keep(const QString& name, const QVariant& value) {
    if (Value(name) != value) {
        file_.setValue(name, value);
    }
}

}  // namespace qfr
