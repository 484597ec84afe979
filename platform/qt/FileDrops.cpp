#include "platform/qt/FileDrops.h"

#include <utility>

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QUrl>

namespace qfr {

std::vector<std::string> DraggedFiles(const QMimeData& dragged) {
    std::vector<std::string> files;
    for (const QUrl& url : dragged.urls()) {
        if (const QString file = url.toLocalFile(); !file.isEmpty()) {
            files.push_back(QDir::toNativeSeparators(QDir::cleanPath(file)).toStdString());
        }
    }
    return files;
}

FileDrops::FileDrops(QWidget& target, std::function<void(const std::vector<std::string>&)> take)
    : QObject(&target), take_(std::move(take)) {
    target.setAcceptDrops(true);
    target.installEventFilter(this);
}

bool FileDrops::eventFilter(QObject* watched, QEvent* event) {
    const bool dropped = event->type() == QEvent::Drop;
    if (!dropped && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove) {
        return QObject::eventFilter(watched, event);
    }
    auto& drag = *static_cast<QDropEvent*>(event);
    const QWidget* const modal = QApplication::activeModalWidget();
    const bool busy = modal != nullptr && modal != static_cast<QWidget*>(watched)->window();
    const auto files = busy ? std::vector<std::string>() : DraggedFiles(*drag.mimeData());
    drag.setDropAction(Qt::CopyAction);
    drag.setAccepted(!files.empty());
    if (dropped && !files.empty()) {
        QMetaObject::invokeMethod(
            this, [this, files] { take_(files); }, Qt::QueuedConnection);
    }
    return true;
}

}  // namespace qfr
