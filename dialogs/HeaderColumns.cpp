#include "dialogs/HeaderColumns.h"

#include <algorithm>

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QStyle>
#include <QTableView>

#include "data/HeaderFields.h"
#include "platform/qt/WindowPlaces.h"

namespace qfr {

namespace {

const char* const kChosen = "headers/columns";
constexpr int kRowsMeasured = 50;
constexpr int kLettersOfText = 12;
constexpr int kLettersOfDate = 23;
constexpr int kMostLetters = 36;
constexpr int kEditorPadding = 4;  // pixels

int LettersIn(HeaderField field) {
    return HeaderEntryOf(field).Kind == HeaderKind::kDate ? kLettersOfDate : kLettersOfText;
}

}  // namespace

HeaderColumns::HeaderColumns(QTableView& view, Remembered& memory)
    : QObject(&view), view_(view), memory_(memory) {
    const QVariantList chosen = memory_.Value(kChosen).toList();
    if (chosen.size() == std::ssize(chosen_)) {
        std::ranges::transform(chosen, chosen_.begin(),
                               [](const QVariant& width) { return width.toInt(); });
    }
    view.setProperty(kKeepsColumns, true);
    connect(view.horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int, int width) {
                if (!fitting_) {
                    Keep(column, width);
                }
            });
    connect(view.model(), &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last) {
                Widen(first.row(), last.row());
            });
    Fit();
}

void HeaderColumns::Fit() {
    const QScopedValueRollback fitting(fitting_, true);
    const int lastRow = view_.model()->rowCount() - 1;
    for (int column = 0; const int chosen : chosen_) {
        view_.setColumnWidth(column, chosen > 0 ? chosen : WidthFor(column, 0, lastRow));
        ++column;
    }
}

void HeaderColumns::Widen(int firstRow, int lastRow) {
    const QScopedValueRollback fitting(fitting_, true);
    for (int column = 0; const int chosen : chosen_) {
        if (const int width = WidthFor(column, firstRow, lastRow);
            chosen == 0 && width > view_.columnWidth(column)) {
            view_.setColumnWidth(column, width);
        }
        ++column;
    }
}

// Of many rows only some are measured, all over the batch.
int HeaderColumns::WidthFor(int column, int firstRow, int lastRow) const {
    const QFontMetrics metrics = view_.fontMetrics();
    const int letter = metrics.averageCharWidth();
    const int step = (lastRow - firstRow) / kRowsMeasured + 1;
    int text = 0;
    for (int row = firstRow; row <= lastRow; row += step) {
        const QModelIndex index = view_.model()->index(row, column);
        text = std::max(text, metrics.horizontalAdvance(index.data().toString()));
    }
    const int margin = view_.style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1;
    return std::max({LettersIn(HeaderFieldAt(column + 1)) * letter,
                     view_.horizontalHeader()->sectionSizeHint(column),
                     std::min(text + 2 * margin + kEditorPadding, kMostLetters * letter)});
}

void HeaderColumns::Keep(int column, int width) {
    chosen_.at(static_cast<std::size_t>(column)) = width;
    memory_.Keep(kChosen, QVariantList(chosen_.begin(), chosen_.end()));
}

}  // namespace qfr
