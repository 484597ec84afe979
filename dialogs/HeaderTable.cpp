#include "dialogs/HeaderTable.h"

#include <algorithm>
#include <utility>

#include "data/HeaderFields.h"
#include "platform/Text.h"
#include "platform/qt/ShownText.h"

namespace qfr {

class HeaderTable::Step : public QUndoCommand {
  public:
    Step(HeaderTable& table, std::vector<HeaderChange> changes, const QString& what)
        : QUndoCommand(what), table_(table), changes_(std::move(changes)) {}

    void redo() override {
        table_.sheet_->Redo(changes_);
        table_.Tell(changes_, std::exchange(taken_, true));
    }
    void undo() override {
        table_.sheet_->Undo(changes_);
        table_.Tell(changes_, true);
    }

  private:
    HeaderTable& table_;
    std::vector<HeaderChange> changes_;
    bool taken_ = false;
};

void HeaderTable::Open(Batch& batch) {
    beginResetModel();
    batch_ = &batch;
    sheet_.emplace(batch);
    steps_.clear();
    endResetModel();
}

void HeaderTable::Close() {
    beginResetModel();
    sheet_.reset();
    steps_.clear();
    endResetModel();
}

void HeaderTable::Enter(std::vector<EnteredCell> entered, const QString& what) {
    if (auto changes = sheet_->ChangesBy(std::move(entered)); !changes.empty()) {
        steps_.push(new Step(*this, std::move(changes), what));
    }
}

void HeaderTable::Tell(const std::vector<HeaderChange>& changes, bool again) {
    const auto records = std::ranges::minmax(
        changes, {}, [](const HeaderChange& change) { return change.Cell.Record; });
    // A sample number may now be that of another sample, or no longer.
    emit dataChanged(index(static_cast<int>(records.min.Cell.Record), 0),
                     index(static_cast<int>(records.max.Cell.Record), columnCount() - 1));
    emit Changed(changes, again);
}

HeaderCell HeaderTable::CellAt(const QModelIndex& index) {
    return {static_cast<std::size_t>(index.row()), HeaderFieldAt(index.column() + 1)};
}

QModelIndex HeaderTable::IndexOf(const HeaderCell& cell) const {
    return index(static_cast<int>(cell.Record), static_cast<int>(cell.Field) - 1);
}

int HeaderTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !sheet_ ? 0 : static_cast<int>(sheet_->Rows());
}

int HeaderTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : SampleHeader::kCount;
}

QVariant HeaderTable::data(const QModelIndex& index, int role) const {
    const HeaderCell cell = CellAt(index);
    switch (role) {
        case Qt::DisplayRole:
            return Shown(sheet_->Shown(cell));
        case Qt::EditRole:
            return QString::fromStdString(sheet_->Text(cell));
        case Qt::ToolTipRole:
        case Qt::AccessibleDescriptionRole:
            return QString::fromStdString(sheet_->NoteOf(cell).Text);
        case kMarkRole:
            return static_cast<int>(sheet_->NoteOf(cell).Mark);
        default:
            return {};
    }
}

QString HeaderTable::RowHead(int row) const {
    const auto record = static_cast<std::size_t>(row);
    const std::string report = FileNameOnly(SamplesOf(*batch_)[record].FileName);
    return QString::fromStdString(Visible(report) +
                                  (record < LabBlankRecords(*batch_) ? " (blank)" : ""));
}

QVariant HeaderTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) {
        return {};
    }
    return orientation == Qt::Vertical
               ? RowHead(section)
               : QString::fromStdString(HeaderHeading(HeaderFieldAt(section + 1)));
}

Qt::ItemFlags HeaderTable::flags(const QModelIndex& index) const {
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

bool HeaderTable::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole) {
        return false;
    }
    Enter({{CellAt(index), value.toString().toStdString()}}, "Typing");
    return true;
}

}  // namespace qfr
