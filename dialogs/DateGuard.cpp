#include "dialogs/DateGuard.h"

#include <utility>

#include <QApplication>

#include "data/HeaderFields.h"
#include "platform/qt/MaskEdit.h"

namespace qfr {

// The message has to wait until the focus, which may be on its way to another control or its popup,
// has arrived there; only then can it be brought back.
bool DateGuard::Refuses(QWidget* control) {
    const auto field = controls_.FieldOf(qobject_cast<MaskEdit*>(control));
    if (!field || !HeaderFault(*field, controls_.Text(*field))) {
        return false;
    }
    if (std::exchange(refused_, control) == nullptr) {
        QMetaObject::invokeMethod(
            this, [this] { Return(); }, Qt::QueuedConnection);
    }
    return true;
}

void DateGuard::Return() {
    while (QWidget* const popup = QApplication::activePopupWidget()) {
        popup->close();
    }
    returning_ = true;
    refused_->setFocus();
    messages_.Show({"The entry is not a correct date.", "Entry Error"});
    returning_ = false;
    refused_ = nullptr;
}

}  // namespace qfr
