// The cells of an EntryGrid: how they are typed in, and painted with what is said of them.
#pragma once

#include <QKeyEvent>
#include <QStyledItemDelegate>

namespace qfr {

class EntryGrid;

inline bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

// Gives the keys that concern more than the cell to the grid.
class CellDelegate : public QStyledItemDelegate {
  public:
    explicit CellDelegate(EntryGrid& grid);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

  protected:
    bool eventFilter(QObject* editor, QEvent* event) override;

  private:
    EntryGrid& grid_;
};

}  // namespace qfr
