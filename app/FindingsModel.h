// The findings of a review as the rows of a table.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <QAbstractTableModel>

#include "data/Batch.h"
#include "review/Review.h"

namespace qfr {

// What is to show; what is absent is no matter.
struct FindingsFilter {
    std::vector<Severity> Severities;
    std::optional<std::string_view> Form;  // a name of kForms
    std::optional<std::size_t> Record;     // of SampleList
};

class FindingsModel : public QAbstractTableModel {
  public:
    using QAbstractTableModel::QAbstractTableModel;

    // Takes the findings of the batch as it is now; nothing shows until Show.
    void Take(std::vector<Finding> findings, const Batch& batch);
    void Show(const FindingsFilter& filter);

    const std::vector<Finding>& All() const { return findings_; }
    // Of a row that shows.
    const Finding& At(int row) const { return findings_[shown_[static_cast<std::size_t>(row)]]; }
    // As the companion command writes it.
    const std::string& LineAt(int row) const {
        return lines_[shown_[static_cast<std::size_t>(row)]];
    }
    // What the row shows, with a tab between the cells.
    std::string CellsAt(int row) const;
    static std::string Heads();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    static constexpr std::size_t kColumns = 5;
    static const std::array<const char*, kColumns> kHeads;

    std::vector<Finding> findings_;
    std::vector<std::array<std::string, kColumns>> cells_;  // of each finding
    std::vector<std::string> lines_;                        // of each finding
    std::vector<std::size_t> shown_;                        // indices of findings
};

}  // namespace qfr
