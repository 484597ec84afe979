#include <QDBusConnection>
#include <QDBusMessage>
#include <QUrl>

#include "platform/FileLookup.h"
#include "platform/qt/FileOpener.h"

namespace qfr {

namespace {

constexpr int kPatience = 3000;  // ms, for a file manager that has to be started

}  // namespace

bool SelectInFileManager(const std::filesystem::path& file) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return false;
    }
    const QString service = "org.freedesktop.FileManager1";
    QDBusMessage request = QDBusMessage::createMethodCall(service, "/org/freedesktop/FileManager1",
                                                          service, "ShowItems");
    request << QStringList(QUrl::fromLocalFile(QString::fromStdString(TextOf(file)))
                               .toString(QUrl::FullyEncoded))
            << QString();
    return bus.call(request, QDBus::Block, kPatience).type() == QDBusMessage::ReplyMessage;
}

}  // namespace qfr
