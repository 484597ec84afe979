#include "platform/qt/FileOpener.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "platform/FileLookup.h"
#include "platform/qt/WaitCursor.h"

namespace qfr {

bool OpenWithDesktop(const std::string& file) {
    const WaitCursor wait;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(file)));
}

bool ShowInFolder(const std::string& file) {
    const WaitCursor wait;
    const QString folder = QFileInfo(QString::fromStdString(file)).path();
    return SelectInFileManager(PathOf(file)) ||
           QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

}  // namespace qfr
