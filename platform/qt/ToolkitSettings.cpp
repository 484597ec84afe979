#include "platform/qt/ToolkitSettings.h"

#include <QDir>
#include <QSettings>

#include "platform/FileReplace.h"

namespace qfr {

namespace {

// Under the name that the toolkit uses.
QSettings Theirs() {
    return QSettings(QSettings::UserScope, QStringLiteral("QtProject"));
}

}  // namespace

ToolkitSettings::ToolkitSettings() : folder_(QDir::tempPath() + '/' + kTemporaryName) {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder_.path());
    othersUseThem_ = !Theirs().allKeys().isEmpty();
}

ToolkitSettings::~ToolkitSettings() {
    if (!othersUseThem_) {
        Theirs().clear();
    }
}

}  // namespace qfr
