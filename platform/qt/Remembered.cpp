#include "platform/qt/Remembered.h"

#include <QDir>
#include <QStandardPaths>

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

std::string Remembered::UsersFolder(std::initializer_list<const char*> names) const {
    for (const char* const name : names) {
        if (std::string folder = Folder(name); !folder.empty()) {
            return folder;
        }
    }
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return (QDir(documents).exists() && !documents.isEmpty() ? documents : QDir::homePath())
        .toStdString();
}

void Remembered::KeepFolder(const QString& name, const std::string& folder) {
    Keep(name, QString::fromStdString(folder));
}

}  // namespace qfr
