/// The statistics table on the form: grid and chart side by side, with what belongs to them in a line above.
#pragma once

#include <QFrame>

#include "stats/StatGrid.h"

class QHBoxLayout;
class QLabel;
class QToolButton;

namespace quorvin {

class ChartView;
class StatGridView;

/// Owns MSFlexGrid1 and ChartSpace1.
class StatFrame : public QFrame {
    Q_OBJECT

public:
    explicit StatFrame(QWidget* parent);

    /// Shows a table without a chart. `title`: what it is.
    void showGrid(StatGrid grid, const QString& title);
    /// Takes table and chart away and leaves the frame.
    void blank();
    void showChart(bool shown);

    StatGridView& grid() { return *grid_; }
    ChartView& chart() { return *chart_; }
    /// Whether the user wants it as large as the form has room.
    bool isEnlarged() const;
    /// The usual size again.
    void shrink();
    /// Stands the frame's controls behind this one for the Tab key.
    void setTabOrderAfter(QWidget* control);

signals:
    void closeRequested();
    /// It was enlarged, or made smaller again.
    void enlarged();

private:
    QToolButton* addButton(QHBoxLayout& row, const QString& caption, const QString& purpose);

    QLabel* title_;
    StatGridView* grid_;
    ChartView* chart_;
    QToolButton* zoomOut_ = nullptr;
    QToolButton* zoomIn_ = nullptr;
    QToolButton* enlarge_ = nullptr;
    QToolButton* close_ = nullptr;
};

}  // namespace quorvin
