/// A small file and its statistics in the real window.
#pragma once

#include <QAbstractItemModel>
#include <QImage>
#include <QScrollBar>
#include <QTableView>

#include "stats/ChartView.h"
#include "tests/output/OutputFixture.h"

namespace quorvin::test {

/// Town (10 characters) and number of children (2), hits listed.
class StatTest : public PrintingTest {
protected:
    StatTest()
    {
        open(rec({{.length = 10, .name = "CITTA"}, {.length = 2, .fieldY = 2, .name = "FIGLI"}})
                 .record({"Roma", "2"})
                 .record({"Bari", "10"})
                 .record({"Roma", "2"})
                 .record({"Roma", "x"})
                 .record({"Como", ""})
                 .record({"", "2"}));
        choose("elencorekord");
    }

    QAbstractItemModel& grid() { return *control<QTableView>("MSFlexGrid1").model(); }
    /// All cells as they stand, rows separated by "|", cells by ",".
    std::string cells()
    {
        QStringList rows;
        for (int i = 0; i < grid().rowCount(); ++i) {
            QStringList row;
            for (int j = 0; j < grid().columnCount(); ++j)
                row.append(grid().index(i, j).data().toString());
            rows.append(row.join(text(",")));
        }
        return rows.join(text("|")).toStdString();
    }
    bool isShown() { return control("MSFlexGrid1").isVisible(); }
    ChartView& chart() { return control<ChartView>("ChartSpace1"); }
    /// Colour of the picture, in places of the layout's content.
    QRgb pixel(double x, double y)
    {
        const QImage picture = chart().viewport()->grab().toImage();
        const double left = chart().chartLayout().plot().x - chart().horizontalScrollBar()->value();
        return picture.pixel(QPointF(left + x, y).toPoint());
    }
    void openRows(int rows)
    {
        open(rec({{.length = 6, .name = "NOME"}}).records(rows));
        choose("elencorekord");
    }
};

}  // namespace quorvin::test
