// The grid of an entry dialog, for typing from cell to cell: the current cell is always ready to be
// typed in, Tab goes from one such cell to the next, Enter to the one below.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include <QTableWidget>

namespace qfr {

class EntryGrid : public QTableWidget {
    Q_OBJECT

  public:
    struct Column {
        const char* heading;
        int width;  // pixels, for the forms' 13-pixel letters
        bool readOnly = false;
    };

    explicit EntryGrid(QWidget* parent = nullptr);

    // An empty grid. It asks for the height of `visibleRows`.
    void SetUp(std::initializer_list<Column> columns, int rows, int visibleRows);
    // A paste that is longer than the grid adds rows; otherwise what does not fit is left out.
    void LetPasteAddRows() { pasteAddsRows_ = true; }

    // Rows and columns from 0, without the heading.
    std::string Cell(int row, int column) const;
    // The same, with what is being typed there.
    std::string TypedCell(int row, int column) const;
    void SetCell(int row, int column, const std::string& text);

    // Takes over what is being typed and leaves the cell.
    void FinishEditing();
    // The clipboard's rows and cells, from the current cell on.
    void Paste();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    bool focusNextPrevChild(bool next) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    // The editable cell after or before the current one; invalid at the ends.
    QModelIndex Neighbour(bool next) const;
    bool IsEditable(const QModelIndex& index) const;
    bool LeaveGrid(bool next);
    // False in the last row.
    bool MoveDown();
    void FitToFont();
    int HeightOf(int rows) const;
    QLineEdit* Editor() const;

    std::vector<Column> columns_;
    int columnsWidth_ = 0;  // pixels, before the user or the dialog changes it
    int visibleRows_ = 1;
    bool pasteAddsRows_ = false;

    friend class CellDelegate;
};

}  // namespace qfr
