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

inline constexpr int kLettersOfLast = 28;  // that the last column asks for at most

struct ColumnsInSight {
    std::vector<int> LongTexts;
    // The column whose texts matter most, and what it asks for at most; -1: the last one.
    int Rest = -1;
    int LettersOfRest = kLettersOfLast;
};
// From now on all columns are in sight. In a table that is too narrow, they first lose what they
// have beside their heads and texts; then the widest of those with long texts give way, and what
// they hold is elided. Where there is room again, a column is as wide as it was made, and one has
// the rest. Comes after the model.
void KeepColumnsInSight(QTableView& table, ColumnsInSight columns);

// Makes each column a little wider than what it holds. For a table whose columns are kept in sight.
void FitColumns(QTableView& table);

// Puts the rows into the table; texts that are too long for their column wrap. The one column has
// what the others leave.
void FillWrapped(QTableWidget& table, const std::vector<std::vector<std::string>>& rows,
                 int longTexts);

// The list never scrolls sideways: long texts are elided.
void ElideItems(QListWidget& list);

}  // namespace qfr
