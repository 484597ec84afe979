#include "dialogs/FieldRemarks.h"

#include <QComboBox>
#include <QLineEdit>
#include <QStringList>
#include <QVariant>

namespace qfr {

namespace {

const char* const kRemark = "remark.";
const char* const kOwnDescription = "ownDescription";
const char* const kOwnToolTip = "ownToolTip";

}  // namespace

void Remark(QWidget& control, const char* about, const QString& text) {
    const QByteArray name = QByteArray(kRemark) + about;
    if (control.property(name).toString() == text) {
        return;
    }
    if (!control.property(kOwnDescription).isValid()) {
        control.setProperty(kOwnDescription, control.accessibleDescription());
        control.setProperty(kOwnToolTip, control.toolTip());
    }
    control.setProperty(name, text);
    QStringList remarks;
    for (const QByteArray& each : control.dynamicPropertyNames()) {
        if (each.startsWith(kRemark)) {
            remarks << control.property(each).toString();
        }
    }
    const auto after = [&remarks](const QString& own) {
        QStringList all = QStringList(own) + remarks;
        all.removeAll("");
        return all;
    };
    control.setAccessibleDescription(after(control.property(kOwnDescription).toString()).join(' '));
    control.setToolTip(after(control.property(kOwnToolTip).toString()).join('\n'));
    if (auto* const box = qobject_cast<QComboBox*>(&control); box != nullptr && box->isEditable()) {
        box->lineEdit()->setAccessibleDescription(control.accessibleDescription());
    }
}

bool HasRemark(const QWidget& control, const char* about) {
    return !control.property(QByteArray(kRemark) + about).toString().isEmpty();
}

}  // namespace qfr
