#include "platform/qt/FileOpener.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "platform/qt/WaitCursor.h"

namespace qfr {

namespace {

constexpr int kPatience = 3000;  // ms, for a file manager that has to be started

bool SelectInFileManager(const QString& file) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return false;
    }
    const QString service = "org.freedesktop.FileManager1";
    QDBusMessage request = QDBusMessage::createMethodCall(service, "/org/freedesktop/FileManager1",
                                                          service, "ShowItems");
    request << QStringList(QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded)) << QString();
    return bus.call(request, QDBus::Block, kPatience).type() == QDBusMessage::ReplyMessage;
}

}  // namespace

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
