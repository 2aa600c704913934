#include "output/DocumentEdit.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QWheelEvent>

#include "output/RichTextDocument.h"
#include "output/RtfReader.h"
#include "output/RtfWriter.h"

namespace quorvin {

namespace {

/// Names under which systems hand RTF over.
constexpr char kWindowsRtf[] = "application/x-qt-windows-mime;value=\"Rich Text Format\"";
constexpr const char* kRtfTypes[] = {"text/rtf", "application/rtf", "text/richtext", kWindowsRtf};

QByteArray rtfOf(const QMimeData& source)
{
    for (const char* type : kRtfTypes) {
        QByteArray data = source.data(QLatin1String(type));
        if (isRtf({data.constData(), static_cast<std::size_t>(data.size())})) return data;
    }
    return {};
}

/// A word that goes over many lines takes a time that grows with the square of its length, seconds for the
/// longest, unless it may end wherever a line is full.
QTextOption::WrapMode wrapModeFor(std::u32string_view text)
{
    constexpr int kLongestWord = 4000;
    int length = 0;
    for (const char32_t c : text) {
        length = QChar::isSpace(c) ? 0 : length + 1;
        if (length > kLongestWord) return QTextOption::WrapAnywhere;
    }
    return QTextOption::WrapAtWordBoundaryOrAnywhere;
}

/// What is to be pasted, as far as RichText holds it.
RichText richTextOf(const QMimeData& source, const QFont& usual)
{
    const QByteArray rtf = rtfOf(source);
    if (!rtf.isEmpty()) return readRtf({rtf.constData(), static_cast<std::size_t>(rtf.size())});
    QTextDocument document;
    document.setDefaultFont(usual);
    document.setHtml(source.html());
    return toRichText(document);
}

}  // namespace

DocumentEdit::DocumentEdit(QWidget* parent) : QTextEdit(parent)
{
    // The document's own follows it.
    setFont(documentFont());
    // A file dropped anywhere on the window is to be opened.
    setAcceptDrops(false);
}

RichText DocumentEdit::content() const
{
    return toRichText(*document());
}

void DocumentEdit::setContent(const RichText& text)
{
    setWordWrapMode(wrapModeFor(text.text()));
    setRichText(*document(), text);
    moveCursor(QTextCursor::Start);
}

/// Whether so many characters more, in place of the selection, are not too many; says so when they are.
bool DocumentEdit::hasRoomFor(qsizetype characters)
{
    const QTextCursor cursor = textCursor();
    const qsizetype others =
        document()->characterCount() - 1 - (cursor.selectionEnd() - cursor.selectionStart());
    if (others + characters <= static_cast<qsizetype>(RichText::kMostCharacters)) return true;
    emit tooLong();
    return false;
}

void DocumentEdit::replaceSelection(const QString& text)
{
    if (!hasRoomFor(text.size())) return;
    QTextCursor cursor = textCursor();
    QTextCharFormat format = currentCharFormat();
    if (cursor.hasSelection()) {
        QTextCursor first(document());
        first.setPosition(cursor.selectionStart() + 1);
        format = first.charFormat();
    }
    // A step of its own for whoever undoes it.
    cursor.beginEditBlock();
    cursor.insertText(text, format);
    cursor.endEditBlock();
    setTextCursor(cursor);
    ensureCursorVisible();
}

void DocumentEdit::setWholeFont(const QFont& font)
{
    QTextCharFormat format;
    format.setFontFamilies({font.family()});
    format.setFontPointSize(font.pointSizeF());
    format.setFontWeight(font.bold() ? QFont::Bold : QFont::Normal);
    format.setFontItalic(font.italic());
    QTextCursor all(document());
    all.beginEditBlock();
    all.select(QTextCursor::Document);
    all.mergeBlockCharFormat(format);
    all.mergeCharFormat(format);
    all.endEditBlock();
    mergeCurrentCharFormat(format);
}

bool DocumentEdit::canInsertFromMimeData(const QMimeData* source) const
{
    return source->hasText() || source->hasHtml() || !rtfOf(*source).isEmpty();
}

void DocumentEdit::insertFromMimeData(const QMimeData* source)
{
    // Some versions of Qt crash on an empty clipboard.
    if (!canInsertFromMimeData(source)) return;
    const bool formatted = source->hasHtml() || !rtfOf(*source).isEmpty();
    const RichText text = formatted ? richTextOf(*source, document()->defaultFont()) : RichText();
    const auto added = formatted ? static_cast<qsizetype>(text.text().size()) : source->text().size();
    // A text that was cut because it is too long is too long.
    if (!hasRoomFor(text.isFull() ? added + 1 : added)) return;
    if (wordWrapMode() != QTextOption::WrapAnywhere)
        setWordWrapMode(wrapModeFor(formatted ? text.text() : source->text().toStdU32String()));
    if (formatted) {
        insert(text);
    } else {
        QTextEdit::insertFromMimeData(source);
    }
}

void DocumentEdit::insert(const RichText& text)
{
    QTextDocument clean;
    setRichText(clean, text);
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    const int begin = cursor.position();
    const QTextBlockFormat here = cursor.blockFormat();
    const bool atStart = cursor.atBlockStart();
    const bool blank = atStart && cursor.atBlockEnd();
    cursor.insertFragment(QTextDocumentFragment(&clean));
    QTextCursor first(document());
    first.setPosition(begin);
    // Whole paragraphs bring their formats along; what joins a paragraph that is there takes that one's.
    first.setBlockFormat(atStart && clean.blockCount() > 1 ? clean.firstBlock().blockFormat() : here);
    if (clean.blockCount() > 1)
        cursor.setBlockFormat(blank && clean.lastBlock().length() > 1 ? clean.lastBlock().blockFormat()
                                                                      : here);
    cursor.endEditBlock();
    setTextCursor(cursor);
    ensureCursorVisible();
}

QMimeData* DocumentEdit::createMimeDataFromSelection() const
{
    const QTextCursor cursor = textCursor();
    const QTextDocumentFragment fragment(cursor);
    const QString text = toPlainText();
    const auto charactersBefore = [&text](int position) {
        return static_cast<std::size_t>(text.left(position).toUcs4().size());
    };
    const RichText selected =
        content().part(charactersBefore(cursor.selectionStart()), charactersBefore(cursor.selectionEnd()));
    auto* copied = new QMimeData;
    copied->setText(fragment.toPlainText());
    copied->setHtml(fragment.toHtml());
    for (const char* type : {kRtfTypes[0], kWindowsRtf})
        copied->setData(QLatin1String(type), QByteArray::fromStdString(writeRtf(selected)));
    return copied;
}

void DocumentEdit::keyPressEvent(QKeyEvent* event)
{
    const bool tab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if (tab && (event->modifiers() & Qt::ControlModifier)) {
        const bool leaves = tabChangesFocus();
        setTabChangesFocus(true);
        focusNextPrevChild(event->key() == Qt::Key_Tab);
        setTabChangesFocus(leaves);
        return;
    }
    const bool enter = event->matches(QKeySequence::InsertParagraphSeparator);
    const bool typed = tab || enter || (!event->text().isEmpty() && event->text().front().isPrint());
    if (typed && !isReadOnly() && !hasRoomFor(1)) return;
    if (enter && !isReadOnly()) {
        // In an empty paragraph Qt's own Enter would take the format away instead of beginning another.
        textCursor().insertBlock();
        ensureCursorVisible();
        return;
    }
    QTextEdit::keyPressEvent(event);
}

void DocumentEdit::inputMethodEvent(QInputMethodEvent* event)
{
    if (event->commitString().isEmpty() || isReadOnly() || hasRoomFor(event->commitString().size())) {
        QTextEdit::inputMethodEvent(event);
    } else {
        // What was being composed goes.
        QInputMethodEvent nothing;
        QTextEdit::inputMethodEvent(&nothing);
    }
}

void DocumentEdit::wheelEvent(QWheelEvent* event)
{
    // With Ctrl it would change the font of what is typed into an empty document.
    if (event->modifiers() & Qt::ControlModifier) {
        event->ignore();
        return;
    }
    QTextEdit::wheelEvent(event);
}

}  // namespace quorvin
