#include "stats/StatGridView.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>
#include <algorithm>
#include <utility>

namespace quorvin {

namespace {

/// The captions' column takes at most this share of the grid; what is cut off shows in a tip.
constexpr double kMostCaption = 0.5;
/// Pixels around a cell's text.
constexpr int kPadding = 12;

/// First click on a column's head: the values upwards, the greatest count first.
Qt::SortOrder firstOrder(int column)
{
    return column == 0 ? Qt::AscendingOrder : Qt::DescendingOrder;
}

}  // namespace

StatGridView::StatGridView(QWidget* parent) :
    QTableView(parent),
    model_(new StatGridModel(this)),
    corner_(new QPushButton(this))
{
    setObjectName(QStringLiteral("MSFlexGrid1"));
    setAccessibleName(QStringLiteral("tabella dei conteggi"));
    setModel(model_);
    // What is copied is one rectangle of cells.
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setHighlightSections(false);
    horizontalHeader()->setSortIndicatorShown(true);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    corner_->setObjectName(QStringLiteral("corner"));
    corner_->setFlat(true);
    corner_->setAutoFillBackground(true);
    corner_->setStyleSheet(QStringLiteral("border: none; padding-left: 4px; text-align: left"));
    corner_->setFocusPolicy(Qt::NoFocus);
    connect(corner_, &QPushButton::clicked, this, [this] { sortBy(0); });
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &StatGridView::sortBy);
}

void StatGridView::setGrid(StatGrid grid)
{
    model_->setGrid(std::move(grid));
    sorted_ = -1;
    showOrder();
    if (model_->rowCount() == 0) return;
    setRowHidden(0, true);
    setColumnHidden(0, true);
    fitColumns();
    setCurrentIndex(model_->index(model_->grid().totalsRow(), model_->grid().totalsColumn()));
    clearSelection();
    scrollToTop();
    horizontalScrollBar()->setValue(0);
}

void StatGridView::setGridFont(const QFont& font)
{
    setFont(font);
    horizontalHeader()->setFont(font);
    verticalHeader()->setFont(font);
    corner_->setFont(font);
    verticalHeader()->setDefaultSectionSize(QFontMetrics(font).height() + kPadding / 2);
    fitColumns();
}

void StatGridView::fitColumns()
{
    const int character = QFontMetrics(font()).horizontalAdvance(QLatin1Char('0'));
    for (int j = 1; j < model_->columnCount(); ++j)
        setColumnWidth(j, model_->grid().width(j) * character + kPadding);
    verticalHeader()->setFixedWidth(captionWidth());
    updateGeometries();
}

/// The first column's own width, or what the captions in it take.
int StatGridView::captionWidth() const
{
    const QFontMetrics metrics(font());
    int width = metrics.horizontalAdvance(QLatin1Char('0')) * model_->grid().width(0);
    const int most = std::max(width, static_cast<int>(kMostCaption * this->width()));
    const int last = model_->rowCount() - 1;
    for (const int row : {0, last - 1, last}) {
        const QString caption = model_->headerData(row, Qt::Vertical).toString();
        width = std::max(width, metrics.horizontalAdvance(caption));
    }
    return std::min(width, most) + 2 * kPadding;
}

void StatGridView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    verticalHeader()->setFixedWidth(captionWidth());
    updateGeometries();
}

/// The corner is the head of the values' column.
void StatGridView::updateGeometries()
{
    QTableView::updateGeometries();
    const QHeaderView* across = horizontalHeader();
    corner_->setGeometry(verticalHeader()->x(), across->y(), verticalHeader()->width(), across->height());
    corner_->raise();
}

void StatGridView::sortBy(int column)
{
    const Qt::SortOrder first = firstOrder(column);
    if (sorted_ != column) {
        sorted_ = column;
        order_ = first;
    } else if (order_ == first) {
        order_ = first == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    } else {
        sorted_ = -1;
    }
    model_->sort(sorted_, order_);
    // The press has selected the column.
    clearSelection();
    showOrder();
}

void StatGridView::showOrder()
{
    horizontalHeader()->setSortIndicator(sorted_ > 0 ? sorted_ : -1, order_);
    QString caption = model_->headerData(0, Qt::Vertical).toString();
    corner_->setToolTip(caption);
    if (sorted_ == 0) caption += order_ == Qt::AscendingOrder ? QStringLiteral(" ▲") : QStringLiteral(" ▼");
    corner_->setText(caption.replace(QLatin1Char('&'), QStringLiteral("&&")));
}

void StatGridView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        QApplication::clipboard()->setText(selectedText());
        return;
    }
    QTableView::keyPressEvent(event);
}

QString StatGridView::selectedText() const
{
    const QItemSelection selection = selectionModel()->selection();
    QRect cells(0, 0, model_->columnCount(), model_->rowCount());
    if (!selection.isEmpty()) {
        const QItemSelectionRange& range = selection.constFirst();
        cells = {range.left(), range.top(), range.width(), range.height()};
    }
    QString text;
    for (int i = cells.top(); i <= cells.bottom(); ++i) {
        QStringList row;
        for (int j = cells.left(); j <= cells.right(); ++j)
            row.append(model_->index(i, j).data().toString());
        text += row.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return text;
}

}  // namespace quorvin
