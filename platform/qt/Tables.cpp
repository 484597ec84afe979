#include "platform/qt/Tables.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include <QEvent>
#include <QHeaderView>
#include <QListWidget>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTableWidget>

#include "platform/qt/ShownText.h"

namespace qfr {

namespace {

constexpr int kRowsMeasured = 50;   // for the widths of the columns
constexpr int kLettersOfLast = 28;  // that the last column asks for at most
constexpr int kLettersOfLong = 9;   // that one of long texts keeps
constexpr int kRowPadding = 6;      // pixels

int Letters(const QTableView& table, int count) {
    return count * table.fontMetrics().averageCharWidth();
}

struct Width {
    int Wanted;
    int Least;
};

// The widest give way first.
int CapFor(const std::vector<Width>& widths, int room) {
    const auto fits = [&](int cap) {
        return std::accumulate(widths.begin(), widths.end(), 0, [&](int sum, const Width& width) {
                   return sum + std::min(width.Wanted, std::max(cap, width.Least));
               }) <= room;
    };
    int cap = std::ranges::max(widths, {}, &Width::Wanted).Wanted;
    while (cap > 0 && !fits(cap)) {
        --cap;
    }
    return cap;
}

class ColumnKeeper : public QObject {
  public:
    ColumnKeeper(QTableView& table, std::vector<int> longTexts)
        : QObject(&table), table_(table), longTexts_(std::move(longTexts)) {
        const QHeaderView& heads = *table.horizontalHeader();
        for (int column = 0; column < heads.count(); ++column) {
            wanted_.push_back(heads.sectionSize(column));
        }
        connect(&heads, &QHeaderView::sectionResized, this, [this](int column, int, int width) {
            if (!keeping_) {
                wanted_.at(static_cast<std::size_t>(column)) = width;
            }
        });
        table.viewport()->installEventFilter(this);
        const QAbstractItemModel* const model = table.model();
        connect(model, &QAbstractItemModel::modelReset, this, &ColumnKeeper::Keep);
        connect(model, &QAbstractItemModel::dataChanged, this, &ColumnKeeper::Keep);
    }

    void Keep() {
        const QScopedValueRollback keeping(keeping_, true);
        std::vector<Width> widths;
        for (const int column : longTexts_) {
            widths.push_back(
                {Wanted(column), std::min(Head(column), Letters(table_, kLettersOfLong))});
        }
        const int cap = CapFor(widths, Room());
        for (std::size_t i = 0; i < widths.size(); ++i) {
            table_.setColumnWidth(longTexts_[i],
                                  std::min(widths[i].Wanted, std::max(cap, widths[i].Least)));
        }
        ShrinkLast();
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Resize || event->type() == QEvent::Show) {
            Keep();
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    int Wanted(int column) const { return wanted_.at(static_cast<std::size_t>(column)); }
    int Head(int column) const { return table_.horizontalHeader()->sectionSizeHint(column); }

    int Last() const { return static_cast<int>(wanted_.size()) - 1; }

    // For the columns of long texts.
    int Room() const {
        const int last = Last();
        const int content =
            static_cast<const QAbstractItemView&>(table_).sizeHintForColumn(last) + 1;
        int room = table_.viewport()->width() -
                   std::max(Head(last), std::min(content, Letters(table_, kLettersOfLast)));
        for (int column = 0; column < last; ++column) {
            if (std::ranges::find(longTexts_, column) == longTexts_.end()) {
                room -= Wanted(column);
            }
        }
        return room;
    }

    // It stretches, but never to less than it was made.
    void ShrinkLast() {
        const int rest = table_.viewport()->width() - table_.columnViewportPosition(Last()) -
                         table_.horizontalHeader()->offset();
        if (table_.columnWidth(Last()) > rest) {
            table_.setColumnWidth(Last(), std::max(rest, Head(Last())));
        }
    }

    QTableView& table_;
    const std::vector<int> longTexts_;
    std::vector<int> wanted_;
    bool keeping_ = false;
};

// Asks for no width: an item is as wide as its list.
class ElidingDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {1, QStyledItemDelegate::sizeHint(option, index).height()};
    }
};

}  // namespace

void SetUpRows(QTableView& table) {
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setTabKeyNavigation(false);
    table.setWordWrap(false);
    table.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    QHeaderView& columns = *table.horizontalHeader();
    columns.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    columns.setHighlightSections(false);
    columns.setStretchLastSection(true);
    columns.setResizeContentsPrecision(kRowsMeasured);
    table.verticalHeader()->hide();
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + kRowPadding);
}

void KeepColumnsInSight(QTableView& table, std::vector<int> longTexts) {
    new ColumnKeeper(table, std::move(longTexts));
}

void FitColumns(QTableView& table) {
    for (int column = 0; column + 1 < table.model()->columnCount(); ++column) {
        table.resizeColumnToContents(column);
    }
    for (QObject* const child : table.children()) {
        if (auto* const keeper = dynamic_cast<ColumnKeeper*>(child)) {
            keeper->Keep();
        }
    }
}

void FillWrapped(QTableWidget& table, const std::vector<std::vector<std::string>>& rows,
                 int longTexts) {
    table.setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; const std::vector<std::string>& texts : rows) {
        for (int column = 0; const std::string& text : texts) {
            auto* const cell = new QTableWidgetItem(Shown(text));
            cell->setTextAlignment(Qt::AlignLeft | Qt::AlignTop);
            table.setItem(row, column++, cell);
        }
        ++row;
    }
    SetUpRows(table);
    table.setWordWrap(true);
    table.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    QHeaderView& columns = *table.horizontalHeader();
    columns.setStretchLastSection(false);
    columns.setSectionResizeMode(QHeaderView::ResizeToContents);
    columns.setSectionResizeMode(longTexts, QHeaderView::Stretch);
    table.verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table.setCurrentCell(0, 0);
}

void ElideItems(QListWidget& list) {
    list.setItemDelegate(new ElidingDelegate(&list));
    list.setTextElideMode(Qt::ElideMiddle);
}

}  // namespace qfr
