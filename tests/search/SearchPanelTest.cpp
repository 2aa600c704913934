#include "search/SearchPanel.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include "search/HitListView.h"
#include "tests/output/OutputFixture.h"

namespace quorvin {
namespace {

using test::text;

/// A small file: town (20 characters), name (25), age (3); record 4 is deleted.
class SearchPanelTest : public test::WindowTest {
protected:
    SearchPanelTest()
    {
        open(test::rec({{.length = 20, .fieldY = 1}, {.length = 25, .fieldY = 3}, {.length = 3, .fieldY = 5}})
                 .record({"Roma", "Verdi Anna", "70"})
                 .record({"ROMANO", "Bianchi", "66"})
                 .record({"Milano", "abete [2] di bosco fitto", "80"})
                 .record({"Roma", "Rossi", "65"}, '?')
                 .record({"Roma", "", " 9"}));
    }

    QStringList lines(const char* list = "List1")
    {
        const QAbstractItemModel& model = *control<QListView>(list).model();
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts.append(model.index(row, 0).data().toString());
        return texts;
    }

    void clickLine(const char* list, int row, Qt::MouseButton button = Qt::LeftButton)
    {
        auto& view = control<QListView>(list);
        const QPoint place = view.visualRect(view.model()->index(row, 0)).center();
        QTest::mouseClick(view.viewport(), button, Qt::NoModifier, place);
    }
};

TEST_F(SearchPanelTest, TwoFieldsAreListedByTheFieldOfTheEnterKey)
{
    choose("elencorekord");
    search({{3, "6"}, {1, "rom"}});
    EXPECT_EQ(lines(), QStringList({text(" 2. ROMANO "), text(" 4. Roma ")}));
    EXPECT_EQ(caption("Label3"), text(" 2"));
    EXPECT_EQ(caption("Label8"), text(" 3.6   1.ROM   2"));
    EXPECT_EQ(caption("Label16"), text("  ...fine ricerca"));
    EXPECT_EQ(form_->focusWidget(), &control("List1"));

    choose("norec");
    enter("Text2(1)");
    EXPECT_EQ(lines(), QStringList(text(" 2. ROMANO ")));
    choose("preferenze");
    click("Check2");
    enter("Text2(1)");
    EXPECT_EQ(lines(), QStringList(text(" 2. ROMANO 66")));
}

TEST_F(SearchPanelTest, EnterChoosesTheFieldWhenNoneIsAndIgnoresAnEmptyBox)
{
    choose("elencorekord");
    type("Text2(2)", QString());
    enter("Text2(2)");
    EXPECT_EQ(caption("Label8"), QString());
    type("Text2(2)", text(" "));
    enter("Text2(2)");
    EXPECT_EQ(lines().size(), 4) << "a blank finds the filled fields";
    EXPECT_EQ(background("Text2(2)"), QColor(0xC0, 0, 0xC0));
    choose("ric(1)");
    enter("Text2(2)");
    EXPECT_EQ(lines(), QStringList(text(" 5.  ")));
}

TEST_F(SearchPanelTest, StepModePausesAtEachHitUntilNo)
{
    QApplication::clipboard()->setText(text("kept"));
    dialogs_.yesAnswers = 1;
    // The question takes its input like any box.
    dialogs_.whileAsking = [this] { QTest::keyClick(&control("Text3"), Qt::Key_7); };
    search({{1, "roma"}});
    EXPECT_EQ(control<QLineEdit>("Text3").text(), text("77"));
    EXPECT_EQ(dialogs_.messages, QStringList({text("continuo?"), text("continuo?")}));
    EXPECT_EQ(caption("Label14"), text("2"));
    EXPECT_EQ(clipboard(), text("kept"));
    EXPECT_EQ(value(1), QString()) << "No empties the boxes";
    EXPECT_EQ(caption("Label3"), text(" 0"));
    EXPECT_NE(background("Text2(1)"), QColor(0xC0, 0, 0xC0));

    dialogs_.yesAnswers = 9;
    search({{1, "roma"}});
    EXPECT_EQ(dialogs_.messages.size(), 6);
    EXPECT_EQ(caption("Label14"), text("5"));
    EXPECT_EQ(value(1), text("Roma                "));
    EXPECT_EQ(caption("Label8"), text(" 1.ROMA   4"));
}

TEST_F(SearchPanelTest, APartialSearchNeedsItsTwoNumbers)
{
    choose("elencorekord");
    choose("ricparz");
    click("Text2(1)");
    type("Text2(1)", text("rom"));
    using Case = std::tuple<const char*, const char*, int, const char*>;
    for (const auto& [from, to, hits, focus] :
         {Case{"2", "4", 2, "List1"}, Case{"", "4", 0, "Text3"}, Case{"0", "4", 0, "Text2(1)"},
          Case{"2", "6", 0, "Text4"}, Case{"2", "", 0, "Text4"}}) {
        control<QLineEdit>("Text3").setText(text(from));
        control<QLineEdit>("Text4").setText(text(to));
        control("Text2(1)").setFocus();
        enter("Text2(1)");
        EXPECT_EQ(lines().size(), hits) << from << " to " << to;
        EXPECT_EQ(form_->focusWidget(), &control(focus)) << from << " to " << to;
    }
}

TEST_F(SearchPanelTest, AClickOrAKeyOnALineShowsItsRecord)
{
    choose("elencorekord");
    search({{1, "roma"}});
    test::append(file(), std::string(48, 'x') + "!\r\n");
    clickLine("List1", 1);
    EXPECT_EQ(caption("Label14"), text("2"));
    EXPECT_EQ(clipboard(), text("2"));
    EXPECT_EQ(value(2), text("Bianchi                  "));
    QWidget& list = control("List1");
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(clipboard(), text("4"));
    EXPECT_EQ(background("Command3"), QColor(0xFF, 0xFF, 0));
    QTest::keyClick(&list, Qt::Key_Home);
    EXPECT_EQ(clipboard(), text("1"));
    QTest::keyClick(&list, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), text(" 1. Roma \n 2. ROMANO \n"));
    click("Command1");
    EXPECT_EQ(caption("Label14"), text("3")) << "steps go on from the hit";
    EXPECT_EQ(caption("Label9"), text(" 6 ")) << "a click sees what was added";

    useEpiDataStub();
    clickLine("List1", 0, Qt::RightButton);
    EXPECT_TRUE(QTest::qWaitFor([this] { return epiDataStarted(); }));
    clickLine("List1", 2);
    EXPECT_EQ(clipboard(), text("4")) << "the file is open again";
    std::filesystem::resize_file(file(), std::filesystem::file_size(file()) / 2);
    clickLine("List1", 3);
    EXPECT_EQ(dialogs_.messages,
              QStringList(text("!Errore troppi rekord trovati !! Input oltre la fine del file")));
}

TEST_F(SearchPanelTest, KeysStayAmongTheHits)
{
    choose("elencorekord");
    QWidget& list = control("List1");
    const std::pair<std::vector<Qt::Key>, const char*> cases[] = {
        {{Qt::Key_Down}, "1"},
        {{Qt::Key_Home, Qt::Key_PageUp, Qt::Key_Up}, "1"},
        {{Qt::Key_Return, Qt::Key_Down}, "2"},
        {{Qt::Key_Space}, "1"},
        {{Qt::Key_End, Qt::Key_PageDown, Qt::Key_Down}, "5"},
        {{Qt::Key_PageDown}, "5"},
    };
    for (const auto& [keys, record] : cases) {
        choose("eliminapuntegg");
        search({{1, "roma"}});
        clickLine("List1", 0, Qt::RightButton);
        EXPECT_FALSE(epiDataStarted()) << "no line is selected";
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(&list, &held);
        EXPECT_EQ(value(1), text("roma")) << "the Enter of the search, still held down";
        for (const Qt::Key key : keys)
            QTest::keyClick(&list, key);
        EXPECT_EQ(clipboard(), text(record)) << keys[0];
        EXPECT_EQ(caption("Label14"), text(record)) << keys[0];
    }
}

TEST_F(SearchPanelTest, OptionsThatStartAfreshAndAnotherFile)
{
    choose("ricparz");
    control<QLineEdit>("Text3").setText(text("1"));
    choose("ricparz");
    EXPECT_EQ(control<QLineEdit>("Text3").text(), QString());
    choose("norec");
    open(test::rec({{}}).records(1));
    for (const char* option : {"elencorekord", "ricparz", "norec"})
        EXPECT_FALSE(item(option).isChecked()) << option;
    EXPECT_EQ(caption("Label15"), text(" ricerca     *abcdef*"));
}

TEST_F(SearchPanelTest, SortedLinesStandInTheSideList)
{
    choose("elencorekord");
    search({{2, " "}});
    choose("sort");
    EXPECT_TRUE(lines("List2").isEmpty());
    EXPECT_EQ(caption("Label3"), text(" 0"));
    enter("Text2(2)");
    EXPECT_EQ(lines("List2"),
              QStringList({text("abete [2] di bosco   [3]"), text("Bianchi              [2]"),
                           text("Rossi                [4]"), text("Verdi Anna           [1]")}));
    clickLine("List2", 0);
    EXPECT_EQ(clipboard(), text("2")) << "the first bracket misleads";
    clickLine("List2", 3);
    EXPECT_EQ(clipboard(), text("1"));
    // 1024 pixels are 124 columns of 8, the form's height 42 lines.
    EXPECT_EQ(control("List2").x(), 99 * 8);
    EXPECT_EQ(control("List2").width(), 193);
    click("Command5");
    EXPECT_TRUE(item("maxel").isChecked());
    EXPECT_EQ(control("List2").x(), 83 * 8);
    EXPECT_EQ(control("List2").width(), 40 * 8);
    EXPECT_EQ(control("List2").geometry(), control("List1").geometry());
    EXPECT_LE(control("VScroll1").parentWidget()->geometry().right(), control("List2").x());
    type("Text2(2)", text("fitto"));
    enter("Text2(2)");
    EXPECT_EQ(lines("List2"), QStringList(text("abete [2] di bosco fitto   [3]")));
}

TEST_F(SearchPanelTest, JoinedFieldsAreRedAndSearchedAsOne)
{
    choose("elencorekord");
    choose("ric(8)");
    choose("unirek");
    EXPECT_TRUE(item("ric(4)").isChecked()) << "joined fields hold no interval";
    EXPECT_EQ(form_->focusWidget(), &control("Command1"));
    search({{1, "oma"}, {2, "averdi"}});
    EXPECT_EQ(background("Text2(2)"), QColor(0xFF, 0, 0));
    EXPECT_EQ(lines(), QStringList(text(" 1. Verdi Anna ")));
    choose("ric(8)");
    EXPECT_TRUE(item("ric(4)").isChecked());
    choose("unirek");
    EXPECT_NE(background("Text2(2)"), QColor(0xFF, 0, 0));
}

TEST_F(SearchPanelTest, PunctuationCanBeIgnoredWithTheFirstFiveModes)
{
    for (const int mode : {5, 6, 7}) {
        choose(qPrintable(text("ric(%1)").arg(mode)));
        choose("eliminapuntegg");
        EXPECT_EQ(item("eliminapuntegg").isChecked(), mode == 5) << mode;
    }
}

TEST_F(SearchPanelTest, EscapeEndsALongSearchWithWhatItFound)
{
    auto rec = test::rec({{}});
    open(rec.records(60000));
    choose("elencorekord");
    click("Text2(1)");
    type("Text2(1)", text("r"));
    QTest::keyClick(&control("Text2(1)"), Qt::Key_Return);
    EXPECT_EQ(caption("Label16"), text("  ...ricerca in corso"));
    QTest::keyClick(&control("Text2(1)"), Qt::Key_Return);
    item("note").trigger();
    QTest::keyClick(form_.get(), Qt::Key_F1);
    QTest::mouseClick(&control("Command1"), Qt::LeftButton);
    EXPECT_FALSE(control("Frame7").isVisible()) << "no input is acted on meanwhile";
    EXPECT_EQ(caption("Label14"), text("Rekord n."));
    QTest::keyClick(&control("Text2(1)"), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return caption("Label16") == text("  ...fine ricerca"); }));
    EXPECT_LT(lines().size(), 60000);
    EXPECT_EQ(text(" %1").arg(lines().size()), caption("Label3"));
    QTest::keyClick(&control("Text2(1)"), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return caption("Label3") == text(" 60000"); }));
}

}  // namespace
}  // namespace quorvin
