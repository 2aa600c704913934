#include "stats/StatPanel.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QHeaderView>
#include <QTest>
#include <QToolButton>
#include <tuple>

#include "tests/stats/StatFixture.h"

namespace quorvin {
namespace {

namespace fs = std::filesystem;
using test::text;

using StatPanelTest = test::StatTest;

TEST_F(StatPanelTest, ModesPaintAndLeaveNothingBehind)
{
    const QColor usual = background("Text2(1)");
    for (const char* mode : {"freq", "tabella"}) {
        const char* other = mode == std::string("freq") ? "tabella" : "freq";
        control<QCheckBox>("Check3").setChecked(true);
        control<QCheckBox>("Check1").setChecked(true);
        search({{2, "2"}});
        choose(mode);
        EXPECT_TRUE(value(2).isEmpty() && caption("Label8").isEmpty());
        EXPECT_EQ(formColour(), QColor(128, 0, 128));
        EXPECT_EQ(background("Text2(1)"), usual) << "the file's colours give way";
        EXPECT_FALSE(control<QCheckBox>("Check3").isChecked());
        for (const char* name : {"accorpa", "SommaCampNum", "GrafImpost"})
            choose(name);
        // The other mode follows without leaving this one.
        choose(other);
        EXPECT_TRUE(item("accorpa").isChecked() && item("GrafImpost").isChecked());
        EXPECT_FALSE(item("SommaCampNum").isChecked() || item(mode).isChecked());
        choose(other);
        EXPECT_EQ(formColour(), QColor(0, 0, 128));
        EXPECT_NE(background("Text2(1)"), usual);
        control<QCheckBox>("Check1").setChecked(false);
    }
    item("MenExcel").setChecked(true);
    choose("freq");
    choose("GrafImpost");
    EXPECT_FALSE(item("MenExcel").isChecked());
}

TEST_F(StatPanelTest, BothTablesWithTheirSums)
{
    choose("freq");
    choose("SommaCampNum");
    search({{2, " "}});
    EXPECT_EQ(cells(), "FIGLI     /,,|2,3,3|10,1,1|X,1,1|ZX TOT.,5,5|ZZFIGLI      TUTTI ,,16");
    EXPECT_EQ(grid().index(5, 2).data(Qt::BackgroundRole).value<QColor>(), QColor(0, 255, 0));
    EXPECT_FALSE(grid().index(5, 1).data(Qt::BackgroundRole).isValid());
    EXPECT_TRUE(control("MSFlexGrid1").hasFocus());
    click("Command3");
    EXPECT_TRUE(isShown()) << "what was counted can be read while a new search is made";

    choose("tabella");
    EXPECT_FALSE(isShown());
    choose("SommaCampNum");
    search({{2, " "}, {1, "o"}});
    EXPECT_EQ(cells(), "CITTA     /FIGLI     ,2,X,|ROMA,2,1,3|ZX TOT.,2,1,3|ZZCITTA      O,4,,4");
    EXPECT_EQ(grid().index(3, 1).data(Qt::BackgroundRole).value<QColor>(), QColor(255, 255, 0));
    EXPECT_TRUE(dialogs_.messages.isEmpty());

    choose("elencorekord");
    dialogs_.yesAnswers = 1;
    dialogs_.whileAsking = [this] {
        EXPECT_EQ(grid().rowCount(), 0) << "the last table is not this search's";
    };
    search({{1, "Roma"}});
    dialogs_.whileAsking = [] {};
    EXPECT_FALSE(isShown()) << "a table that the user has refused";
    choose("elencorekord");
    search({{1, "Roma"}});
    EXPECT_TRUE(isShown());
    openFile(file());
    EXPECT_FALSE(isShown() || item("accorpa").isEnabled());
}

TEST_F(StatPanelTest, GroupingOutlivesTheModeAndTheFile)
{
    const auto dates = test::rec({{.length = 10, .name = "DATA"}})
                           .record({"05/03/2004"})
                           .record({"17/03/2004"})
                           .record({"2004"})
                           .record({"01/01/2005"});
    const auto count = [&] {
        open(dates);
        choose("elencorekord");
        choose("freq");
    };
    count();
    choose("accorpa");
    search({{1, "0"}});
    count();
    search({{1, "2004"}});
    EXPECT_EQ(cells(), "DATA      /,,|03/2004,2,2|4,1,1|ZX TOT.,3,3|ZZDATA       2004,,");
    choose("accorpa");
    choose("accorpa");
    click("Command3");
    search({{1, "2004"}});
    EXPECT_EQ(cells(),
              "DATA      /,,|05/03/2004,1,1|17/03/2004,1,1|2004,1,1|ZX TOT.,3,3|ZZDATA       2004,,");
}

TEST_F(StatPanelTest, RowsAreSortedAndCopiedAsTheyStand)
{
    choose("freq");
    search({{2, " "}});
    auto& view = control<QTableView>("MSFlexGrid1");
    const auto order = [&] {
        QString heads;
        for (int i = 1; i < grid().rowCount(); ++i)
            heads += grid().headerData(i, Qt::Vertical).toString().left(2) + text(" ");
        return heads.toStdString();
    };
    QHeaderView& head = *view.horizontalHeader();
    const auto clickHead = [&] {
        const QPoint place(head.sectionViewportPosition(1) + 5, head.height() / 2);
        QTest::mouseClick(head.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    };
    for (const char* expected : {"2 10 X ZX ZZ ", "10 X 2 ZX ZZ ", "2 10 X ZX ZZ "}) {
        clickHead();
        EXPECT_EQ(order(), expected);
    }
    for (const char* expected : {"10 2 X ZX ZZ ", "X 2 10 ZX ZZ "}) {
        QTest::mouseClick(control<QHeaderView>("corner").viewport(), Qt::LeftButton);
        EXPECT_EQ(order(), expected);
    }
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(order(), "X 2 10 ZX ZZ ") << "it may be the Enter that has started the search";
    QTest::keyClick(&view, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(order(), "2 10 X ZX ZZ ") << "by the current cell's column, that of the totals";
    constexpr auto kByValues = Qt::ControlModifier | Qt::ShiftModifier;
    QTest::keyClick(&view, Qt::Key_Return, kByValues);
    QTest::keyClick(&view, Qt::Key_Return, kByValues);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(),
              text("FIGLI     /\t\t\nX\t1\t1\n2\t3\t3\n10\t1\t1\nZX TOT.\t5\t5\nZZFIGLI      TUTTI \t\t\n"));
    enter("Text2(2)");
    EXPECT_EQ(order(), "2 10 X ZX ZZ ") << "a new table stands as it was counted";
    QTest::keyClick(&view, Qt::Key_Return, kByValues);
    EXPECT_EQ(order(), "10 2 X ZX ZZ ") << "and is sorted from the beginning";
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                      view.visualRect(grid().index(2, 1)).center());
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), text("3\n1\n"));
    EXPECT_EQ(control<QHeaderView>("corner").sectionResizeMode(0), QHeaderView::Fixed);
    EXPECT_TRUE(view.isRowHidden(0) && view.isColumnHidden(0)) << "they are the headers";
}

TEST_F(StatPanelTest, LimitsAreSaidAfterTheTable)
{
    const QString subscript = text("Indice non incluso nell'intervallo");
    const QString full = text("Interruzione !! tabella asse Y > 800 elementi !! ");
    const std::tuple<int, bool, QStringList> cases[] = {
        {798, false, {}},
        {801, false, {text("!") + full}},
        {199, true, {text("Titolo del Grafico:")}},
        {200, true, {text("!Errore!! ") + subscript}},
        {801, true, {text("!Errore!! ") + subscript, text("!") + subscript + full}},
    };
    for (const auto& [rows, withChart, messages] : cases) {
        openRows(rows);
        choose("freq");
        if (withChart) choose("GrafImpost");
        dialogs_.messages.clear();
        search({{1, "r"}});
        EXPECT_EQ(dialogs_.messages, messages) << rows;
        EXPECT_EQ(grid().rowCount(), std::min(rows, 799) + 3) << rows;
        EXPECT_EQ(chart().isVisible(), withChart && rows < 200) << rows;
    }
}

TEST_F(StatPanelTest, BothAxesFullAtOnce)
{
    auto rec = test::rec({{.length = 4, .name = "X"}, {.length = 4, .fieldY = 2, .name = "Y"}});
    for (int i = 1; i <= 800; ++i)
        rec.record({"c" + std::to_string(i >= 799 ? 199 : i % 198 + 1), "r" + std::to_string(i)});
    open(rec);
    choose("elencorekord");
    choose("tabella");
    search({{1, "c"}, {2, "r"}});
    EXPECT_EQ(dialogs_.messages, QStringList({text("!Interruzione !! tabella asse Y > 800 elementi !! "),
                                              text("!Interruzione !! tabella asse X > 200 elementi !! ")}));
    EXPECT_EQ(caption("statTitle"), text("tabella - rekord contati: 799"));
}

TEST_F(StatPanelTest, ATableOpensAtItsBeginningAndGoesWithItsSearch)
{
    openRows(100);
    choose("freq");
    auto& view = control<QTableView>("MSFlexGrid1");
    click("Text2(1)");
    type("Text2(1)", text("r"));
    for (int times = 0; times < 2; ++times) {
        enter("Text2(1)");
        QApplication::processEvents();
        EXPECT_EQ(view.verticalScrollBar()->value(), view.verticalScrollBar()->minimum());
        EXPECT_EQ(view.currentIndex(), grid().index(101, 2));
        const int characters = QFontMetrics(view.font()).horizontalAdvance(text("00000000"));
        EXPECT_GE(view.columnWidth(2), characters);
        EXPECT_LE(view.columnWidth(2), 2 * characters) << "eight characters and some air";
        for (int pages = 0; pages < 9; ++pages)
            QTest::keyClick(&view, Qt::Key_PageDown);
        EXPECT_EQ(value(1), text("r")) << "the record stays";
        QTest::keyClick(&view, Qt::Key_Escape);
        EXPECT_FALSE(isShown());
    }
    enter("Text2(1)");
    choose("ricparz");
    type("Text3", text("0"));
    enter("Text2(1)");
    EXPECT_FALSE(isShown()) << "a search that does not begin";
    choose("rictot");
    enter("Text2(1)");
    EXPECT_TRUE(isShown());
    fs::remove(file());
    enter("Text2(1)");
    EXPECT_TRUE(dialogs_.messages.value(0).startsWith(text("!Errore!! ")));
    EXPECT_FALSE(isShown()) << "one that fails";
}

TEST_F(StatPanelTest, TheFrameStandsAboveThePrintFile)
{
    choose("stamp2");
    choose("stamp2");
    choose("freq");
    search({{2, "2"}});
    EXPECT_LE(control("statFrame").geometry().bottom(), control("printFrame").geometry().top() + 1);
    EXPECT_TRUE(control("printFrame").isVisible());
    EXPECT_LE(control("Text2(1)").parentWidget()->geometry().bottom(), control("statFrame").geometry().top());
    control<QPlainTextEdit>("Text5").setPlainText(text("riga"));
    EXPECT_FALSE(printTo("out.pdf")) << "the print file belongs to the other modes";
    for (const char* frame : {"statFrame", "printFrame"}) {
        QTest::keyClick(&control("Form"), Qt::Key_Escape);
        EXPECT_FALSE(control(frame).isVisible()) << frame;
        EXPECT_EQ(control("printFrame").isVisible(), frame == std::string("statFrame"));
    }
    choose("unirek");
    choose("unirek");
    search({{1, "Roma"}});
    EXPECT_TRUE(cells().starts_with("CITTA     /,")) << "what was chosen before has no part in it";
}

TEST_F(StatPanelTest, TheFrameIsEnlargedClosedAndTakesTheFont)
{
    choose("freq");
    search({{2, " "}});
    dialogs_.font = QFont(text("DejaVu Sans Mono"), 7, QFont::Bold);
    choose("prefstamp");
    form_->resize(1100, 800);
    EXPECT_TRUE(control("MSFlexGrid1").font().bold()) << "also in a window of another size";
    QWidget& frame = control("statFrame");
    const int height = frame.height();
    frame.findChild<QToolButton*>(text("enlarge"))->click();
    EXPECT_GT(frame.height(), height);
    EXPECT_FALSE(control("Text2(1)").isVisible());
    QTest::keyClick(&control("MSFlexGrid1"), Qt::Key_Escape);
    EXPECT_FALSE(isShown());
    EXPECT_TRUE(control("Text2(1)").isVisible());
    EXPECT_NE(form_->focusWidget(), nullptr);
    search({{2, "2"}});
    EXPECT_EQ(frame.height(), height);
    EXPECT_EQ(frame.geometry().bottom(), frame.parentWidget()->rect().bottom());
    form_->resize(700, 300);
    enter("Text2(2)");
    QApplication::processEvents();
    for (const QWidget* part : {&control("statTitle"), control<QHeaderView>("corner").viewport()})
        EXPECT_EQ(part->visibleRegion().boundingRect(), part->rect()) << "a low window scrolls to it";
    openFile(file());
    EXPECT_FALSE(control("MSFlexGrid1").font().bold()) << "the usual font again";
    choose("prefstamp");
    EXPECT_FALSE(control("MSFlexGrid1").font().bold()) << "no mode is on";
}

}  // namespace
}  // namespace quorvin
