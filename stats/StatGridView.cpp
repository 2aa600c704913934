#include "stats/StatGridView.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>
#include <iterator>
#include <utility>

namespace quorvin {

namespace {

/// The captions' column takes at most this share of the grid; what is cut off shows in a tip.
constexpr double kMostCaption = 0.5;
/// Pixels around a cell's text.
constexpr int kPadding = 12;

/// Pixels of so many characters in a font of fixed pitch, which need not be a whole number each.
int widthOf(const QFont& font, int characters)
{
    return QFontMetrics(font).horizontalAdvance(QString(characters, QLatin1Char('0')));
}

/// A cell's text without what would end the cell where it is pasted.
QString onOneLine(QString text)
{
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control) c = QLatin1Char(' ');
    }
    return text;
}

/// First click on a column's head: the values upwards, the greatest count first.
Qt::SortOrder firstOrder(int column)
{
    return column == 0 ? Qt::AscendingOrder : Qt::DescendingOrder;
}

}  // namespace

StatGridView::StatGridView(QWidget* parent) :
    QTableView(parent),
    model_(new StatGridModel(this)),
    corner_(new QHeaderView(Qt::Horizontal, this))
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
    corner_->setModel(model_);
    corner_->setSectionsClickable(true);
    corner_->setSectionResizeMode(QHeaderView::Fixed);
    corner_->setHighlightSections(false);
    corner_->setSortIndicatorShown(true);
    corner_->setFocusPolicy(Qt::NoFocus);
    for (QHeaderView* head : {corner_, horizontalHeader()}) {
        connect(head, &QHeaderView::sectionClicked, this, [this](int column) {
            sortBy(column);
            // The press has selected the column.
            clearSelection();
        });
    }
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
    // A view that is out of sight would go to its current cell when it is shown.
    setAutoScroll(false);
    setCurrentIndex(model_->index(model_->grid().totalsRow(), model_->grid().totalsColumn()));
    setAutoScroll(true);
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
    // A head has room for the mark of the order too.
    const int mark = style()->pixelMetric(QStyle::PM_HeaderMarkSize, nullptr, horizontalHeader());
    for (int j = 1; j < model_->columnCount(); ++j)
        setColumnWidth(j, widthOf(font(), model_->grid().width(j)) + mark + kPadding);
    verticalHeader()->setFixedWidth(captionWidth());
    updateGeometries();
}

/// The first column's own width, or what the captions in it take.
int StatGridView::captionWidth() const
{
    const QFontMetrics metrics(font());
    int width = widthOf(font(), model_->grid().width(0));
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
    if (corner_->count() > 0) corner_->resizeSection(0, corner_->width());
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
    showOrder();
}

void StatGridView::showOrder()
{
    for (QHeaderView* head : {horizontalHeader(), corner_})
        head->setSortIndicator((sorted_ == 0) == (head == corner_) ? sorted_ : -1, order_);
}

void StatGridView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        if (model_->rowCount() > 0) QApplication::clipboard()->setText(selectedText());
        return;
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        // Enter alone may still be held down from the search that it has started.
        const bool sorts = event->modifiers().testFlag(Qt::ControlModifier) && currentIndex().isValid();
        const bool byValues = event->modifiers().testFlag(Qt::ShiftModifier);
        if (sorts) sortBy(byValues ? 0 : currentIndex().column());
        return;
    }
    QTableView::keyPressEvent(event);
    // At the grid's ends they must not move on through the records.
    constexpr int kMoves[] = {Qt::Key_Up,       Qt::Key_Down, Qt::Key_PageUp,
                              Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
    if (std::find(std::begin(kMoves), std::end(kMoves), event->key()) != std::end(kMoves)) event->accept();
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
            row.append(onOneLine(model_->index(i, j).data().toString()));
        text += row.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return text;
}

}  // namespace quorvin
