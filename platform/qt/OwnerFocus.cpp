#include "platform/qt/OwnerFocus.h"

#include <QDialog>
#include <QEvent>
#include <QGuiApplication>

namespace qfr {

namespace {

class OwnerFocus : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        // A spontaneous one is the window manager's, of a dialog that comes back.
        if (event->type() == QEvent::Hide && !event->spontaneous() &&
            qobject_cast<QDialog*>(watched) != nullptr) {
            const QWidget* const parent = static_cast<QWidget*>(watched)->parentWidget();
            QWidget* const owner = parent != nullptr ? parent->window() : nullptr;
            // Who is at work in another program stays there.
            if (owner != nullptr && owner->isVisible() && !owner->isMinimized() &&
                QGuiApplication::applicationState() == Qt::ApplicationActive) {
                owner->activateWindow();
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

}  // namespace

void ReturnToOwners(QApplication& application) {
    application.installEventFilter(new OwnerFocus(&application));
}

}  // namespace qfr
