#include "output/DocumentEdit.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMimeData>
#include <QTextBlock>
#include <QWheelEvent>

#include "output/RichTextDocument.h"
#include "output/RtfReader.h"
#include "output/RtfWriter.h"
#include "tests/output/DocumentFixture.h"

namespace quorvin {
namespace {

using test::text;

class DocumentEditTest : public test::DocumentTest {
protected:
    /// Into the empty box.
    void paste(const char* type, const QByteArray& bytes)
    {
        box().clear();
        auto* source = new QMimeData;
        source->setData(QLatin1String(type), bytes);
        QApplication::clipboard()->setMimeData(source);
        box().paste();
    }
};

TEST_F(DocumentEditTest, TheBarFormatsWhatIsSelected)
{
    choose("impostadoc");
    write("abc");
    box().selectAll();
    for (const char* button : {"bold", "italic", "underline", "alignRight"}) {
        click(button);
        EXPECT_EQ(form_->focusWidget(), &box()) << button;
    }
    dialogs_.colour = QColor(1, 2, 3);
    click("colour");
    const auto typeInto = [this](const char* name, const char* words, Qt::Key end = Qt::Key_Return) {
        QLineEdit& line = *control<QComboBox>(name).lineEdit();
        line.setFocus();
        line.selectAll();
        QTest::keyClicks(&line, text(words));
        QTest::keyClick(&line, end);
    };
    typeInto("fontSize", "2");
    EXPECT_EQ(formatAt(0).fontPointSize(), 2);
    typeInto("fontSize", "24");
    const int steps = box().document()->availableUndoSteps();
    typeInto("fontSize", "17,5");
    EXPECT_EQ(box().document()->availableUndoSteps(), steps + 1);
    typeInto("fontName", "dejavu sans");
    for (const char* nonsense : {"9999", "", "x"}) {
        typeInto("fontSize", nonsense);
        typeInto("fontName", nonsense);
    }
    EXPECT_EQ(control<QComboBox>("fontSize").currentText(), text("17.5"));
    EXPECT_EQ(control<QComboBox>("fontName").currentText(), text("DejaVu Sans"));
    typeInto("fontSize", "40", Qt::Key_Escape);
    EXPECT_EQ(formatAt(0).fontPointSize(), 17.5);
    typeInto("fontSize", "300", Qt::Key_Backspace);
    click("italic");
    click("italic");
    EXPECT_EQ(formatAt(0).fontPointSize(), 30);
    typeInto("fontSize", "17,5", Qt::Key_Tab);
    // By keys one stays in the list, from the size that is.
    control("fontSize").setFocus();
    QTest::keyClick(&control("fontSize"), Qt::Key_Down);
    EXPECT_EQ(form_->focusWidget(), &control("fontSize"));
    EXPECT_EQ(formatAt(0).fontPointSize(), 18);
    QTest::keyClick(&control("fontSize"), Qt::Key_Up);
    QWheelEvent wheel(QPointF(9, 9), control("fontSize").mapToGlobal(QPointF(9, 9)), {}, {0, 120},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&control("fontSize"), &wheel);
    const QTextCharFormat format = formatAt(0);
    EXPECT_TRUE(format.fontWeight() == QFont::Bold && format.fontItalic() && format.fontUnderline());
    EXPECT_EQ(format.foreground().color(), QColor(1, 2, 3));
    EXPECT_EQ(format.fontPointSize(), 16);
    EXPECT_EQ(format.fontFamilies().toStringList(), QStringList({text("DejaVu Sans")}));
    EXPECT_TRUE(box().alignment() & Qt::AlignRight);

    // And it follows the caret.
    openWith("{\\rtf1\\b Uno\\b0\\par\\qc due\\par}");
    choose("impostadoc");
    const auto isDown = [this](const char* name) { return control<QAbstractButton>(name).isChecked(); };
    select(2, 2);
    EXPECT_TRUE(isDown("bold") && isDown("alignLeft"));
    select(5, 5);
    EXPECT_TRUE(!isDown("bold") && isDown("alignCentre"));
}

TEST(RichTextDocument, KeepsWhatItHolds)
{
    const RichText original = readRtf(
        "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}{\\f1 Courier New;}}{\\colortbl ;\\red255;\\green128\\blue1;}"
        "\\i\\par\\i0\\qc\\f0\\fs33\\b "
        "Titolo\\par\\pard\\qr\\par\\pard\\qj\\li720\\ri360\\fi-300\\tx1000\\tqr\\tx2000\\tqc\\tx3000"
        "\\tqdec\\tx4000\\plain\\f1\\fs20\\i\\ul a\\tab\\strike\\cf1 b\\line\\highlight2 "
        "c\\'e8\\u322?\\u-10179?\\u-8704?"
        "\\par\\pard\\ql\\plain\\f1 fine\\par\\par}");
    ASSERT_EQ(original.paragraphs().size(), 6U);
    QTextDocument document;
    setRichText(document, original);
    EXPECT_EQ(toRichText(document), original);
    EXPECT_FALSE(document.isUndoAvailable());
}

TEST_F(DocumentEditTest, WhatIsPastedIsBroughtDownToWhatATemplateKeeps)
{
    choose("impostadoc");
    const std::pair<const char*, QByteArray> cases[] = {
        {"text/html",
         "<ul><li><b>uno</b> due</li></ul><table><tr><td>a<img src='x.png'></td><td>b</td></tr></table>"},
        {"text/rtf", "{\\rtf1 {\\pntext \\'95\\tab}\\b uno\\b0  due\\par a\\par b\\par}"},
    };
    for (const auto& [type, data] : cases) {
        paste(type, data);
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
    paste("text/html", "<p style='font-size:16px; background:transparent'>a");
    EXPECT_EQ(box().content().runs()[0].format.halfPoints, 24);
    EXPECT_FALSE(box().content().runs()[0].format.background);
    paste("text/html", "<p style='text-indent:-99999999px; font-size:99999pt'>a<p>b");
    EXPECT_EQ(box().content().paragraphs()[0].firstIndent, -kMostTwips);
    EXPECT_EQ(box().content().runs()[0].format.halfPoints, kMostHalfPoints);
}

TEST_F(DocumentEditTest, NoMoreGoesInThanIsKept)
{
    choose("impostadoc");
    const QByteArray many = QByteArray("a ").repeated(131072);
    for (const char* type : {"text/plain", "text/html", "text/rtf"}) {
        paste(type, (type == std::string("text/rtf") ? "{\\rtf1 " : "") + many + "a ");
        EXPECT_EQ(shown(), QString()) << type;
    }
    paste("text/plain", QByteArray(5000, 'a'));
    EXPECT_EQ(box().wordWrapMode(), QTextOption::WrapAnywhere) << "a word of pages would take seconds";
    box().clear();
    paste("text/plain", many);
    write("b");
    click("Text2(1)");
    EXPECT_EQ(shown().size(), many.size());
    // In place of something there is room.
    select(1, 17);
    click("Text2(1)");
    write("b");
    EXPECT_EQ(shown().size(), many.size());
    EXPECT_EQ(shown().mid(1, 16), text("*(1)*          b"));
}

TEST_F(DocumentEditTest, AnEmptyClipboardChangesNothing)
{
    choose("impostadoc");
    write("a");
    QApplication::clipboard()->setMimeData(new QMimeData);
    box().paste();
    EXPECT_EQ(shown(), text("a"));
    control<QPlainTextEdit>("Text5").paste();
    EXPECT_EQ(printed(), QString());
}

TEST_F(DocumentEditTest, WhatIsCutComesBackAsItWas)
{
    openWith("{\\rtf1{\\fonttbl{\\f0 Arial;}}\\qc Uno\\par\\pard\\qr\\li300\\tx3000\\tab\\b "
             "due\\line\\par\\pard tre\\par}");
    choose("impostadoc");
    const RichText before = box().content();
    box().selectAll();
    box().cut();
    box().paste();
    EXPECT_EQ(writeRtf(box().content()), writeRtf(before));
    select(4, 9);
    box().cut();
    box().paste();
    EXPECT_EQ(writeRtf(box().content()), writeRtf(before));
    // To others it is RTF; whole paragraphs bring their formats, a word takes those of its line.
    select(0, 4);
    box().copy();
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasFormat(text("text/rtf")));
    const auto last = int(shown().size());
    select(last - 3, last - 3);
    box().paste();
    const RichText pasted = box().content();
    EXPECT_EQ(pasted.text(), U"Uno\n\tdue\u2028\nUno\ntre");
    EXPECT_EQ(pasted.paragraphs()[2].alignment, Alignment::centre);
    EXPECT_EQ(pasted.paragraphs()[3], before.paragraphs()[2]);
    select(0, 3);
    box().copy();
    select(5, 8);
    box().paste();
    EXPECT_EQ(box().content().paragraphs()[1], before.paragraphs()[1]);
    // A marker is a step of its own, and what is typed is not undone with it.
    box().setContent(before);
    select(2, 2);
    write("xy");
    click("Text2(1)");
    box().undo();
    EXPECT_TRUE(shown().startsWith(text("Unxyo")));
}

TEST_F(DocumentEditTest, TheLetterFontStaysWhateverHappensToTheWindow)
{
    choose("documento");
    QWheelEvent wheel(QPointF(9, 9), box().mapToGlobal(QPointF(9, 9)), {}, {0, 120}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(box().viewport(), &wheel);
    const QFont before = QApplication::font();
    QApplication::setFont(QFont(text("DejaVu Sans"), 7));
    choose("impostadoc");
    write("a");
    QApplication::setFont(before);
    EXPECT_EQ(box().content().runs()[0].format, CharFormat());
}

TEST_F(DocumentEditTest, TabsStandWhereTheyStandOnPaper)
{
    // Half an inch in and a quarter out: the other lines' beginning is a stop between the paragraph's own.
    openWith("{\\rtf1\\li720\\fi-360\\tx576\\tx2160 .\\tab a\\tab b\\tab c\\par\\pard\\tab d\\par}");
    choose("impostadoc");
    const double inch = box().logicalDpiX();
    const auto inchesAt = [&](int position) {
        QTextCursor cursor(box().document());
        cursor.setPosition(position);
        return (box().cursorRect(cursor).x() - box().document()->documentMargin()) / inch;
    };
    const std::pair<int, double> places[] = {{0, 0.25}, {2, 0.4}, {4, 0.5}, {6, 1.5}, {9, 0.5}};
    for (const auto& [position, inches] : places)
        EXPECT_NEAR(inchesAt(position), inches, 0.03) << position;
}

TEST_F(DocumentEditTest, EnterBeginsAParagraphBehindAnEmptyOneToo)
{
    choose("impostadoc");
    click("alignRight");
    for (const auto key : {Qt::Key_A, Qt::Key_Return, Qt::Key_Return, Qt::Key_Enter, Qt::Key_B})
        QTest::keyClick(&box(), key);
    EXPECT_EQ(box().toPlainText().count(QLatin1Char('\n')), 3);
    EXPECT_EQ(box().textCursor().blockFormat().alignment(), Qt::AlignRight);
}

TEST_F(DocumentEditTest, TabIsTextWhileItCanBe)
{
    openWith("a");
    choose("impostadoc");
    QTest::keyClick(&box(), Qt::Key_Tab);
    EXPECT_EQ(shown(), text("\ta"));
    QTest::keyClick(&box(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_NE(form_->focusWidget(), &box());
    choose("documento");
    box().setFocus();
    QTest::keyClick(&box(), Qt::Key_Tab);
    EXPECT_NE(form_->focusWidget(), &box());
}

}  // namespace
}  // namespace quorvin
