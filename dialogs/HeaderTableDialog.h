// Edit All Headers: the headers of all samples in one table. What is typed, pasted or filled in is
// taken at once, and can be undone until the window closes; values that are refused are told of
// then.
#pragma once

#include <memory>
#include <vector>

#include <QDialog>

#include "dialogs/HeaderTable.h"
#include "dialogs/HoldsEntries.h"
#include "forms/FormHost.h"
#include "platform/WindowServices.h"
#include "platform/qt/Remembered.h"

class QMenu;

namespace Ui {
class HeaderTableDialog;
}

namespace qfr {

class HeaderColumns;

class HeaderTableDialog : public QDialog, public HoldsEntries {
    Q_OBJECT

  public:
    HeaderTableDialog(FormHost& host, WindowServices& services, Remembered& memory,
                      QWidget* parent);
    ~HeaderTableDialog() override;

    // Shows the headers of the batch; where it has no samples, only a message.
    void ShowHeaders();

    // Of the cell that is being typed in, unless it would be refused.
    void StoreInto(Batch& batch, Entries& entries) const override;

    // Closes, by whatever way.
    void reject() override;

  protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void SetUpTable(Remembered& memory);
    void SetUpCommands();
    // Commands work on what is being typed, too.
    QAction* AddCommand(QMenu& menu, const QString& caption, const QKeySequence& shortcut,
                        void (HeaderTableDialog::*handler)());
    void AddStep(QMenu& menu, QAction* action, void (QUndoStack::*step)());
    void ShowColours();
    void ShowState();
    // What the last change has not taken as it was entered.
    void ShowRemark(const QString& text);
    QString RemarkOn(const std::vector<HeaderChange>& changes) const;
    bool AgreesToLose() const;

    // Never empty: without a selection the current cell is meant.
    std::vector<HeaderCell> Selection() const;
    void Copy();
    void Cut();
    void Paste();
    void Clear();
    void FillDown();
    void FillEmpty();
    void SelectAll();
    // Goes to where a step has changed something that is out of sight, perhaps.
    void OnChanged(const std::vector<HeaderChange>& changes, bool again);

    void OpenFindBar();
    void FindNext();
    void FindPrevious();

    FormHost& host_;
    WindowServices& services_;
    std::unique_ptr<Ui::HeaderTableDialog> ui_;
    HeaderTable table_;
    HeaderColumns* columns_ = nullptr;
    bool fieldEndEntered_ = false;  // in what is to be taken next
};

}  // namespace qfr
