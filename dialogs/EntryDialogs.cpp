#include "dialogs/EntryDialogs.h"

#include <algorithm>
#include <utility>

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>
#include <QLineEdit>
#include <QShortcut>
#include <QTableWidget>

#include "platform/Text.h"
#include "platform/qt/FieldEntry.h"

namespace qfr {

void FocusControl(QWidget& window, const std::string& name, int row) {
    auto* const control = window.findChild<QWidget*>(QString::fromStdString(name));
    if (control == nullptr) {
        return;
    }
    control->setFocus();
    if (auto* const grid = qobject_cast<QTableWidget*>(control); grid != nullptr && row > 0) {
        grid->setCurrentCell(row - 1, std::max(grid->currentColumn(), 0));
        if (grid->isVisible() && grid->indexWidget(grid->currentIndex()) == nullptr) {
            grid->edit(grid->currentIndex());
        }
    } else if (auto* const edit = qobject_cast<QLineEdit*>(control)) {
        edit->selectAll();
    }
}

void EntryWindow::TakePendingFocus() {
    const Place place = std::exchange(pending_, {});
    if (!place.Control.empty()) {
        FocusControl(*this, place.Control, place.Row);
    }
}

bool ShowFault(FormHost& host, QDialog& dialog, const std::optional<EntryFault>& fault) {
    if (!fault) {
        return false;
    }
    // The message comes first: a box that opens would close a cell that is being edited.
    host.Show(fault->Message);
    FocusControl(dialog, fault->Control, fault->Row);
    return true;
}

void ConnectHelp(QDialog& dialog, WindowServices& services, int topic, QAbstractButton* button) {
    const auto showHelp = [&services, topic] { services.ShowHelp(topic); };
    QObject::connect(new QShortcut(QKeySequence::HelpContents, &dialog), &QShortcut::activated,
                     &dialog, showHelp);
    if (button != nullptr) {
        QObject::connect(button, &QAbstractButton::clicked, &dialog, showHelp);
    }
}

void ShowText(QLineEdit& edit, const std::string& text) {
    FillEdit(edit, [&] { edit.setText(QString::fromStdString(text)); });
}

std::string EnteredIn(const QLineEdit& edit) {
    return EnteredField(edit.text().toStdString());
}

LeaveChecks::LeaveChecks(FormHost& host, QDialog& dialog, Check check)
    : host_(host), dialog_(dialog), check_(std::move(check)) {}

bool LeaveChecks::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && dialog_.isVisible() && !returning_) {
        switch (static_cast<QFocusEvent*>(event)->reason()) {
            case Qt::MouseFocusReason:
            case Qt::TabFocusReason:
            case Qt::BacktabFocusReason:
            case Qt::ShortcutFocusReason:
                left_.push_back(static_cast<QWidget*>(watched));
                // The focus can be brought back only when it has arrived where it goes.
                QMetaObject::invokeMethod(
                    this, [this] { Refused(); }, Qt::QueuedConnection);
                break;
            default:
                break;
        }
    }
    return QObject::eventFilter(watched, event);
}

bool LeaveChecks::Refused() {
    if (returning_) {
        return true;
    }
    const std::vector<QWidget*> left = std::exchange(left_, {});
    QWidget* const now = dialog_.focusWidget();
    if (left.empty() || !dialog_.isVisible() ||
        std::find(freeButtons_.begin(), freeButtons_.end(), now) != freeButtons_.end()) {
        return false;
    }
    returning_ = true;
    bool refused = false;
    for (auto control = left.begin(); control != left.end() && !refused; ++control) {
        const std::optional<EntryFault> fault = check_(**control);
        if (fault) {
            while (QWidget* const popup = QApplication::activePopupWidget()) {
                popup->close();
            }
        }
        refused = ShowFault(host_, dialog_, fault);
    }
    returning_ = false;
    return refused;
}

}  // namespace qfr
