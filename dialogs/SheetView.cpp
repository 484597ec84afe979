#include "dialogs/SheetView.h"

#include <algorithm>

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScopedValueRollback>

namespace qfr {

namespace {

bool IsEnter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

// Of an editor that is a line, or has one.
QLineEdit* LineIn(QWidget* editor) {
    auto* const line = qobject_cast<QLineEdit*>(editor);
    return line != nullptr || editor == nullptr ? line : editor->findChild<QLineEdit*>();
}

}  // namespace

SheetView::SheetView(QWidget* parent) : FrozenTable(parent) {
    setEditTriggers(AnyKeyPressed | EditKeyPressed | DoubleClicked);
    setSelectionMode(ExtendedSelection);
    setCornerButtonEnabled(true);
    setWordWrap(false);
}

void SheetView::Go(const QModelIndex& index, bool extend) {
    if (!index.isValid()) {
        return;
    }
    if (!extend || !anchor_.isValid()) {
        setCurrentIndex(index);
        return;
    }
    const QModelIndex anchor = anchor_;
    const auto [top, bottom] = std::minmax({anchor.row(), index.row()});
    const auto [left, right] = std::minmax({anchor.column(), index.column()});
    selectionModel()->select({model()->index(top, left), model()->index(bottom, right)},
                             QItemSelectionModel::ClearAndSelect);
    const QScopedValueRollback extending(extending_, true);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    scrollTo(index);
}

void SheetView::FinishEditing() {
    if (QWidget* const editor = indexWidget(currentIndex())) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

QModelIndex SheetView::Target(const QKeyEvent& key) {
    const bool control = key.modifiers().testFlag(Qt::ControlModifier);
    const QModelIndex from = currentIndex();
    const int lastRow = model()->rowCount() - 1;
    const int lastColumn = model()->columnCount() - 1;
    switch (key.key()) {
        case Qt::Key_Up:
            return from.siblingAtRow(control ? 0 : from.row() - 1);
        case Qt::Key_Down:
            return from.siblingAtRow(control ? lastRow : from.row() + 1);
        case Qt::Key_Left:
            return from.siblingAtColumn(control ? 0 : from.column() - 1);
        case Qt::Key_Right:
            return from.siblingAtColumn(control ? lastColumn : from.column() + 1);
        case Qt::Key_Home:
            return model()->index(control ? 0 : from.row(), 0);
        case Qt::Key_End:
            return model()->index(control ? lastRow : from.row(), lastColumn);
        case Qt::Key_PageUp:
            return control ? QModelIndex() : moveCursor(MovePageUp, Qt::NoModifier);
        case Qt::Key_PageDown:
            return control ? QModelIndex() : moveCursor(MovePageDown, Qt::NoModifier);
        default:
            return {};
    }
}

bool SheetView::LeavesEditor(const QKeyEvent& key) const {
    switch (key.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return true;
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Left:
        case Qt::Key_Right:
            return typing_ && key.modifiers() == Qt::NoModifier;
        default:
            return false;
    }
}

void SheetView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier)) {
        OfferChoices();
    } else if (IsEnter(*event)) {
        GoByEnter(!event->modifiers().testFlag(Qt::ShiftModifier));
    } else if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab) {
        focusNextPrevChild(event->key() == Qt::Key_Tab);
    } else if (const QModelIndex target = Target(*event); target.isValid()) {
        Go(target, event->modifiers().testFlag(Qt::ShiftModifier));
    } else {
        FrozenTable::keyPressEvent(event);
    }
}

void SheetView::OfferChoices() {
    edit(currentIndex(), EditKeyPressed, nullptr);
    if (auto* const box = qobject_cast<QComboBox*>(indexWidget(currentIndex()))) {
        box->showPopup();
    }
}

// The item view's own way would go round and round inside the table.
bool SheetView::LeaveTable(bool next) {
    return QAbstractScrollArea::focusNextPrevChild(next);  // NOLINT(bugprone-parent-virtual-call)
}

// At either end the focus goes on to the control beside the table.
bool SheetView::focusNextPrevChild(bool next) {
    return GoByTab(next) || LeaveTable(next);
}

bool SheetView::GoByTab(bool next) {
    const QModelIndex from = currentIndex();
    const int began = tabColumn_.value_or(from.column());
    QModelIndex target = from.siblingAtColumn(from.column() + (next ? 1 : -1));
    if (!target.isValid()) {
        target =
            model()->index(from.row() + (next ? 1 : -1), next ? began : model()->columnCount() - 1);
    }
    if (!from.isValid() || !target.isValid()) {
        return false;
    }
    Go(target);
    tabColumn_ = began;
    return true;
}

void SheetView::GoByEnter(bool down) {
    const QModelIndex from = currentIndex();
    Go(model()->index(from.row() + (down ? 1 : -1), tabColumn_.value_or(from.column())));
}

void SheetView::mousePressEvent(QMouseEvent* event) {
    mouse_ = event->pos();
    const QScopedValueRollback extending(extending_,
                                         event->modifiers().testFlag(Qt::ShiftModifier));
    if (!extending_) {
        anchor_ = indexAt(mouse_);
    }
    FrozenTable::mousePressEvent(event);
}

void SheetView::mouseMoveEvent(QMouseEvent* event) {
    mouse_ = event->pos();
    const QScopedValueRollback extending(extending_, event->buttons() != Qt::NoButton);
    FrozenTable::mouseMoveEvent(event);
}

// The area is that between two points; where one of them has scrolled under the first column, only
// the cells themselves tell what is meant.
void SheetView::setSelection(const QRect& area, QItemSelectionModel::SelectionFlags command) {
    const QModelIndex to = indexAt(mouse_);
    const QModelIndex from = anchor_;
    if (!to.isValid() || !from.isValid()) {
        FrozenTable::setSelection(area, command);
        return;
    }
    const auto [top, bottom] = std::minmax({from.row(), to.row()});
    const auto [left, right] = std::minmax({from.column(), to.column()});
    selectionModel()->select({model()->index(top, left), model()->index(bottom, right)}, command);
}

void SheetView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    FrozenTable::currentChanged(current, previous);
    tabColumn_.reset();
    if (!extending_) {
        anchor_ = current;
    }
}

bool SheetView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool opened = FrozenTable::edit(index, trigger, event);
    if (opened) {
        typing_ = trigger == AnyKeyPressed;
        // What is to be changed is not to be typed over.
        if (QLineEdit* const line =
                trigger == EditKeyPressed ? LineIn(indexWidget(index)) : nullptr) {
            line->end(false);
        }
    }
    return opened;
}

}  // namespace qfr
