// What the entry dialogs have in common: how they say what is wrong, and the checks that run when
// the focus leaves an entry.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <QDialog>
#include <QObject>

#include "data/EntryChecks.h"
#include "dialogs/HoldsEntries.h"
#include "forms/FormHost.h"
#include "platform/WindowServices.h"

class QAbstractButton;
class QLineEdit;
class QWidget;

namespace qfr {

// A dialog that a form's driver shows.
class EntryWindow : public QDialog, public HoldsEntries {
  public:
    using QDialog::QDialog;

    // Shows what was entered and stores what the dialog holds when it closes. `headerRecord` is the
    // index in SampleList of the record whose header the form prints. True when it closed with OK.
    virtual bool Run(std::size_t headerRecord) = 0;

    // The control that has the focus when the dialog is next shown, in a grid the cell of this row
    // (from 1) in the current column.
    void SetPendingFocus(const std::string& control, int row) { pending_ = {control, row}; }

  protected:
    // Comes when the dialog has set its own.
    void TakePendingFocus();

  private:
    struct Place {
        std::string Control;
        int Row = 0;
    };
    Place pending_;
};

// Focuses the control of that name, if the window has it, ready to be typed over; in a grid the
// cell of the row, from 1, in the current column.
void FocusControl(QWidget& window, const std::string& name, int row);

// Shows the fault's message and focuses the dialog's control, in a grid the cell of its row in the
// current column. False when there is no fault.
bool ShowFault(FormHost& host, QDialog& dialog, const std::optional<EntryFault>& fault);

// The dialog's Help button, if it has one, and F1 open the help at the topic.
void ConnectHelp(QDialog& dialog, WindowServices& services, int topic,
                 QAbstractButton* button = nullptr);

// Puts the text in, as FillEdit does.
void ShowText(QLineEdit& edit, const std::string& text);

// What was entered there, as one field of a batch file's line.
std::string EnteredIn(const QLineEdit& edit);

// Runs a check whenever the user goes from a watched control to another one of the dialog. After a
// fault the focus is back on the control that the fault names. Going to a popup or another window
// is no leaving, and neither is closing the dialog or a focus that the program moves.
class LeaveChecks : public QObject {
  public:
    // What is wrong with the control that was left. It may show messages of its own.
    using Check = std::function<std::optional<EntryFault>(QWidget& control)>;

    LeaveChecks(FormHost& host, QDialog& dialog, Check check);

    void Watch(QWidget& control) { control.installEventFilter(this); }
    // Nothing is checked when the focus goes to this button (Cancel, Help).
    void Allow(QWidget& button) { freeButtons_.push_back(&button); }

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
