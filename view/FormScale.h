/// The form's scale: positions and sizes are counted in character columns and text lines.
#pragma once

#include <QFont>
#include <QRect>
#include <QRectF>
#include <QSize>

namespace quorvin {

/// Columns and lines that the whole form has.
inline constexpr int kFormColumns = 124;
inline constexpr int kFormLines = 42;

/// One cell of the form in device-independent pixels, and the fixed-pitch font whose characters stand exactly
/// on it.
class FormScale {
public:
    /// The largest cells with which the form fits into `available`, but never smaller than readable ones.
    /// `mostFormHeight`: pixels that the form's lines may take together, for which they may become as low as
    /// they can be read at all; 0 for no bound.
    static FormScale fitting(QSize available, int mostFormHeight = 0);

    int columnWidth() const { return columnWidth_; }
    int lineHeight() const { return lineHeight_; }
    const QFont& font() const { return font_; }

    /// The font with its pitch narrowed to `share` (above 0, at most 1) of a column.
    QFont squeezedFont(double share) const;

    int x(double columns) const { return qRound(columns * columnWidth_); }
    int y(double lines) const { return qRound(lines * lineHeight_); }
    QRect rect(const QRectF& units) const;

    /// Size of the whole form with the smallest cells.
    static QSize smallestForm(int mostFormHeight = 0);

private:
    FormScale(int columnWidth, int lineHeight);

    int columnWidth_;
    int lineHeight_;
    QFont font_;
};

}  // namespace quorvin
