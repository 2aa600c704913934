/// MSFlexGrid1: the statistics grid on the form.
#pragma once

#include <QTableView>

#include "stats/StatGridModel.h"

class QHeaderView;

namespace quorvin {

/// The grid's first row and column stand still as the headers. A click on a column's head, or on the corner,
/// orders the rows by it: counts from the greatest down, values upwards; a second click the other way round,
/// a third as they appeared first. Ctrl+Enter does so by the current cell's column, Ctrl+Shift+Enter by the
/// values. The grand total is the current cell at first. Ctrl+C copies the selected cells, separated by tabs,
/// whole rows with their captions, or the whole grid when none are.
class StatGridView : public QTableView {
    Q_OBJECT

public:
    explicit StatGridView(QWidget* parent);

    void setGrid(StatGrid grid);
    /// The font of cells and captions; columns keep their widths in characters.
    void setGridFont(const QFont& font);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void updateGeometries() override;

private:
    void sortBy(int column);
    void showOrder();
    void fitColumns();
    int captionWidth() const;
    QString selectedText() const;

    StatGridModel* model_;
    QHeaderView* corner_;  ///< head of the column of values, which stands still between the other heads
    int sorted_ = -1;      ///< column that the rows are ordered by, -1 for none
    Qt::SortOrder order_ = Qt::AscendingOrder;
};

}  // namespace quorvin
