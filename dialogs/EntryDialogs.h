// What the entry dialogs have in common: how they tell what is wrong, and the checks that run when
// the focus leaves an entry.
#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include <QObject>

#include "data/EntryFault.h"
#include "forms/FormHost.h"
#include "platform/WindowServices.h"

class QAbstractButton;
class QDialog;
class QLineEdit;
class QWidget;

namespace qfr {

// Tells the fault and focuses the dialog's control, in a grid the cell of its row in the current
// column. False when there is no fault.
bool ShowFault(FormHost& host, QDialog& dialog, const std::optional<EntryFault>& fault);

// The dialog's Help button, if it has one, and F1 open the help at the topic.
void ConnectHelp(QDialog& dialog, WindowServices& services, int topic,
                 QAbstractButton* button = nullptr);

// Puts the text in, its beginning in view.
void ShowText(QLineEdit& edit, const std::string& text);

// What was entered there, as one line.
std::string EnteredIn(const QLineEdit& edit);

// Runs a check whenever the user goes from a watched control to another one of the dialog. After a
// fault the focus is back on the control that the fault names. Going to a popup or another window
// is no leaving, and neither is closing the dialog or a focus that the program moves.
class LeaveChecks : public QObject {
  public:
    // What is wrong with the control that was left. It may show messages of its own.
    using Check = std::function<std::optional<EntryFault>(QWidget& control)>;

    // Nothing is checked when the focus goes to one of `freeButtons` (Cancel, Help).
    LeaveChecks(FormHost& host, QDialog& dialog, Check check,
                std::initializer_list<QWidget*> freeButtons);

    void Watch(std::initializer_list<QWidget*> controls);

    // Runs what was left and is not checked yet. True when that has sent the focus back: a button
    // that was pressed to leave a wrong entry then does nothing.
    bool Refused();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    FormHost& host_;
    QDialog& dialog_;
    Check check_;
    std::vector<QWidget*> freeButtons_;
    std::vector<QWidget*> left_;  // not checked yet, in the order of leaving
    bool returning_ = false;      // a message is up, or the focus is on its way back
};

}  // namespace qfr
