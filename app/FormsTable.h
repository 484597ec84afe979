// The forms of the batch as the rows of a table, in the order in which they print.
#pragma once

#include <array>
#include <span>
#include <vector>

#include <QAbstractTableModel>
#include <QString>

#include "app/BatchStates.h"
#include "data/Batch.h"
#include "platform/PrintLog.h"

namespace qfr {

class FormsTable : public QAbstractTableModel {
  public:
    enum Column { kForm, kState, kPrinted, kWhere, kColumns };

    using QAbstractTableModel::QAbstractTableModel;

    // `states`, of kForms: none while they are not known yet. `printed`: what was printed of this
    // batch.
    void Show(const Batch& batch, const std::vector<FormState>& states,
              std::span<const PrintedJobs> printed);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    struct Line {
        std::array<QString, kColumns> Cells;
        QString Place;  // of what was printed, in full
    };
    std::vector<Line> lines_;
};

}  // namespace qfr
