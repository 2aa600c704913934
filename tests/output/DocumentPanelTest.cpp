#include "output/DocumentPanel.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>

#include "output/DocumentEdit.h"
#include "output/DocumentTemplate.h"
#include "output/RichTextDocument.h"
#include "output/RtfReader.h"
#include "tests/output/OutputFixture.h"

namespace quorvin {
namespace {

namespace fs = std::filesystem;
using test::bytesOf;
using test::text;

constexpr char kMarker1[] = "*(1)*          ";
constexpr char kMarker2[] = "*(2)*          ";
constexpr char kQuestion[] = "Salvo le impostazioni del documento sul disco ?";

class DocumentPanelTest : public test::OutputTest {
protected:
    DocumentEdit& box() { return control<DocumentEdit>("Textcomunic"); }
    QString shown() { return box().toPlainText(); }
    QTextCharFormat formatAt(int position)
    {
        QTextCursor cursor(box().document());
        cursor.setPosition(position + 1);
        return cursor.charFormat();
    }
    void write(const char* words) { QTest::keyClicks(&box(), text(words)); }
    fs::path matrixFile() const { return folder_.path() / "prova.mtr"; }
    std::string stored() const
    {
        const std::string bytes = bytesOf(matrixFile());
        const std::size_t begin = bytes.find('"') + 1;
        return bytes.substr(begin, bytes.rfind('"') - begin);
    }
    /// Opens the file with a stored template.
    void openWith(const std::string& document)
    {
        folder_.write("prova.mtr", "\r\n 0\r\n\"" + document + "\"\r\n");
        openFile(file());
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
    choose("impostadoc");
    EXPECT_EQ(form_->focusWidget(), &box());
    click("Text2(1)");
    EXPECT_EQ(shown(), QString()) << "nothing goes in at the beginning";
    EXPECT_EQ(background("Text2(1)"), usual);
    write("Caro ");
    click("Text2(1)");
    EXPECT_EQ(background("Text2(1)"), QColor(0xFF, 0x80, 0x80));
    EXPECT_EQ(form_->focusWidget(), &box());
    write("di X!");
    // A selection gives way to the marker, which looks like its first character.
    box().setTextCursor([this] {
        QTextCursor x(box().document());
        x.setPosition(int(shown().indexOf(QLatin1Char('X'))));
        x.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor);
        return x;
    }());
    QTest::keyClick(&box(), Qt::Key_B, Qt::ControlModifier);
    click("Text2(2)");
    EXPECT_EQ(shown(), text("Caro ") + text(kMarker1) + text("di ") + text(kMarker2) + text("!"));
    enter("Text2(1)");
    EXPECT_EQ(caption("Label8"), QString()) << "the clicks chose nothing to search";

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
    EXPECT_TRUE(box().isReadOnly());
    choose("documento");
    clickHit(0);
    EXPECT_FALSE(control("Frame9").isVisible());
    EXPECT_EQ(shown(), text("Caro ") + text(kMarker1) + text("di ") + text(kMarker2) + text("!"));
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
    choose("impostadoc");
    EXPECT_EQ(dialogs_.messages, QStringList({text(kQuestion)}));
    EXPECT_EQ(bytesOf(matrixFile()), before);
    choose("documento");
    EXPECT_EQ(box().document()->firstBlock().blockFormat().alignment() & Qt::AlignHCenter, 0);
    // Whoever opens another file is asked as well.
    choose("impostadoc");
    write("Tre ");
    dialogs_.yesAnswers = 1;
    openFile(file());
    EXPECT_EQ(DocumentTemplate(stored()).Textserb.text(), U"Tre Unodue");
    EXPECT_FALSE(item("impostadoc").isChecked());
}

TEST_F(DocumentPanelTest, ModesExcludeEachOther)
{
    openWith("lettera");
    choose("documento");
    EXPECT_TRUE(control("Frame9").isVisible());
    for (const char* other : {"stamp1", "stamp2", "impmat"}) {
        if (!item("documento").isChecked()) choose("documento");
        choose(other);
        EXPECT_FALSE(item("documento").isChecked() || control("Frame9").isVisible()) << other;
        choose(other);
    }
    choose("documento");
    choose("impostadoc");
    EXPECT_FALSE(item("documento").isChecked());
    EXPECT_TRUE(control("Frame9").isVisible() && control("fontName").isVisible());
    for (const char* menu : {"esporta", "stampa", "stat", "preferenze"})
        EXPECT_FALSE(item(menu).isEnabled()) << menu;
    write("Una ");
    choose("documento");
    EXPECT_EQ(dialogs_.messages.last(), text(kQuestion));
    EXPECT_FALSE(item("impostadoc").isChecked() || control("fontName").isVisible());
    EXPECT_EQ(shown(), text("lettera"));
    for (const char* menu : {"esporta", "stampa", "stat", "preferenze"})
        EXPECT_TRUE(item(menu).isEnabled()) << menu;
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
    choose("documento");
    EXPECT_EQ(shown(), text("Testo"));
    fs::remove(matrixFile());
    dialogs_.yesAnswers = 1;
    EXPECT_TRUE(form_->close());
    EXPECT_EQ(DocumentTemplate(stored()).Textserb.text(), U"Testo");
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
    choose("documento");
    EXPECT_EQ(printerFont().family(), text("Times New Roman"));
    EXPECT_EQ(printerFont().pointSize(), 14);
    dialogs_.font = QFont(text("DejaVu Sans"), 9);
    choose("prefstamp");
    EXPECT_EQ(formatAt(0).fontPointSize(), 9);
    EXPECT_EQ(formatAt(0).fontWeight(), int(QFont::Normal));
    choose("stamp1");
    EXPECT_EQ(printerFont().family(), text("Courier new"));
    EXPECT_EQ(control("Text5").font().family(), text("DejaVu Sans")) << "the print file's own";
    choose("stamp1");
    choose("documento");
    EXPECT_EQ(formatAt(0).fontPointSize(), 10);
    EXPECT_EQ(formatAt(0).fontFamilies().toStringList(), QStringList({text("Arial")}));
}

TEST_F(DocumentPanelTest, TheBarFormatsWhatIsSelected)
{
    choose("impostadoc");
    write("abc");
    box().selectAll();
    for (const char* button : {"bold", "italic", "underline", "alignRight"})
        click(button);
    dialogs_.colour = QColor(1, 2, 3);
    click("colour");
    QLineEdit& size = *control<QComboBox>("fontSize").lineEdit();
    size.selectAll();
    QTest::keyClicks(&size, text("17,5"));
    QTest::keyClick(&size, Qt::Key_Return);
    const QTextCharFormat format = formatAt(0);
    EXPECT_TRUE(format.fontWeight() == QFont::Bold && format.fontItalic() && format.fontUnderline());
    EXPECT_EQ(format.foreground().color(), QColor(1, 2, 3));
    EXPECT_EQ(format.fontPointSize(), 17.5);
    EXPECT_TRUE(box().alignment() & Qt::AlignRight);
}

TEST_F(DocumentPanelTest, ADocumentPrintsOnPages)
{
    openWith("{\\rtf1{\\fonttbl{\\f0 DejaVu Sans;}}\\b Uno\\page\\b0 Due" + std::string(3000, '\n') +
             "\\par}");
    choose("documento");
    dialogs_.pdf = inFolder("out.pdf");
    choose("impoststamp");
    click("Command4");
    const std::string pdf = bytesOf(folder_.path() / "out.pdf");
    EXPECT_NE(pdf.find("/Count 1\n"), std::string::npos);
    EXPECT_NE(pdf.find("DejaVuSans-Bold"), std::string::npos);
    std::string lines = "{\\rtf1 ";
    for (int i = 0; i < 150; ++i)
        lines += "riga\\par ";
    openWith(lines + "}");
    choose("documento");
    dialogs_.pdf = inFolder("long.pdf");
    choose("impoststamp");
    click("Command4");
    EXPECT_NE(bytesOf(folder_.path() / "long.pdf").find("/Count 3\n"), std::string::npos);
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
}

TEST(RichTextDocument, KeepsWhatItHolds)
{
    const RichText original = readRtf(
        "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}{\\f1 Courier New;}}{\\colortbl ;\\red255;\\green128\\blue1;}"
        "\\qc\\f0\\fs33\\b "
        "Titolo\\par\\pard\\qr\\par\\pard\\qj\\li720\\ri360\\fi-300\\tx1000\\tqr\\tx2000\\tqc\\tx3000"
        "\\tqdec\\tx4000\\plain\\f1\\fs20\\i\\ul a\\tab\\strike\\cf1 b\\line\\highlight2 "
        "c\\'e8\\u322?\\u-10179?\\u-8704?"
        "\\par\\pard\\ql\\plain\\f1 fine\\par\\par}");
    ASSERT_EQ(original.paragraphs().size(), 5U);
    QTextDocument document;
    setRichText(document, original);
    EXPECT_EQ(toRichText(document), original);
    EXPECT_FALSE(document.isUndoAvailable());
}

TEST_F(DocumentPanelTest, WhatIsPastedIsBroughtDownToWhatATemplateKeeps)
{
    choose("impostadoc");
    const std::pair<const char*, QByteArray> cases[] = {
        {"text/html",
         "<ul><li><b>uno</b> due</li></ul><table><tr><td>a<img src='x.png'></td><td>b</td></tr></table>"},
        {"text/rtf", "{\\rtf1 {\\pntext \\'95\\tab}\\b uno\\b0  due\\par a\\par b\\par}"},
    };
    for (const auto& [type, data] : cases) {
        box().clear();
        auto* source = new QMimeData;
        source->setData(QLatin1String(type), data);
        QApplication::clipboard()->setMimeData(source);
        box().paste();
        const QString flat = shown().replace(QLatin1Char('\n'), QLatin1Char('|')).remove(text("|"));
        EXPECT_EQ(flat, QString::fromUtf8("•\tuno dueab")) << type;
        const auto one = int(shown().indexOf(text("uno")));
        EXPECT_EQ(formatAt(one).fontWeight(), int(QFont::Bold)) << type;
        EXPECT_EQ(formatAt(one + 4).fontWeight(), int(QFont::Normal)) << type;
        EXPECT_FALSE(QTextCursor(box().document()->firstBlock()).currentList()) << type;
        const RichText kept = box().content();
        box().setContent(kept);
        EXPECT_EQ(box().content(), kept) << type;
    }
}

}  // namespace
}  // namespace quorvin
