#include "output/OutputPanel.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QTest>

#include "tests/output/OutputFixture.h"

namespace quorvin {
namespace {

namespace fs = std::filesystem;
using test::bytesOf;
using test::text;

class OutputPanelTest : public test::OutputTest {
protected:
    void printInterval(const char* from, const char* to)
    {
        type("Text8", text(from));
        QTest::keyClick(&control("Text8"), Qt::Key_Return);
        EXPECT_EQ(form_->focusWidget(), &control("Text9"));
        type("Text9", text(to));
        QTest::keyClick(&control("Text9"), Qt::Key_Return);
    }

    const QString separator_ = QString(78, QLatin1Char('<')) + text("\n");
};

TEST_F(OutputPanelTest, AMatrixIsChosenKeptAndReadBack)
{
    const QColor usual = background("Text2(2)");
    choose("preferenze");
    click("Check1");
    choose("preferenze");
    const QColor ofFile = background("Text2(2)");
    click("Text2(2)");
    type("Text2(2)", text("x"));
    choose("impmat");
    EXPECT_EQ(value(2), QString());
    EXPECT_EQ(background("Text2(2)"), usual) << "neither the search's nor the file's";
    click("Text2(3)");
    click("Text2(1)");
    EXPECT_FALSE(control("Text2(3)").isEnabled());
    click("Text2(3)");
    EXPECT_EQ(background("Text2(3)"), QColor(0, 0x80, 0));
    click("Command3");
    EXPECT_FALSE(control("Text2(3)").isEnabled()) << "chosen once while the mode lasts";
    type("Text2(2)", text("x"));
    enter("Text2(2)");
    EXPECT_FALSE(fs::exists(matrixFile()));

    choose("impmat");
    EXPECT_TRUE(control("Text2(3)").isEnabled());
    EXPECT_EQ(value(2), QString());
    EXPECT_EQ(background("Text2(3)"), ofFile);
    EXPECT_NE(ofFile, usual);
    EXPECT_EQ(bytesOf(matrixFile()), " 3\r\n 1\r\n\r\n 0\r\n\"\"\r\n");

    fs::remove(matrixFile());
    chooseMatrix({});
    EXPECT_FALSE(fs::exists(matrixFile())) << "nothing chosen, nothing written";
    choose("stamp1");
    EXPECT_TRUE(dialogs_.messages.isEmpty()) << "the old choice is in force";
    choose("stamp1");
    choose("impmat");
    dialogs_.typed = text("2");
    choose("margstamp");
    choose("impmat");
    EXPECT_EQ(bytesOf(matrixFile()), " 3\r\n 1\r\n\r\n 2\r\n\"\"\r\n");
}

TEST_F(OutputPanelTest, HeaderAndMarginAreAskedForAndKept)
{
    const std::string prompt = ", inserire il nuovo margine sinistro di stampa";
    using Case = std::tuple<const char*, const char*, std::string, int>;
    chooseMatrix({2});
    for (const auto& [item, typed, asked, margin] :
         {Case{"intestazione", "ELENCO,\ncon\x1Avirgola", "Attuale : ", 0},
          Case{"intestazione", "", "Attuale : ELENCO, con virgola", 0},
          Case{"margstamp", "3.7", "Attuale: 0" + prompt, 3},
          Case{"margstamp", "0", "Attuale: 3" + prompt, 3}}) {
        dialogs_.messages.clear();
        dialogs_.typed = text(typed);
        choose(item);
        EXPECT_EQ(dialogs_.messages, QStringList(text(asked.c_str())));
        EXPECT_EQ(bytesOf(matrixFile()),
                  " 2\r\nELENCO, con virgola\r\n " + std::to_string(margin) + "\r\n\"\"\r\n");
    }
}

TEST_F(OutputPanelTest, AnIntervalOfRecords)
{
    chooseMatrix({1, 3});
    choose("elencorekord");
    search({{1, "v"}});
    form_->resize(700, 300);
    choose("stamp1");
    QApplication::processEvents();
    EXPECT_FALSE(control("Label16").isVisible());
    EXPECT_EQ(control<QListView>("List1").model()->rowCount(), 0);
    EXPECT_EQ(form_->focusWidget(), &control("Text8"));
    EXPECT_FALSE(control("Text8").visibleRegion().isEmpty()) << "a low window scrolls to it";
    type("Text9", text("99"));
    EXPECT_EQ(control<QLineEdit>("Text9").text(), text("3")) << "no further than the file";

    printInterval("2", "3");
    EXPECT_EQ(printed(),
              text("Nome: Bruni \nEta 66\n") + separator_ + text("Nome: Rossi \nEta 65\n") + separator_);
    EXPECT_EQ(form_->focusWidget(), &control("Text5"));
    printInterval("0", "2");
    EXPECT_EQ(printed(), QString());
    choose("norec");
    printInterval("3", "3");
    EXPECT_EQ(printed(), QString());
    test::append(file(), "AltriBari 8 !\r\n");
    printInterval("4", "4");
    EXPECT_TRUE(printed().startsWith(text("Nome: AltriB\n"))) << "added meanwhile";
    printInterval("1", "1");
    click("Text9");
    EXPECT_EQ(printed() + control<QLineEdit>("Text9").text(), QString());
    EXPECT_EQ(control<QLineEdit>("Text8").text(), text("1"));
    click("Text8");
    EXPECT_EQ(control<QLineEdit>("Text8").text(), QString());

    printInterval("1", "1");
    const QString before = printed();
    QTest::keyPress(&control("Text9"), Qt::Key_Return);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, text("\r"), true);
    QApplication::sendEvent(&control("Text5"), &held);
    EXPECT_EQ(printed(), before) << "Enter is still held down";
    QTest::keyClick(&control("Text5"), Qt::Key_Return);
    EXPECT_NE(printed(), before);
    choose("stamp1");
    EXPECT_EQ(form_->focusWidget(), &control("Command1"));
    EXPECT_EQ(caption("Label8"), QString());
    EXPECT_TRUE(control("Text5").isVisible()) << "what was printed stays until it is closed";
    QTest::keyClick(&control("Command1"), Qt::Key_Escape);
    EXPECT_FALSE(control("Text5").isVisible());
    EXPECT_TRUE(dialogs_.messages.isEmpty());
}

TEST_F(OutputPanelTest, ASearchIsPrintedWithListAndInSteps)
{
    choose("stamp1");
    EXPECT_EQ(dialogs_.messages, QStringList(text(" Attenzione !! Matrice di stampa vuota")));
    choose("stamp2");
    EXPECT_EQ(dialogs_.messages.size(), 2);
    EXPECT_EQ(form_->focusWidget(), &control("Command1")) << "not in the text";
    choose("stamp2");
    chooseMatrix({1});
    dialogs_.typed = text("ELENCO");
    choose("intestazione");
    dialogs_.messages.clear();

    choose("elencorekord");
    type("Text2(1)", text("x"));
    choose("stamp2");
    EXPECT_EQ(value(1), QString());
    search({{2, "ro"}});
    const QString hits = text("Nome: Verdi \n") + separator_ + text("Nome: Bruni \n") + separator_;
    EXPECT_EQ(printed(), text("ELENCO\n") + hits + text(" 2.RO   2"));
    choose("elencorekord");
    dialogs_.yesAnswers = 1;
    search({{2, "ro"}});
    EXPECT_EQ(dialogs_.messages.size(), 2);
    EXPECT_EQ(printed(), text("ELENCO\nNome: Verdi \n") + separator_ + text(" 2.RO   2"))
        << "the refused hit is counted, but not printed";
    QTest::keyClick(&control("Text5"), Qt::Key_Escape);
    EXPECT_TRUE(control("Text5").isVisible()) << "the mode is on";
    choose("stamp2");
    choose("stamp2");
    EXPECT_EQ(printed(), QString());
}

TEST_F(OutputPanelTest, AMatrixForOtherFieldsIsReported)
{
    folder_.write("prova.mtr", " 1\r\n 9\r\n\r\n 0\r\n\"\"\r\n");
    openFile(file());
    choose("elencorekord");
    choose("stamp2");
    search({{2, "ro"}});
    EXPECT_EQ(dialogs_.messages, QStringList(text("!Errore!! Indice non incluso nell'intervallo")));
    EXPECT_TRUE(printed().startsWith(text("\nNome: Verdi \n")));
    choose("stamp2");
    choose("stamp1");
    click("Command3");
    EXPECT_FALSE(control("Text2(1)").isEnabled()) << "the mode keeps them";
    printInterval("1", "2");
    EXPECT_EQ(printed(), text("Nome: Verdi \n"));
    EXPECT_EQ(dialogs_.messages.size(), 1) << "an interval ends without a box";
}

TEST_F(OutputPanelTest, PrintingToAFileAndWithoutAPrinter)
{
    chooseMatrix({1});
    choose("stamp1");
    printInterval("1", "2");
    dialogs_.font = QFont(text("DejaVu Sans Mono"), 7, QFont::Bold, true);
    choose("prefstamp");
    const QFont font = control("Text5").font();
    EXPECT_TRUE(font.pointSize() == 7 && font.bold() && font.italic());
    EXPECT_FALSE(printTo("none/out.pdf"));
    EXPECT_EQ(dialogs_.messages.last(), text("!Errore!! manca stampante !!"));

    dialogs_.messages.clear();
    EXPECT_TRUE(printTo("out.pdf"));
    EXPECT_TRUE(dialogs_.messages.isEmpty());
    EXPECT_TRUE(holds("out.pdf", "/Count 1\n") && holdsFont("out.pdf", "DejaVuSansMono", "BoldOblique"));
    click("Command4");
    EXPECT_TRUE(dialogs_.messages.value(0).startsWith(text("Attenzione!!il file ")));

    const std::string source = bytesOf(file());
    EXPECT_FALSE(printTo("prova.rec"));
    EXPECT_EQ(dialogs_.messages.last(), text("!Errore!! manca stampante !!"));
    EXPECT_TRUE(bytesOf(file()) == source) << "the open file is not printed over";

    // Forty lines, which take more than a page because they are too long for one.
    control<QPlainTextEdit>("Text5").setPlainText(
        (text("   riga lunga ").repeated(30) + text("\n")).repeated(40));
    EXPECT_TRUE(printTo("long.pdf") && !holds("long.pdf", "/Count 1\n"));
    choose("stamp1");
    QTest::keyClick(&control("Text5"), Qt::Key_Escape);
    EXPECT_FALSE(printTo("none.pdf")) << "nothing is in sight";
}

TEST_F(OutputPanelTest, AnotherFileLeavesEveryMode)
{
    chooseMatrix({1});
    for (const char* mode : {"impmat", "stamp1", "stamp2", "creamat1"}) {
        choose(mode);
        openFile(file());
        EXPECT_FALSE(item(mode).isChecked() || control("printFrame").isVisible()) << mode;
    }
}

}  // namespace
}  // namespace quorvin
