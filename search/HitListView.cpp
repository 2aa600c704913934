#include "search/HitListView.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <new>

namespace quorvin {

HitListView::HitListView(const QString& name, QWidget* parent) : QListView(parent)
{
    setObjectName(name);
    setAccessibleName(QStringLiteral("rekord trovati"));
    // With millions of lines none of them can be asked for its size.
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTextElideMode(Qt::ElideNone);
    setDragEnabled(false);
}

void HitListView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton) {
        emit rightPressed(selectionModel()->hasSelection() ? currentIndex().row() : -1);
        return;
    }
    QListView::mousePressEvent(event);
}

void HitListView::mouseReleaseEvent(QMouseEvent* event)
{
    QListView::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton) emit lineClicked(indexAt(event->position().toPoint()).row());
}

void HitListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The second press of two quick clicks on different lines.
    QListView::mousePressEvent(event);
}

void HitListView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
        return;
    }
    const QModelIndex before = currentIndex();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // A list that has just got the focus stands before its first line, not on it.
    const bool first = event->key() == Qt::Key_Down && !selectionModel()->hasSelection();
    if (enter || first) {
        if (!before.isValid()) return;
        setCurrentIndex(before);
        emit lineClicked(before.row());
        return;
    }
    QListView::keyPressEvent(event);
    if (currentIndex() != before) emit lineClicked(currentIndex().row());
}

void HitListView::keyboardSearch(const QString& typed)
{
    constexpr int kMostRows = 100000;
    if (model()->rowCount() <= kMostRows) QListView::keyboardSearch(typed);
}

void HitListView::copySelection()
{
    QItemSelection ranges = selectionModel()->selection();
    std::sort(ranges.begin(), ranges.end(), [](const auto& a, const auto& b) { return a.top() < b.top(); });
    try {
        QString text;
        for (const QItemSelectionRange& range : ranges) {
            for (int row = range.top(); row <= range.bottom(); ++row)
                text += model()->index(row, 0).data().toString() + QLatin1Char('\n');
        }
        if (!text.isEmpty()) QApplication::clipboard()->setText(text);
    } catch (const std::bad_alloc&) {
        // More lines than memory holds twice; nothing is copied rather than a part.
    }
}

}  // namespace quorvin
