/// Draws a chart.
#pragma once

#include <QFont>
#include <QRectF>

#include "stats/ChartLayout.h"

class QColor;
class QImage;
class QPainter;

namespace quorvin {

/// How far a chart is scrolled: its categories to the left, its legend up.
struct ChartScroll {
    double categories = 0;
    double legend = 0;
};

/// Colour of a series' columns; neighbours differ clearly.
QColor seriesColour(int series);

/// How large texts in this font are, for the layout.
ChartFont chartFont(const QFont& font);

/// Draws a chart on white, from the left upper corner of the area that it was laid out for, in the font that
/// it was laid out for.
void paintChart(QPainter& painter, const ChartData& chart, const ChartLayout& layout, const ChartArea& area,
                const QFont& font, const ChartScroll& scroll);

/// Draws the whole chart into a rectangle of a printer's page, or whatever is painted on.
void paintWholeChart(QPainter& painter, const ChartData& chart, const QRectF& place);

/// The whole chart as a picture, wide enough to tell its columns apart as long as a picture can be.
QImage chartPicture(const ChartData& chart);

}  // namespace quorvin
