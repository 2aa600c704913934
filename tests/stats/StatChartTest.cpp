#include <gtest/gtest.h>

#include <QAction>
#include <QPainter>
#include <QTest>

#include "stats/ChartPainter.h"
#include "tests/stats/StatFixture.h"

namespace quorvin {
namespace {

namespace fs = std::filesystem;
using test::bytesOf;
using test::text;

using StatChartTest = test::StatTest;

TEST_F(StatChartTest, TheChartOfEachTable)
{
    choose("freq");
    choose("GrafImpost");
    dialogs_.typed = text("Famiglie ");
    search({{2, " "}});
    EXPECT_EQ(dialogs_.messages, QStringList(text("Titolo del Grafico:")));
    EXPECT_EQ(chart().chart().title, "Famiglie FIGLI");
    ASSERT_EQ(chart().chart().series.size(), 1U);
    EXPECT_FALSE(chart().chart().HasChartSpaceLegend);
    const ChartLayout& layout = chart().chartLayout();
    const ChartRect highest = layout.column({0, 1}, 3);
    const double middle = highest.x + highest.width / 2;
    EXPECT_NEAR(highest.height, 3 * layout.column({0, 2}, 1).height, 0.01);
    EXPECT_EQ(pixel(middle, highest.y + 3), seriesColour(0).rgb());
    EXPECT_EQ(pixel(middle, highest.bottom() - 3), seriesColour(0).rgb());
    EXPECT_EQ(pixel(highest.right() + 3, highest.bottom() - 3), QColor(Qt::white).rgb());

    choose("tabella");
    dialogs_.typed.clear();
    dialogs_.whileAsking = [this] { openFile(file()); };
    search({{2, " "}, {1, "a"}});
    dialogs_.whileAsking = [] {};
    EXPECT_TRUE(isShown()) << "no other file comes in between";
    EXPECT_EQ(chart().chart().title, " CITTA/FIGLI");
    ASSERT_EQ(chart().chart().series.size(), 3U);
    EXPECT_EQ(chart().chart().series[1].caption, "10");
    const ChartRect ten = chart().chartLayout().column({1, 2}, 1);
    EXPECT_EQ(pixel(ten.x + ten.width / 2, ten.y + 3), seriesColour(1).rgb());
    const ChartRect entry = chart().chartLayout().legendEntry(1);
    EXPECT_EQ(pixel(entry.x + entry.height / 2 - chart().chartLayout().plot().x, entry.y + entry.height / 2),
              seriesColour(1).rgb());
    const ChartRect title = chart().chartLayout().title();
    const QImage band = chart().viewport()->grab(QRect(0, 0, 200, int(title.bottom()))).toImage();
    QImage white = band;
    white.fill(Qt::white);
    EXPECT_NE(band, white) << "something is written there";
    choose("GrafImpost");
    search({{2, " "}, {1, "a"}});
    EXPECT_TRUE(isShown() && !chart().isVisible());
}

TEST_F(StatChartTest, ManyCategoriesScrollAndStretch)
{
    openRows(199);
    choose("freq");
    choose("GrafImpost");
    search({{1, "r"}});
    QScrollBar& bar = *chart().horizontalScrollBar();
    ASSERT_GT(bar.maximum(), 0);
    const int usual = bar.maximum();
    QTest::keyClick(&chart(), Qt::Key_Plus);
    EXPECT_GT(bar.maximum(), usual);
    for (int i = 0; i < 20; ++i)
        QTest::keyClick(&chart(), Qt::Key_Minus);
    EXPECT_EQ(bar.maximum(), 0) << "all in sight";
    QTest::keyClick(&chart(), Qt::Key_0);
    EXPECT_EQ(bar.maximum(), usual);
    QTest::keyClick(&chart(), Qt::Key_End);
    const ChartRect last = chart().chartLayout().column({0, 199}, 1);
    EXPECT_EQ(pixel(last.x + last.width / 2, last.bottom() - 3), seriesColour(0).rgb());
    bar.setValue(bar.value() / 2);
    const ChartRect middle = chart().chartLayout().column({0, 100}, 1);
    EXPECT_EQ(pixel(middle.x + middle.width / 2, middle.bottom() - 3), seriesColour(0).rgb());
    QTest::keyClick(&chart(), Qt::Key_Plus);
    enter("Text2(1)");
    EXPECT_EQ(bar.maximum(), usual) << "a new chart is as wide as usual";
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(StatChartTest, TheChartIsPrintedAndSaved)
{
    const fs::path picture = folder_.path() / "chart.jpg";
    choose("freq");
    search({{2, " "}});
    click("Command4");
    EXPECT_FALSE(fs::exists(picture)) << "a table without a chart";
    choose("GrafImpost");
    search({{2, " "}});
    folder_.write("chart.jpg", "mine");
    dialogs_.messages.clear();
    EXPECT_TRUE(printTo("out.pdf"));
    EXPECT_TRUE(dialogs_.messages.value(0).contains(text("chart.jpg")));
    EXPECT_EQ(bytesOf(picture), "mine");
    dialogs_.yesAnswers = 3;
    click("Command4");
    EXPECT_GT(QImage(QString::fromStdString(picture.string())).width(), 500);
    dialogs_.messages.clear();
    fs::remove(folder_.path() / "out.pdf");
    click("Command4");
    EXPECT_TRUE(dialogs_.messages.isEmpty()) << "its own picture is replaced";
    fs::remove(picture);
#ifndef _WIN32
    fs::create_symlink(file(), picture);
    const std::string data = bytesOf(file());
    click("Command4");
    EXPECT_EQ(bytesOf(file()), data);
    EXPECT_TRUE(dialogs_.messages.value(0).startsWith(text("!Errore file !! ")));
    dialogs_.messages.clear();
    fs::remove(picture);
#endif
    fs::create_directory(picture);
    fs::remove(folder_.path() / "out.pdf");
    click("Command4");
    EXPECT_TRUE(dialogs_.messages.value(0).startsWith(text("!Errore file !! ")));
    EXPECT_TRUE(fs::exists(folder_.path() / "out.pdf")) << "printing does not depend on it";
}

TEST_F(StatChartTest, APageHasTheWholeChart)
{
    choose("tabella");
    choose("GrafImpost");
    search({{2, " "}, {1, "o"}});
    QImage page(600, 900, QImage::Format_RGB32);
    page.fill(Qt::gray);
    QPainter painter(&page);
    paintWholeChart(painter, chart().chart(), page.rect());
    int pixels[2] = {};
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            for (const int s : {0, 1})
                pixels[s] += page.pixel(x, y) == seriesColour(s).rgb() ? 1 : 0;
        }
    }
    EXPECT_GT(pixels[0], 2000);
    EXPECT_NEAR(pixels[0], 2 * pixels[1], 0.1 * pixels[1]) << "columns of 2 and 1, and entries of the legend";
    EXPECT_EQ(page.pixel(300, 890), QColor(Qt::gray).rgb()) << "the lower part stays free";
}

}  // namespace
}  // namespace quorvin
