// The samples of the batch as the rows of a table, in their order.
#pragma once

#include <array>
#include <string>
#include <vector>

#include <QAbstractTableModel>
#include <QString>

#include "app/BatchStates.h"
#include "data/Batch.h"

namespace qfr {

class SampleTable : public QAbstractTableModel {
  public:
    enum Column {
        kNumber,
        kSampleNo,
        kLabSampleId,
        kReport,
        kDateAnalyzed,
        kHeader,
        kTics,
        kFindings,
        kColumns
    };
    // By which rows are sorted: a number or a text.
    static constexpr int kSortRole = Qt::UserRole;

    using QAbstractTableModel::QAbstractTableModel;

    // Takes the samples as they are now. True: they are others than before, of which no findings
    // are known.
    bool Show(const Batch& batch);
    // Of the samples that show; none: they are not known yet.
    void ShowFindings(std::vector<FindingCount> findings);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    struct Line {
        std::array<QString, kFindings> Cells;
        QString Path;  // of the report
        qlonglong Analyzed = 0;
        int Filled = 0;  // of the header
        int Tics = 0;    // -1: none were entered
        bool operator==(const Line&) const = default;
    };
    static Line LineOf(const SampleRecord& sample, int number);
    QString Text(int row, int column) const;
    QVariant SortKey(int row, int column) const;

    std::vector<Line> lines_;
    std::vector<FindingCount> findings_;
};

}  // namespace qfr
