// A table whose first column stays in sight while the others scroll sideways. It is one table, also
// to a screen reader: the first column is drawn, and found under the mouse, where it stays.
#pragma once

#include <QHeaderView>
#include <QTableView>

namespace qfr {

// Its heads across: the first one stays.
class FrozenHeader : public QHeaderView {
    Q_OBJECT

  public:
    explicit FrozenHeader(QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    // The event as it would come had the first head scrolled away with the others.
    QMouseEvent Scrolled(const QMouseEvent& event) const;

    bool pressedOnFirst_ = false;
};

class FrozenTable : public QTableView {
    Q_OBJECT

  public:
    explicit FrozenTable(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;
    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& place) const override;
    // Into sight, which is also not under the first column.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

  private:
    void PaintFirstColumn(const QRect& area);
};

}  // namespace qfr
