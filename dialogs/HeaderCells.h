// How the cells of the table of all headers look and are typed in.
#pragma once

#include <functional>
#include <optional>

#include <QColor>
#include <QPalette>
#include <QStyledItemDelegate>

#include "data/HeaderSheet.h"

namespace qfr {

class SheetView;

// The ground of cells with such a mark, for texts of the palette's colour.
QColor ColourOf(HeaderMark mark, const QPalette& palette);

class HeaderCells : public QStyledItemDelegate {
    Q_OBJECT

  public:
    // `paste` takes several cells that are pasted while one is typed in.
    HeaderCells(SheetView& view, std::function<void()> paste);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    // What the cell's editor would enter; absent while it is as it was opened.
    static std::optional<QString> EnteredIn(QWidget& editor, const QModelIndex& index);
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

  signals:
    void EditingBegan() const;
    // A ";" was typed or pasted, which no value can hold.
    void FieldEndEntered() const;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    bool eventFilter(QObject* editor, QEvent* event) override;

  private:
    SheetView& view_;
    std::function<void()> paste_;
};

}  // namespace qfr
