#include <QDir>
#include <QProcess>

#include "platform/qt/FileOpener.h"

namespace qfr {

bool SelectInFileManager(const QString& file) {
    return QProcess::startDetached("explorer.exe", {"/select,", QDir::toNativeSeparators(file)});
}

}  // namespace qfr
