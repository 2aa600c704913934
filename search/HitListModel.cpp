#include "search/HitListModel.h"

#include <algorithm>
#include <limits>

#include "search/HitList.h"
#include "view/AnsiText.h"

namespace quorvin {

namespace {

/// Blank columns beside the longest line.
constexpr int kMargin = 1;

}  // namespace

HitListModel::HitListModel(const HitList& hits, QObject* parent) : QAbstractListModel(parent), hits_(hits) {}

void HitListModel::update(bool all)
{
    constexpr std::size_t kMostRows = std::numeric_limits<int>::max();
    const int rows = static_cast<int>(std::min(hits_.rowCount(), kMostRows));
    // Every change makes the views lay all lines out anew: a search that finds millions grows in leaps.
    if (rows == rows_ || (!all && rows < rows_ + rows_ / 4)) return;
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
}

void HitListModel::empty()
{
    if (rows_ == 0) return;
    beginResetModel();
    rows_ = 0;
    endResetModel();
}

void HitListModel::setCharacterSize(QSize size)
{
    if (size == characterSize_) return;
    emit layoutAboutToBeChanged();
    characterSize_ = size;
    emit layoutChanged();
}

int HitListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows_;
}

QVariant HitListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rows_) return {};
    if (role == Qt::DisplayRole) return fromAnsi(hits_.line(static_cast<std::size_t>(index.row())));
    if (role == Qt::SizeHintRole) {
        const int columns = static_cast<int>(hits_.longestLine()) + kMargin;
        return QSize(columns * characterSize_.width(), characterSize_.height());
    }
    return {};
}

}  // namespace quorvin
