// The tables and lists that windows show: how they look, and how they stay in sight.
#pragma once

#include <string>
#include <vector>

class QListWidget;
class QTableView;
class QTableWidget;

namespace qfr {

// A table to read and choose from: one row at a time is chosen, nothing is typed, Tab leaves it.
void SetUpRows(QTableView& table);

// From now on all columns are in sight: in a table that is too narrow, the widest of these give way
// and what they hold is elided. Where there is room again, a column is as wide as it was made. The
// last column has the rest. Comes after the model.
void KeepColumnsInSight(QTableView& table, std::vector<int> longTexts);

// Makes each column as wide as what it holds. For a table whose columns are kept in sight.
void FitColumns(QTableView& table);

// Puts the rows into the table; texts that are too long for their column wrap. The one column has
// what the others leave.
void FillWrapped(QTableWidget& table, const std::vector<std::vector<std::string>>& rows,
                 int longTexts);

// The list never scrolls sideways: long texts are elided.
void ElideItems(QListWidget& list);

}  // namespace qfr
