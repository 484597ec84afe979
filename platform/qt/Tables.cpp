#include "platform/qt/Tables.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include <QEvent>
#include <QHeaderView>
#include <QListWidget>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTableWidget>

#include "platform/qt/ShownText.h"

namespace qfr {

namespace {

constexpr int kRowsMeasured = 50;  // for the widths of the columns
constexpr int kLettersOfLong = 9;  // that one of long texts keeps
constexpr int kUsualShare = 100;   // of a column in the room, where texts are elided
constexpr int kShareOfRest = 210;  // of the one that has the rest
constexpr int kRowPadding = 6;     // pixels

int Letters(const QTableView& table, int count) {
    return count * table.fontMetrics().averageCharWidth();
}

struct Width {
    int Wanted;
    int Filled;  // by its head and what it holds, or less
    int Least;
    int Share;  // beside the others'
};

int Sum(const std::vector<int>& widths) {
    return std::accumulate(widths.begin(), widths.end(), 0);
}

// Slack is given up first, then the widest give way.
std::vector<int> Fitted(const std::vector<Width>& widths, int room) {
    std::vector<int> fitted(widths.size());
    const auto fits = [&](const auto& shrunk) {
        std::ranges::transform(widths, fitted.begin(), shrunk);
        return Sum(fitted) <= room;
    };
    const int most = std::ranges::max(widths, {}, &Width::Wanted).Wanted;
    bool enough = false;
    for (int slack = 0; !enough && slack <= most; ++slack) {
        enough =
            fits([&](const Width& each) { return std::max(each.Wanted - slack, each.Filled); });
    }
    for (int cap = most; !enough && cap >= 0; --cap) {
        enough = fits([&](const Width& each) {
            return std::min(each.Filled, std::max(cap * each.Share / kUsualShare, each.Least));
        });
    }
    return fitted;
}

class ColumnKeeper : public QObject {
  public:
    ColumnKeeper(QTableView& table, ColumnsInSight columns)
        : QObject(&table),
          table_(table),
          heads_(*table.horizontalHeader()),
          columns_(std::move(columns)) {
        for (int column = 0; column < heads_.count(); ++column) {
            wanted_.push_back(heads_.sectionSize(column));
        }
        if (columns_.Rest < 0) {
            columns_.Rest = Last();
        }
        connect(&heads_, &QHeaderView::sectionResized, this, [this](int column, int, int width) {
            if (!keeping_) {
                wanted_.at(static_cast<std::size_t>(column)) = width;
            }
        });
        table.viewport()->installEventFilter(this);
        connect(&heads_, &QHeaderView::sortIndicatorChanged, this, &ColumnKeeper::Keep);
        const QAbstractItemModel* const model = table.model();
        connect(model, &QAbstractItemModel::modelReset, this, &ColumnKeeper::Keep);
        connect(model, &QAbstractItemModel::dataChanged, this, &ColumnKeeper::Keep);
    }

    void Keep() {
        const QScopedValueRollback keeping(keeping_, true);
        const int room = table_.viewport()->width();
        std::vector<int> widths = Fitted(Widths(room), room);
        widths[static_cast<std::size_t>(columns_.Rest)] += std::max(room - Sum(widths), 0);
        for (int column = 0; const int width : widths) {
            table_.setColumnWidth(column++, width);
        }
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Resize || event->type() == QEvent::Show) {
            Keep();
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    int Last() const { return static_cast<int>(wanted_.size()) - 1; }

    // What they hold is measured only where they have to give way.
    std::vector<Width> Widths(int room) const {
        std::vector<int> wanted;
        for (int column = 0; column <= Last(); ++column) {
            wanted.push_back(Wanted(column));
        }
        const bool narrow = Sum(wanted) > room;
        std::vector<Width> widths;
        for (int column = 0; const int width : wanted) {
            const bool isLong =
                std::ranges::find(columns_.LongTexts, column) != columns_.LongTexts.end();
            const int filled = narrow ? std::min(width, Filled(column)) : width;
            const int least = std::min(Head(column), Letters(table_, kLettersOfLong));
            widths.push_back({width, filled, isLong ? least : filled,
                              column == columns_.Rest ? kShareOfRest : kUsualShare});
            ++column;
        }
        return widths;
    }

    // These two are as wide as the others let them be, so they have no widths of their own.
    int Wanted(int column) const {
        if (column != Last() && column != columns_.Rest) {
            return wanted_.at(static_cast<std::size_t>(column));
        }
        const int letters = column == columns_.Rest ? columns_.LettersOfRest : kLettersOfLast;
        return std::max(Head(column), std::min(Filled(column), Letters(table_, letters)));
    }

    int Filled(int column) const {
        const int content =
            static_cast<const QAbstractItemView&>(table_).sizeHintForColumn(column) + 1;
        return std::max(Head(column), content);
    }

    // Only the head by which rows are sorted needs the mark of that; the toolkit reckons with one
    // in each.
    int Head(int column) const {
        const int whole = heads_.sectionSizeHint(column);
        if (!heads_.isSortIndicatorShown() || heads_.sortIndicatorSection() == column) {
            return whole;
        }
        const QString text = table_.model()->headerData(column, Qt::Horizontal).toString();
        const int margin = heads_.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &heads_);
        return std::min(whole, heads_.fontMetrics().horizontalAdvance(text) + 2 * margin);
    }

    QTableView& table_;
    const QHeaderView& heads_;
    ColumnsInSight columns_;
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

void KeepColumnsInSight(QTableView& table, ColumnsInSight columns) {
    new ColumnKeeper(table, std::move(columns));
}

void FitColumns(QTableView& table) {
    for (int column = 0; column + 1 < table.model()->columnCount(); ++column) {
        table.resizeColumnToContents(column);
        table.setColumnWidth(column, table.columnWidth(column) + Letters(table, 1));
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
