/// ChartSpace1: a column chart on the form.
#pragma once

#include <QAbstractScrollArea>

#include "stats/ChartData.h"
#include "stats/ChartLayout.h"
#include "stats/ChartPainter.h"

namespace quorvin {

/// Categories that do not fit scroll to the side, by the arrow keys too; a long legend scrolls up and down.
/// Ctrl and the wheel, or + and -, stretch the categories, 0 puts them back. A tip tells what stands under
/// the pointer.
class ChartView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit ChartView(QWidget* parent);

    /// Shows a chart from its beginning.
    void setChart(ChartData chart);
    void setTitle(const std::string& title);
    const ChartData& chart() const { return chart_; }
    /// Where its parts stand now.
    const ChartLayout& chartLayout() const { return layout_; }

    /// Stretch and shrink the categories by a step.
    void zoomIn();
    void zoomOut();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void layOut();
    void zoom(double factor);
    ChartArea area() const;
    ChartScroll scroll() const;
    QString tipAt(const QPoint& place) const;

    ChartData chart_;
    ChartLayout layout_;
    double zoom_ = 1;
};

}  // namespace quorvin
