#include "dialogs/FrozenTable.h"

#include <algorithm>

#include <QAbstractItemDelegate>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

namespace qfr {

FrozenHeader::FrozenHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(true);
    setHighlightSections(true);
}

void FrozenHeader::paintEvent(QPaintEvent* event) {
    QHeaderView::paintEvent(event);
    if (offset() > 0 && count() > 0) {
        const QRect place(0, 0, sectionSize(0), viewport()->height());
        QPainter painter(viewport());
        painter.fillRect(place, palette().button());
        paintSection(&painter, place, 0);
    }
}

QMouseEvent FrozenHeader::Scrolled(const QMouseEvent& event) const {
    constexpr double kGrip = 4;  // pixels beside the edge, where it is taken hold of
    const bool onFirst = event.type() == QEvent::MouseButtonPress || event.buttons() == Qt::NoButton
                             ? count() > 0 && event.position().x() < sectionSize(0) + kGrip
                             : pressedOnFirst_;
    return {event.type(),           event.position() - QPointF(onFirst ? offset() : 0, 0),
            event.globalPosition(), event.button(),
            event.buttons(),        event.modifiers()};
}

void FrozenHeader::mousePressEvent(QMouseEvent* event) {
    QMouseEvent scrolled = Scrolled(*event);
    pressedOnFirst_ = scrolled.position() != event->position();
    QHeaderView::mousePressEvent(&scrolled);
}

void FrozenHeader::mouseMoveEvent(QMouseEvent* event) {
    QMouseEvent scrolled = Scrolled(*event);
    QHeaderView::mouseMoveEvent(&scrolled);
}

void FrozenHeader::mouseReleaseEvent(QMouseEvent* event) {
    QMouseEvent scrolled = Scrolled(*event);
    QHeaderView::mouseReleaseEvent(&scrolled);
}

void FrozenHeader::mouseDoubleClickEvent(QMouseEvent* event) {
    QMouseEvent scrolled = Scrolled(*event);
    QHeaderView::mouseDoubleClickEvent(&scrolled);
}

FrozenTable::FrozenTable(QWidget* parent) : QTableView(parent) {
    setHorizontalHeader(new FrozenHeader(this));
    setHorizontalScrollMode(ScrollPerPixel);
}

void FrozenTable::setModel(QAbstractItemModel* model) {
    QTableView::setModel(model);
    connect(model, &QAbstractItemModel::dataChanged, viewport(), QOverload<>::of(&QWidget::update));
}

QRect FrozenTable::visualRect(const QModelIndex& index) const {
    QRect place = QTableView::visualRect(index);
    if (index.isValid() && index.column() == 0) {
        place.translate(horizontalOffset(), 0);
    }
    return place;
}

QModelIndex FrozenTable::indexAt(const QPoint& place) const {
    const QModelIndex index = QTableView::indexAt(place);
    const bool onFirst = place.x() >= 0 && place.x() < columnWidth(0);
    const int row = rowAt(place.y());
    return onFirst && row >= 0 ? model()->index(row, 0) : index;
}

void FrozenTable::scrollTo(const QModelIndex& index, ScrollHint hint) {
    QScrollBar& across = *horizontalScrollBar();
    const int offset = across.value();
    QTableView::scrollTo(index, hint);
    if (index.column() == 0) {
        across.setValue(offset);
    } else if (const int hidden = columnWidth(0) - visualRect(index).left(); hidden > 0) {
        across.setValue(across.value() - hidden);
    }
}

void FrozenTable::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    if (dx != 0) {
        viewport()->update();
        horizontalHeader()->viewport()->update();
    }
}

void FrozenTable::selectionChanged(const QItemSelection& selected,
                                   const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    viewport()->update(0, 0, columnWidth(0), viewport()->height());
}

void FrozenTable::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (horizontalOffset() > 0 && model() != nullptr) {
        PaintFirstColumn(event->rect());
    }
}

void FrozenTable::PaintFirstColumn(const QRect& area) {
    QStyleOptionViewItem common;
    initViewItemOption(&common);
    const int width = columnWidth(0);
    QPainter painter(viewport());
    const int last = rowAt(area.bottom());
    for (int row = std::max(rowAt(area.top()), 0);
         row <= (last < 0 ? model()->rowCount() - 1 : last); ++row) {
        const QModelIndex index = model()->index(row, 0);
        const QRect place(0, rowViewportPosition(row), width, rowHeight(row));
        QStyleOptionViewItem option = common;
        option.rect = place.adjusted(0, 0, -1, -1);
        option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
        option.state.setFlag(QStyle::State_HasFocus, index == currentIndex() && hasFocus());
        painter.fillRect(place, palette().base());
        itemDelegateForIndex(index)->paint(&painter, option, index);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawLine(place.bottomLeft(), place.bottomRight());
    }
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawLine(width - 1, area.top(), width - 1, area.bottom());
}

}  // namespace qfr
