// A table that is worked in as in a spreadsheet. Tab goes right and Enter down, after Tabs to where
// they began; typing replaces a cell, F2 changes it; Shift with a key that moves selects.
#pragma once

#include <optional>

#include <QPersistentModelIndex>

#include "dialogs/FrozenTable.h"

namespace qfr {

class SheetView : public FrozenTable {
    Q_OBJECT

  public:
    explicit SheetView(QWidget* parent = nullptr);

    // Makes it the current cell and, without `extend`, the only one that is selected; otherwise all
    // are up to the one from which the selection goes.
    void Go(const QModelIndex& index, bool extend = false);
    // Takes over what is being typed and leaves the cell's editor.
    void FinishEditing();
    // Such a key ends the typing in a cell and does the same as without.
    bool LeavesEditor(const QKeyEvent& key) const;
    void TakeKey(QKeyEvent& key) { keyPressEvent(&key); }

  protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void setSelection(const QRect& area, QItemSelectionModel::SelectionFlags command) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;

  private:
    // Where the key leads, or nowhere.
    QModelIndex Target(const QKeyEvent& key);
    // Opens the list of the cell's editor, if it has one.
    void OfferChoices();
    bool GoByTab(bool next);
    void GoByEnter(bool down);
    bool LeaveTable(bool next);

    QPersistentModelIndex anchor_;  // from which the selection goes
    std::optional<int> tabColumn_;  // in which the Tabs began
    QPoint mouse_;
    bool extending_ = false;  // by the mouse
    bool typing_ = false;     // over the cell's value
};

}  // namespace qfr
