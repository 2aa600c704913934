#include "output/DocumentPanel.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <QTextBlock>

#include "output/DocumentTemplate.h"
#include "tests/output/DocumentFixture.h"

namespace quorvin {
namespace {

namespace fs = std::filesystem;
using test::bytesOf;
using test::text;

constexpr char kMarker1[] = "*(1)*          ";
constexpr char kMarker2[] = "*(2)*          ";
constexpr char kQuestion[] = "Salvo le impostazioni del documento sul disco ?";

class DocumentPanelTest : public test::DocumentTest {
protected:
    std::string stored() const
    {
        const std::string bytes = bytesOf(matrixFile());
        const std::size_t begin = bytes.find('"') + 1;
        return bytes.substr(begin, bytes.rfind('"') - begin);
    }
    void listRomans()
    {
        choose("elencorekord");
        search({{2, "a"}});
    }
    void clickHit(int row)
    {
        auto& list = control<QListView>("List1");
        const QPoint line = list.visualRect(list.model()->index(row, 0)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, line);
    }
    /// A second run of the program.
    void startAnew()
    {
        form_ = std::make_unique<Formstart>(dialogs_);
        form_->resize(1024, 740);
        form_->show();
        form_->activateWindow();
        QApplication::processEvents();
        openFile(file());
    }
};

TEST_F(DocumentPanelTest, ATemplateIsWrittenKeptAndFilledAtEachHit)
{
    const QColor usual = background("Text2(1)");
    listRomans();
    choose("impostadoc");
    EXPECT_EQ(control<QListView>("List1").model()->rowCount(), 0);
    EXPECT_EQ(value(2) + caption("Label8"), QString());
    EXPECT_EQ(form_->focusWidget(), &box());
    click("Text2(1)");
    EXPECT_EQ(shown(), QString()) << "nothing goes in at the beginning";
    EXPECT_EQ(background("Text2(1)"), usual);
    write("Caro ");
    click("Text2(1)");
    EXPECT_EQ(background("Text2(1)"), QColor(0xFF, 0x80, 0x80));
    EXPECT_EQ(form_->focusWidget(), &box());
    write("di XY!");
    // A selection gives way to the marker, which looks like its first character.
    const auto x = int(shown().indexOf(QLatin1Char('X')));
    select(x, x + 1);
    QTest::keyClick(&box(), Qt::Key_B, Qt::ControlModifier);
    select(x, x + 2);
    click("Text2(2)");
    const QString written = text("Caro ") + text(kMarker1) + text("di ") + text(kMarker2) + text("!");
    EXPECT_EQ(shown(), written);
    select(0, 3);
    click("Text2(2)");
    type("Text2(1)", text("x"));
    enter("Text2(1)");
    EXPECT_EQ(shown() + caption("Label8"), written) << "nothing is replaced, and nothing searched";

    dialogs_.yesAnswers = 1;
    choose("impostadoc");
    EXPECT_EQ(dialogs_.messages, QStringList({text(kQuestion)}));
    EXPECT_EQ(dialogs_.icon, BoxIcon::question);
    EXPECT_EQ(background("Text2(1)"), usual);
    EXPECT_FALSE(control("Frame9").isVisible());

    startAnew();
    choose("documento");
    listRomans();
    // Of the markers' blanks 3 go with a name of five letters, 1 with a town of four.
    const char* letters[] = {"Caro Verdi       di Roma         !", "Caro Bruni       di Roma         !",
                             "Caro Rossi       di Bari         !"};
    for (int hit = 0; hit < 3; ++hit) {
        clickHit(hit);
        EXPECT_EQ(shown(), text(letters[hit]));
        const auto town = int(shown().indexOf(value(2)));
        EXPECT_TRUE(formatAt(town).fontWeight() == QFont::Bold &&
                    formatAt(town - 1).fontWeight() == QFont::Normal);
    }
    // It is there to be read.
    box().setFocus();
    box().selectAll();
    QTest::keyClick(&box(), Qt::Key_I, Qt::ControlModifier);
    write("x");
    EXPECT_TRUE(shown() == text(letters[2]) && !formatAt(0).fontItalic());
    choose("documento");
    EXPECT_TRUE(form_->focusWidget() && form_->focusWidget()->isVisible());
    clickHit(0);
    EXPECT_FALSE(control("Frame9").isVisible());
    EXPECT_EQ(shown(), written);
}

TEST_F(DocumentPanelTest, OnlyAChangeIsAskedAboutAndNoLeavesTheTemplate)
{
    openWith("{\\rtf1{\\fonttbl{\\f0 Arial;}}\\b Uno\\b0 due\\par}");
    const std::string before = bytesOf(matrixFile());
    choose("impostadoc");
    choose("impostadoc");
    choose("impostadoc");
    write("x");
    QTest::keyClick(&box(), Qt::Key_Backspace);
    choose("impostadoc");
    EXPECT_TRUE(dialogs_.messages.isEmpty());

    // Formats count, not only text.
    choose("impostadoc");
    box().selectAll();
    click("alignCentre");
    choose("documento");
    EXPECT_EQ(dialogs_.messages, QStringList({text(kQuestion)}));
    EXPECT_EQ(bytesOf(matrixFile()), before);
    EXPECT_FALSE(control("fontName").isVisible());
    EXPECT_EQ(box().document()->firstBlock().blockFormat().alignment() & Qt::AlignHCenter, 0);
    // Whoever opens another file is asked as well.
    choose("impostadoc");
    write("Tre ");
    dialogs_.yesAnswers = 1;
    openFile(file());
    EXPECT_EQ(DocumentTemplate(stored()).Textserb.text(), U"Tre Unodue");
    EXPECT_FALSE(item("impostadoc").isChecked());
}

TEST_F(DocumentPanelTest, ATemplateThatCannotBeSavedIsNotLost)
{
    fs::create_directory(matrixFile());
    choose("impostadoc");
    write("Testo");
    dialogs_.yesAnswers = 1;
    choose("impostadoc");
    ASSERT_EQ(dialogs_.messages.size(), 2);
    EXPECT_TRUE(dialogs_.messages[1].startsWith(text("!Errore file !! ")));
    dialogs_.yesAnswers = 1;
    openFile(file());
    EXPECT_EQ(dialogs_.messages.size(), 4) << "asked again, and no file opened";
    dialogs_.yesAnswers = 1;
    EXPECT_FALSE(form_->close());
    // No gives it up for what the disk has, once and for all.
    dialogs_.messages.clear();
    for (int i = 0; i < 6; ++i)
        choose("impostadoc");
    choose("documento");
    EXPECT_EQ(shown(), QString());
    click("Command4");
    EXPECT_EQ(dialogs_.messages.size(), 1) << "nothing to print, and nothing to ask";
    choose("impostadoc");
    write("Testo");
    dialogs_.yesAnswers = 1;
    choose("impostadoc");
    choose("documento");
    EXPECT_EQ(shown(), text("Testo"));
    fs::remove(matrixFile());
    dialogs_.yesAnswers = 1;
    EXPECT_TRUE(form_->close());
    EXPECT_EQ(DocumentTemplate(stored()).Textserb.text(), U"Testo");
}

TEST_F(DocumentPanelTest, TheWindowAsksBeforeItClosesAndTheMenuDoesNot)
{
    for (const bool byWindow : {true, false}) {
        startAnew();
        dialogs_.messages.clear();
        choose("impostadoc");
        write("x");
        byWindow ? void(form_->close()) : choose("esci");
        EXPECT_EQ(dialogs_.messages.size(), byWindow ? 1 : 0);
        EXPECT_FALSE(form_->isVisible());
    }
}

TEST_F(DocumentPanelTest, AMarkerOfNoFieldIsSaidAndLeavesTheRest)
{
    openWith("a *(1)*           b *(4)* c *(2)*");
    choose("documento");
    listRomans();
    clickHit(1);
    EXPECT_EQ(dialogs_.messages,
              QStringList({text("!Errore troppi rekord trovati !! Indice non incluso nell'intervallo")}));
    EXPECT_EQ(shown(), text("a Bruni        b *(4)* c *(2)*"));
}

TEST_F(DocumentPanelTest, FontsOfPrinterAndDocument)
{
    openWith("{\\rtf1{\\fonttbl{\\f0 Arial;}}\\fs20\\b Uno\\par}");
    const auto printerFont = [this] {
        dialogs_.font.reset();
        choose("prefstamp");
        return dialogs_.askedFont;
    };
    dialogs_.font = QFont(text("DejaVu Sans"), 9);
    choose("prefstamp");
    EXPECT_EQ(formatAt(0).fontPointSize(), 10) << "it is not in sight";
    choose("documento");
    EXPECT_EQ(printerFont().family(), text("Times New Roman"));
    EXPECT_EQ(printerFont().pointSize(), 14);
    dialogs_.font = QFont(text("DejaVu Sans"), 9);
    choose("prefstamp");
    EXPECT_EQ(formatAt(0).fontPointSize(), 9);
    EXPECT_EQ(formatAt(0).fontWeight(), int(QFont::Normal));
    choose("stamp1");
    EXPECT_EQ(printerFont().family(), text("Courier new"));
    control<QPlainTextEdit>("Text5").setPlainText(text("x"));
    EXPECT_TRUE(printTo("out.pdf") && holds("out.pdf", "DejaVuSans")) << "the print file has its own";
    choose("stamp1");
    choose("documento");
    EXPECT_EQ(formatAt(0).fontPointSize(), 10);
    EXPECT_EQ(formatAt(0).fontFamilies().toStringList(), QStringList({text("Arial")}));
}

TEST_F(DocumentPanelTest, ADocumentPrintsOnPages)
{
    openWith("{\\rtf1{\\fonttbl{\\f0 DejaVu Sans;}}\\b Uno\\page\\b0 Due" + std::string(3000, '\n') +
             "\\par}");
    choose("documento");
    EXPECT_TRUE(printTo("out.pdf"));
    EXPECT_TRUE(holds("out.pdf", "/Count 1\n") && holdsFont("out.pdf", "DejaVuSans", "Bold"));
    openWith(std::string(120, '\n') + "fine");
    choose("documento");
    EXPECT_TRUE(printTo("long.pdf") && holds("long.pdf", "/Count 3\n"));
}

TEST_F(DocumentPanelTest, FramesBelowTheRecordShareTheirRoom)
{
    openWith("lettera");
    chooseMatrix({1});
    choose("stamp2");
    choose("stamp2");
    for (const char* mode : {"documento", "impostadoc"}) {
        choose(mode);
        const QWidget* frames[] = {&control("Text2(1)"), &control("Frame9"), &control("printFrame")};
        for (int i = 0; i + 1 < 3; ++i) {
            const auto top = [this](const QWidget* w) { return w->mapTo(form_.get(), QPoint()).y(); };
            EXPECT_LE(top(frames[i]) + frames[i]->height(), top(frames[i + 1])) << mode << i;
        }
    }
    choose("elencorekord");
    choose("maxel");
    EXPECT_LE(control("Frame9").geometry().right(), control("List1").x());
}

}  // namespace
}  // namespace quorvin
