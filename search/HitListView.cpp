#include "search/HitListView.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <iterator>
#include <new>
#include <string>
#include <utility>

#include "search/HitList.h"
#include "view/AnsiText.h"

namespace quorvin {

HitListView::HitListView(const HitList& hits, const QString& name, const QString& purpose, QWidget* parent) :
    QListView(parent),
    hits_(hits)
{
    setObjectName(name);
    setAccessibleName(purpose);
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
    pressed_ = event->button() == Qt::LeftButton;
    QListView::mousePressEvent(event);
}

void HitListView::mouseReleaseEvent(QMouseEvent* event)
{
    QListView::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || !std::exchange(pressed_, false)) return;
    // Lines selected by drawing the pointer out of the list end with the current one.
    const QPoint place = event->position().toPoint();
    const QModelIndex line = viewport()->rect().contains(place) ? indexAt(place) : currentIndex();
    emit lineClicked(line.row());
}

void HitListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The second of two quick clicks, maybe on another line.
    mousePressEvent(event);
}

void HitListView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
        return;
    }
    // An Enter that is still held down belongs to the search that it has started.
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && event->isAutoRepeat()) return;
    constexpr int kMoves[] = {Qt::Key_Up,       Qt::Key_Down, Qt::Key_PageUp,
                              Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
    constexpr int kClicks[] = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space};
    const auto isOneOf = [event](const auto& keys) {
        return std::find(std::begin(keys), std::end(keys), event->key()) != std::end(keys);
    };
    const QModelIndex before = currentIndex();
    // A list that has just got the focus stands before its first line, not on it.
    const bool fresh = !selectionModel()->hasSelection();
    const bool click = isOneOf(kClicks) || (fresh && event->key() == Qt::Key_Down);
    if (!click) QListView::keyPressEvent(event);
    const bool arrived = click || (fresh && isOneOf(kMoves));
    if (arrived) setCurrentIndex(currentIndex());
    if (currentIndex().isValid() && (arrived || currentIndex() != before))
        emit lineClicked(currentIndex().row());
    // At the list's ends they must not move on through all records.
    if (isOneOf(kMoves) || isOneOf(kClicks)) event->accept();
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
        // All lines at once: asked for singly, millions of them take seconds.
        std::string lines;
        for (const QItemSelectionRange& range : ranges) {
            for (int row = range.top(); row <= range.bottom(); ++row)
                lines.append(hits_.line(static_cast<std::size_t>(row))).push_back('\n');
        }
        if (!lines.empty()) QApplication::clipboard()->setText(fromAnsi(lines));
    } catch (const std::bad_alloc&) {
        // More lines than memory holds twice; nothing is copied rather than a part.
    }
}

}  // namespace quorvin
