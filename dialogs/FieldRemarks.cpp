#include "dialogs/FieldRemarks.h"

#include <QComboBox>
#include <QLabel>
#include <QStringList>
#include <QVariant>

#include "platform/DateTime.h"
#include "platform/qt/MaskEdit.h"

namespace qfr {

namespace {

const char* const kRemark = "remark.";
const char* const kOwnDescription = "ownDescription";
const char* const kOwnToolTip = "ownToolTip";

// While the year is being typed, it is not told yet.
QString NoteOn(const MaskEdit& edit) {
    constexpr std::size_t kYear = 6;  // in "mm/dd/yyyy"
    const std::string text = edit.MaskText();
    const bool whole = text.size() > kYear && text[kYear] != ' ';
    return QString::fromStdString(whole ? NoSuchDate(text).value_or("") : "");
}

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

void TellOfNoSuchDates(QWidget& window, QLabel& label) {
    const QList<MaskEdit*> edits = window.findChildren<MaskEdit*>();
    const auto tell = [&label, edits] {
        QString told;
        for (MaskEdit* const edit : edits) {
            const QString note = NoteOn(*edit);
            Remark(*edit, "date", note);
            told = told.isEmpty() ? note : told;
        }
        label.setText(told);
    };
    for (MaskEdit* const edit : edits) {
        QObject::connect(edit, &QLineEdit::textChanged, &label, tell);
    }
}

}  // namespace qfr
