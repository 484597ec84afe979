#include "dialogs/EntryGrid.h"

#include <algorithm>
#include <cmath>

#include <QClipboard>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>

#include "dialogs/CellDelegate.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr double kLetterHeight = 13;  // pixels, of the letters that column widths are given for
constexpr int kRowPadding = 8;
constexpr int kLeastRows = 4;
constexpr int kMostSteps = 100;

}  // namespace

// What the cells were, and what they have become.
class CellsStep : public QUndoCommand {
  public:
    CellsStep(const QString& name, EntryGrid& grid, EntryGrid::Cells before)
        : QUndoCommand(name), grid_(grid), before_(std::move(before)), after_(grid.AllCells()) {}

    void undo() override { grid_.SetAllCells(before_); }
    void redo() override {
        if (grid_.AllCells() != after_) {  // at first it is done already
            grid_.SetAllCells(after_);
        }
    }

  private:
    EntryGrid& grid_;
    EntryGrid::Cells before_;
    EntryGrid::Cells after_;
};

EntryGrid::EntryGrid(QWidget* parent) : QTableWidget(parent) {
    setItemDelegate(new CellDelegate(*this));
    setEditTriggers(AnyKeyPressed | DoubleClicked | CurrentChanged);
    setSelectionMode(SingleSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setStretchLastSection(true);
    steps_.setUndoLimit(kMostSteps);
    connect(this, &QTableWidget::itemChanged, this, &EntryGrid::Edited);
    // At once: what is typed while the view waits for a double click goes to a row that it
    // searches.
    connect(this, &QTableWidget::clicked, this, [this](const QModelIndex& index) {
        if (Editor() == nullptr && IsEditable(index)) {
            edit(index);
        }
    });
}

// The steps tell of their end, and the dialog is no dialog any more.
EntryGrid::~EntryGrid() {
    steps_.disconnect();
}

void EntryGrid::SetUp(std::initializer_list<Column> columns, int rows, int visibleRows) {
    columns_ = columns;
    visibleRows_ = visibleRows;
    setColumnCount(static_cast<int>(columns_.size()));
    QStringList headings;
    for (const Column& column : columns_) {
        headings << column.heading;
    }
    setHorizontalHeaderLabels(headings);
    setRowCount(rows);
    FitToFont();
}

std::string EntryGrid::Cell(int row, int column) const {
    const QTableWidgetItem* const cell = item(row, column);
    return cell != nullptr ? EnteredField(cell->text().toStdString()) : "";
}

std::string EntryGrid::TypedCell(int row, int column) const {
    const QLineEdit* const editor =
        row == currentRow() && column == currentColumn() ? Editor() : nullptr;
    return editor != nullptr ? EnteredField(editor->text().toStdString()) : Cell(row, column);
}

void EntryGrid::SetCell(int row, int column, const std::string& text) {
    const QString shown = QString::fromStdString(text);
    if (QTableWidgetItem* const cell = item(row, column)) {
        cell->setText(shown);
        return;
    }
    auto* const cell = new QTableWidgetItem(shown);
    if (columns_[static_cast<std::size_t>(column)].readOnly) {
        cell->setFlags(Qt::ItemIsEnabled);
        cell->setBackground(palette().window());
    }
    setItem(row, column, cell);
}

void EntryGrid::SetNote(int row, int column, const Note& note) {
    if (std::exchange(notes_[{row, column}], note) == note) {
        return;
    }
    if (item(row, column) == nullptr) {
        SetCell(row, column, "");
    }
    const QString text = QString::fromStdString(note.Whole);
    {
        // The view would put the cell's text back into the edit in which it is being changed.
        const QSignalBlocker blocker(model());
        item(row, column)->setData(Qt::AccessibleDescriptionRole, text);
        item(row, column)->setToolTip(text);
    }
    if (QLineEdit* const editor = Editor();
        editor != nullptr && row == currentRow() && column == currentColumn()) {
        editor->setAccessibleDescription(text);
    }
    viewport()->update();
}

QString EntryGrid::CurrentNote() const {
    return currentIndex().data(Qt::AccessibleDescriptionRole).toString();
}

QRect EntryGrid::TextPlace(const QModelIndex& index, const QRect& cell) const {
    const int room = columns_[static_cast<std::size_t>(index.column())].noteFrom;
    QRect place = cell;
    if (room > 0) {
        place.setWidth(std::min(cell.width(), static_cast<int>(std::lround(room * scale_))));
    }
    return place;
}

EntryGrid::Cells EntryGrid::AllCells() const {
    Cells cells{rowCount(), {}};
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            cells.Texts.push_back(item(row, column) != nullptr ? item(row, column)->text() : "");
        }
    }
    return cells;
}

// The focus goes to the first cell that changes.
void EntryGrid::SetAllCells(const Cells& cells) {
    FinishEditing();
    setRowCount(cells.Rows);
    QModelIndex first;
    std::size_t place = 0;
    for (const QString& text : cells.Texts) {
        const int row = static_cast<int>(place) / columnCount();
        const int column = static_cast<int>(place) % columnCount();
        const QTableWidgetItem* const cell = item(row, column);
        if ((cell != nullptr ? cell->text() : "") != text) {
            SetCell(row, column, text.toStdString());
            first = first.isValid() ? first : model()->index(row, column);
        }
        ++place;
    }
    if (IsEditable(first)) {
        setCurrentIndex(first);
        setFocus(Qt::OtherFocusReason);
        edit(first);
    }
}

void EntryGrid::AsOneStep(const QString& name, const std::function<void()>& change) {
    Cells before = AllCells();
    change();
    AddDoneStep(name, std::move(before));
}

void EntryGrid::AddDoneStep(const QString& name, Cells before) {
    if (AllCells() != before) {
        steps_.push(new CellsStep(name, *this, std::move(before)));
    }
}

void EntryGrid::Undo() {
    FinishEditing();
    steps_.undo();
}

void EntryGrid::Redo() {
    FinishEditing();
    steps_.redo();
}

QLineEdit* EntryGrid::Editor() const {
    return qobject_cast<QLineEdit*>(indexWidget(currentIndex()));
}

void EntryGrid::FinishEditing() {
    if (QLineEdit* const editor = Editor()) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

void EntryGrid::Paste() {
    FinishEditing();
    // Rows at line breaks, cells at tabs; a line break at the end starts no further row.
    QStringList rows = QGuiApplication::clipboard()->text().split('\n');
    if (rows.last().isEmpty()) {
        rows.removeLast();
    }
    AsOneStep("Paste", [&] { SetCellsFromCurrent(rows); });
    if (currentIndex().isValid()) {
        edit(currentIndex());
    }
}

void EntryGrid::SetCellsFromCurrent(const QStringList& rows) {
    const int firstColumn = std::max(currentColumn(), 0);
    int row = std::max(currentRow(), 0);
    if (const int needed = row + static_cast<int>(rows.size());
        pasteAddsRows_ && needed > rowCount()) {
        setRowCount(needed);
    }
    for (QString cells : rows) {
        if (cells.endsWith('\r')) {
            cells.chop(1);
        }
        int column = firstColumn;
        for (const QString& cell : cells.split('\t')) {
            if (IsEditable(model()->index(row, column))) {
                SetCell(row, column, EnteredField(cell.toStdString()));
                emit Typed(nullptr, cell.contains(';'));
            }
            ++column;
        }
        ++row;
    }
}

bool EntryGrid::IsEditable(const QModelIndex& index) const {
    return index.isValid() && index.flags().testFlag(Qt::ItemIsEditable);
}

QModelIndex EntryGrid::Neighbour(bool next) const {
    const int step = next ? 1 : -1;
    int place = currentRow() * columnCount() + currentColumn() + step;
    for (; place >= 0 && place < rowCount() * columnCount(); place += step) {
        const QModelIndex index = model()->index(place / columnCount(), place % columnCount());
        if (IsEditable(index)) {
            return index;
        }
    }
    return {};
}

// The item view's own way would go round and round inside the grid.
bool EntryGrid::LeaveGrid(bool next) {
    return QAbstractScrollArea::focusNextPrevChild(next);  // NOLINT(bugprone-parent-virtual-call)
}

// At either end the focus goes on to the control beside the grid.
bool EntryGrid::focusNextPrevChild(bool next) {
    if (const QModelIndex neighbour = Neighbour(next); neighbour.isValid()) {
        setCurrentIndex(neighbour);
        return true;
    }
    return LeaveGrid(next);
}

QModelIndex EntryGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    switch (action) {
        case MoveNext:
            return Neighbour(true);
        case MovePrevious:
            return Neighbour(false);
        default:
            return QTableWidget::moveCursor(action, modifiers);
    }
}

void EntryGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    const bool next = hint == QAbstractItemDelegate::EditNextItem;
    if ((next || hint == QAbstractItemDelegate::EditPreviousItem) && !Neighbour(next).isValid()) {
        QTableWidget::closeEditor(editor, QAbstractItemDelegate::NoHint);
        LeaveGrid(next);
        return;
    }
    QTableWidget::closeEditor(editor, hint);
}

void EntryGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableWidget::currentChanged(current, previous);
    if (!current.isValid() || IsEditable(current)) {
        return;
    }
    // A click beside the value means the value.
    for (int column = 0; column < columnCount(); ++column) {
        const QModelIndex index = current.siblingAtColumn(column);
        if (IsEditable(index)) {
            QMetaObject::invokeMethod(
                this, [this, index] { setCurrentIndex(index); }, Qt::QueuedConnection);
            return;
        }
    }
}

bool EntryGrid::MoveDown() {
    if (currentRow() + 1 >= rowCount()) {
        return false;
    }
    setCurrentCell(currentRow() + 1, currentColumn());
    return true;
}

void EntryGrid::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Undo)) {
        Undo();
    } else if (event->matches(QKeySequence::Redo)) {
        Redo();
    } else if (event->matches(QKeySequence::Paste)) {
        Paste();
    } else if (!IsEnter(*event)) {
        QTableWidget::keyPressEvent(event);
    } else if (!MoveDown()) {
        event->ignore();  // the dialog's OK
    }
}

void EntryGrid::focusInEvent(QFocusEvent* event) {
    QTableWidget::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    if ((reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
         reason == Qt::ShortcutFocusReason) &&
        IsEditable(currentIndex())) {
        edit(currentIndex());
    }
}

void EntryGrid::changeEvent(QEvent* event) {
    QTableWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        FitToFont();
    }
}

void EntryGrid::FitToFont() {
    scale_ = std::max(1.0, fontMetrics().height() / kLetterHeight);
    columnsWidth_ = 0;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const int column = static_cast<int>(i);
        const int given = static_cast<int>(std::lround(columns_[i].width * scale_));
        const int width = std::max(given, horizontalHeader()->sectionSizeHint(column));
        setColumnWidth(column, width);
        columnsWidth_ += width;
    }
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
    updateGeometry();
}

int EntryGrid::HeightOf(int rows) const {
    return horizontalHeader()->sizeHint().height() + 2 * frameWidth() +
           rows * verticalHeader()->defaultSectionSize();
}

QSize EntryGrid::sizeHint() const {
    // The bar is there where the screen is too low for all rows, and must not cut the last column.
    const int bar = verticalScrollBar()->sizeHint().width();
    return {columnsWidth_ + 2 * frameWidth() + bar, HeightOf(visibleRows_)};
}

QSize EntryGrid::minimumSizeHint() const {
    return {sizeHint().width(), HeightOf(std::min(visibleRows_, kLeastRows))};
}

}  // namespace qfr
