#include "platform/qt/FileOpener.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "platform/qt/WaitCursor.h"

namespace qfr {

bool OpenWithDesktop(const std::string& file) {
    const WaitCursor wait;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(file)));
}

bool ShowInFolder(const std::string& file) {
    const WaitCursor wait;
    const QString name = QString::fromStdString(file);
    return SelectInFileManager(name) ||
           QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(name).path()));
}

}  // namespace qfr
