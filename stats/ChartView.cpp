#include "stats/ChartView.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionFocusRect>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "view/AnsiText.h"

namespace quorvin {

namespace {

/// Greatest stretch of the categories, and steps of stretching.
constexpr double kMostZoom = 16;
constexpr double kZoomStep = 1.5;

}  // namespace

ChartView::ChartView(QWidget* parent) : QAbstractScrollArea(parent)
{
    setObjectName(QStringLiteral("ChartSpace1"));
    setAccessibleName(QStringLiteral("grafico"));
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(160, 120);
    viewport()->setBackgroundRole(QPalette::NoRole);
}

void ChartView::setChart(ChartData chart)
{
    chart_ = std::move(chart);
    zoom_ = 1;
    horizontalScrollBar()->setValue(0);
    verticalScrollBar()->setValue(0);
    setTitle({});
}

void ChartView::setTitle(const std::string& title)
{
    chart_.title = title;
    setAccessibleDescription(fromAnsi(title));
    layOut();
}

void ChartView::zoomIn()
{
    zoom(kZoomStep);
}

void ChartView::zoomOut()
{
    zoom(1 / kZoomStep);
}

void ChartView::zoom(double factor)
{
    QScrollBar& bar = *horizontalScrollBar();
    const double middle = (bar.value() + layout_.plot().width / 2) / std::max(layout_.contentWidth(), 1.0);
    // Below the stretch at which all of them are in sight nothing changes any more.
    const double least = std::min(zoom_ * layout_.plot().width / std::max(layout_.contentWidth(), 1.0), 1.0);
    zoom_ = std::clamp(zoom_ * factor, least, kMostZoom);
    layOut();
    bar.setValue(static_cast<int>(middle * layout_.contentWidth() - layout_.plot().width / 2));
}

ChartArea ChartView::area() const
{
    return {static_cast<double>(viewport()->width()), static_cast<double>(viewport()->height()), zoom_};
}

ChartScroll ChartView::scroll() const
{
    return {static_cast<double>(horizontalScrollBar()->value()),
            static_cast<double>(verticalScrollBar()->value())};
}

void ChartView::layOut()
{
    layout_ = ChartLayout(chart_, area(), chartFont(font()));
    const auto setRange = [](QScrollBar& bar, double content, double shown) {
        bar.setRange(0, std::max(static_cast<int>(content - shown), 0));
        bar.setPageStep(static_cast<int>(shown));
        bar.setSingleStep(std::max(static_cast<int>(shown / 10), 1));
    };
    setRange(*horizontalScrollBar(), layout_.contentWidth(), layout_.plot().width);
    setRange(*verticalScrollBar(), layout_.legendHeight(), layout_.legend().height);
    viewport()->update();
}

void ChartView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(viewport());
    paintChart(painter, chart_, layout_, area(), font(), scroll());
    if (!hasFocus()) return;
    QStyleOptionFocusRect mark;
    mark.initFrom(viewport());
    mark.backgroundColor = Qt::white;
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &mark, &painter, viewport());
}

void ChartView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    layOut();
}

void ChartView::wheelEvent(QWheelEvent* event)
{
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        event->angleDelta().y() > 0 ? zoomIn() : zoomOut();
        event->accept();
        return;
    }
    // Over the categories it moves them; over the legend, the legend.
    const bool overLegend = layout_.legend().width > 0 && event->position().x() >= layout_.legend().x;
    QScrollBar& bar = overLegend ? *verticalScrollBar() : *horizontalScrollBar();
    const QPoint delta = event->angleDelta();
    const int turned = delta.y() != 0 ? delta.y() : delta.x();
    bar.setValue(bar.value() - turned * bar.singleStep() / QWheelEvent::DefaultDeltasPerStep);
    event->accept();
}

void ChartView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Plus:
        zoomIn();
        break;
    case Qt::Key_Minus:
        zoomOut();
        break;
    case Qt::Key_0:
        zoom(1 / zoom_);
        break;
    case Qt::Key_Home:
        horizontalScrollBar()->setValue(0);
        break;
    case Qt::Key_End:
        horizontalScrollBar()->setValue(horizontalScrollBar()->maximum());
        break;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

bool ChartView::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), tipAt(help->pos()), viewport());
    return true;
}

/// The title, or "series - category: value" of the column there.
QString ChartView::tipAt(const QPoint& place) const
{
    if (place.y() < layout_.title().bottom()) return fromAnsi(chart_.title);
    const ChartRect& plot = layout_.plot();
    if (place.x() < plot.x || place.x() > plot.right()) return {};
    const auto column = layout_.columnAt(place.x() - plot.x + scroll().categories, place.y());
    if (!column) return {};
    const ChartSeries& series = chart_.series[static_cast<std::size_t>(column->series)];
    return QStringLiteral("%1 - %2: %3")
        .arg(fromAnsi(series.caption), fromAnsi(chart_.categories[column->category]),
             fromAnsi(bareStr(series.values[column->category].value_or(0))));
}

}  // namespace quorvin
