/// The statistics grid for a table view.
#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "stats/RowOrder.h"
#include "stats/StatGrid.h"

namespace quorvin {

/// Rows and columns are those of the grid, captions too; the headers show them once more. The rows between
/// the captions and the totals stand in the order that was asked for last.
class StatGridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit StatGridModel(QObject* parent) : QAbstractTableModel(parent) {}

    void setGrid(StatGrid grid);
    const StatGrid& grid() const { return grid_; }

    /// Orders the values' rows by a column; by first appearance when it is -1.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    int gridRow(int row) const;
    QString text(int row, int column) const;

    StatGrid grid_;
    std::vector<int> order_;  ///< grid rows of the rows from 1 on; empty for their own order
};

}  // namespace quorvin
