// The grid of an entry dialog, for typing from cell to cell: the current cell is always ready to be
// typed in, Tab goes from one such cell to the next, Enter to the one below.
#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <QTableWidget>
#include <QUndoStack>

namespace qfr {

class EntryGrid : public QTableWidget {
    Q_OBJECT

  public:
    struct Column {
        const char* heading;
        int width;  // pixels, for the forms' 13-pixel letters
        bool readOnly = false;
        int noteFrom = 0;  // pixels for the cell's text, before its note; 0: no notes
    };

    explicit EntryGrid(QWidget* parent = nullptr);
    ~EntryGrid() override;

    // An empty grid. It asks for the height of `visibleRows`.
    void SetUp(std::initializer_list<Column> columns, int rows, int visibleRows);
    // A paste that is longer than the grid adds rows; otherwise what does not fit is left out.
    void LetPasteAddRows() { pasteAddsRows_ = true; }

    // Rows and columns from 0, without the heading.
    std::string Cell(int row, int column) const;
    // The same, with what is being typed there.
    std::string TypedCell(int row, int column) const;
    void SetCell(int row, int column, const std::string& text);

    // What is said of a cell: a few words at its right end, also while it is being typed in, and
    // the whole as its tooltip and as what a screen reader hears. Only columns with a `noteFrom`
    // have room for it.
    struct Note {
        std::string Text;
        std::string Whole;
        bool Strong = false;
        bool operator==(const Note&) const = default;
    };
    void SetNote(int row, int column, const Note& note);
    // The whole note of the current cell; empty: there is none.
    QString CurrentNote() const;

    // Takes over what is being typed and leaves the cell.
    void FinishEditing();
    // The clipboard's rows and cells, from the current cell on.
    void Paste();

    static constexpr const char* kTyping = "Typing";
    // What one step of Undo takes back. `name` is what the step does, as in "Delete Row".
    void AsOneStep(const QString& name, const std::function<void()>& change);
    // All rows, as they were before something that is done already.
    struct Cells {
        int Rows = 0;
        std::vector<QString> Texts;  // row by row
        bool operator==(const Cells&) const = default;
    };
    Cells AllCells() const;
    void AddDoneStep(const QString& name, Cells before);
    QUndoStack& Steps() { return steps_; }
    // What is being typed is a step, too.
    void Undo();
    void Redo();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    // A cell's text has changed, or what is being typed in one.
    void Edited();
    // What is being typed in a cell has changed, or a ";" was typed there; `edit` is null for what
    // is pasted over cells.
    void Typed(QLineEdit* edit, bool fieldEnd);

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
    void SetAllCells(const Cells& cells);
    void SetCellsFromCurrent(const QStringList& rows);
    // Of a cell's text; the note has the rest.
    QRect TextPlace(const QModelIndex& index, const QRect& cell) const;

    std::vector<Column> columns_;
    std::map<std::pair<int, int>, Note> notes_;  // by row and column
    double scale_ = 1;                           // of the letters to those of the forms
    QUndoStack steps_;
    int columnsWidth_ = 0;  // pixels, before the user or the dialog changes it
    int visibleRows_ = 1;
    bool pasteAddsRows_ = false;

    friend class CellDelegate;
    friend class CellsStep;
};

}  // namespace qfr
