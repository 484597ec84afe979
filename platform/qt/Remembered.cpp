#include "platform/qt/Remembered.h"

#include <QDir>

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

std::string Remembered::Folder(const QString& name) const {
    const QString folder = Value(name).toString();
    return !folder.isEmpty() && QDir(folder).exists() ? folder.toStdString() : "";
}

void Remembered::KeepFolder(const QString& name, const std::string& folder) {
    Keep(name, QString::fromStdString(folder));
}

}  // namespace qfr
