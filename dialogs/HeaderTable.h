// The sheet of all headers as the model of a table. Whatever changes it is one step that can be
// undone.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QAbstractTableModel>
#include <QUndoStack>

#include "data/HeaderSheet.h"

namespace qfr {

class HeaderTable : public QAbstractTableModel {
    Q_OBJECT

  public:
    // Of a cell: its HeaderMark as a number.
    static constexpr int kMarkRole = Qt::UserRole;

    explicit HeaderTable(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

    // Begins with the batch as it is, with nothing to undo. Until Close nobody else changes its
    // headers or its samples.
    void Open(Batch& batch);
    void Close();
    bool IsOpen() const { return sheet_.has_value(); }

    const HeaderSheet& Sheet() const { return *sheet_; }
    QUndoStack& Steps() { return steps_; }
    // Enters these as one step; `what` is what the menu calls it.
    void Enter(std::vector<EnteredCell> entered, const QString& what);

    static HeaderCell CellAt(const QModelIndex& index);
    QModelIndex IndexOf(const HeaderCell& cell) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  signals:
    // A step was taken, or undone or done again.
    void Changed(const std::vector<HeaderChange>& changes, bool again);

  private:
    class Step;

    void Tell(const std::vector<HeaderChange>& changes, bool again);
    QString RowHead(int row) const;

    Batch* batch_ = nullptr;
    std::optional<HeaderSheet> sheet_;
    QUndoStack steps_;
};

}  // namespace qfr
