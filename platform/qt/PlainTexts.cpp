#include "platform/qt/PlainTexts.h"

#include <QEvent>
#include <QLabel>

namespace qfr {

namespace {

// Before a label is first measured or shown. A tooltip is a label too.
class PlainTexts : public QObject {
  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Polish) {
            if (auto* const label = qobject_cast<QLabel*>(watched)) {
                label->setTextFormat(Qt::PlainText);
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

}  // namespace

void ShowPlainTexts(QApplication& application) {
    application.installEventFilter(new PlainTexts(&application));
}

}  // namespace qfr
