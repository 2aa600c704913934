#include "view/FormScale.h"

#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>

namespace quorvin {

namespace {

constexpr int kSmallestColumn = 7;
constexpr int kSmallestLine = 14;
constexpr int kLowestLine = 12;

/// Lines more than this many times as high as a column is wide only pull the text apart, and so do columns
/// wider than this share of a line.
constexpr double kHighestLine = 2.2;
constexpr double kWidestColumn = 0.62;

/// Room for the border of a field box.
constexpr int kBorder = 1;

/// Widths of a font's characters in per cent of the usual ones.
constexpr int kNarrowest = 50;
constexpr double kUnstretched = 100;

int smallestLine(int mostFormHeight)
{
    return mostFormHeight > 0 ? kLowestLine : kSmallestLine;
}

QFont courier(int pixelSize)
{
    QFont font(QStringLiteral("courier"));
    // Screen fonts of that name may be bitmaps of a few sizes; an outline font of its kind scales.
    font.setFamilies(
        {QStringLiteral("Courier New"), QStringLiteral("Liberation Mono"), QStringLiteral("courier")});
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    font.setPixelSize(pixelSize);
    return font;
}

/// The largest font for a cell, its pitch stretched to the cell's width.
QFont cellFont(int columnWidth, int lineHeight)
{
    int pixelSize = lineHeight;
    double advance = 0;
    for (; pixelSize > 1; --pixelSize) {
        const QFontMetricsF metrics(courier(pixelSize));
        advance = metrics.horizontalAdvance(QLatin1Char('M'));
        if (advance <= columnWidth && metrics.height() <= lineHeight - kBorder) break;
    }
    QFont font = courier(pixelSize);
    font.setLetterSpacing(QFont::AbsoluteSpacing, columnWidth - advance);
    return font;
}

}  // namespace

FormScale::FormScale(int columnWidth, int lineHeight) :
    columnWidth_(columnWidth),
    lineHeight_(lineHeight),
    font_(cellFont(columnWidth, lineHeight))
{
}

FormScale FormScale::fitting(QSize available, int mostFormHeight)
{
    const int height = mostFormHeight > 0 ? std::min(available.height(), mostFormHeight) : available.height();
    const int widest = std::max(kSmallestColumn, available.width() / kFormColumns);
    const int line =
        std::max(smallestLine(mostFormHeight), std::min(height / kFormLines, qRound(widest * kHighestLine)));
    const int column = std::clamp(qRound(line * kWidestColumn), kSmallestColumn, widest);
    return FormScale(column, line);
}

QFont FormScale::squeezedFont(double share) const
{
    QFont font = font_;
    const double pitch = columnWidth_ * share;
    font.setStretch(std::max(kNarrowest, qRound(kUnstretched * share)));
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0);
    const double advance = QFontMetricsF(font).horizontalAdvance(QLatin1Char('M'));
    font.setLetterSpacing(QFont::AbsoluteSpacing, pitch - advance);
    return font;
}

QSize FormScale::smallestForm(int mostFormHeight)
{
    return QSize(kSmallestColumn * kFormColumns, smallestLine(mostFormHeight) * kFormLines);
}

QRect FormScale::rect(const QRectF& units) const
{
    return QRect(QPoint(x(units.left()), y(units.top())),
                 QPoint(x(units.right()) - 1, y(units.bottom()) - 1));
}

}  // namespace quorvin
