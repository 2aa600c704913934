#include "stats/StatGridModel.h"

#include <QColor>
#include <cstddef>
#include <utility>

#include "view/AnsiText.h"

namespace quorvin {

namespace {

QVariant colour(CellBackground background)
{
    switch (background) {
    case CellBackground::yellow:
        return QColor(255, 255, 0);
    case CellBackground::green:
        return QColor(0, 255, 0);
    case CellBackground::usual:
        break;
    }
    return {};
}

}  // namespace

void StatGridModel::setGrid(StatGrid grid)
{
    beginResetModel();
    grid_ = std::move(grid);
    order_.clear();
    endResetModel();
}

void StatGridModel::sort(int column, Qt::SortOrder order)
{
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    order_.clear();
    const Direction direction = order == Qt::AscendingOrder ? Direction::ascending : Direction::descending;
    if (column >= 0 && column < grid_.columns()) order_ = rowOrder(grid_, column, direction);
    emit layoutChanged({}, VerticalSortHint);
    if (rowCount() > 0) emit headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
}

int StatGridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : grid_.rows();
}

int StatGridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : grid_.columns();
}

int StatGridModel::gridRow(int row) const
{
    const bool ordered = row >= 1 && static_cast<std::size_t>(row) <= order_.size();
    return ordered ? order_[static_cast<std::size_t>(row) - 1] : row;
}

QString StatGridModel::text(int row, int column) const
{
    return fromAnsi(grid_.at(gridRow(row), column).text);
}

QVariant StatGridModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    QVariant background = colour(grid_.at(gridRow(index.row()), index.column()).background);
    switch (role) {
    case Qt::DisplayRole:
        return text(index.row(), index.column());
    case Qt::BackgroundRole:
        return background;
    case Qt::ForegroundRole:
        return background.isValid() ? QVariant(QColor(Qt::black)) : QVariant();
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    default:
        return {};
    }
}

QVariant StatGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool across = orientation == Qt::Horizontal;
    if (section < 0 || section >= (across ? columnCount() : rowCount())) return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return across ? text(0, section) : text(section, 0);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue((across && section > 0 ? Qt::AlignRight : Qt::AlignLeft) |
                                   Qt::AlignVCenter);
    default:
        return {};
    }
}

}  // namespace quorvin
