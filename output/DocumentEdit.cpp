#include "output/DocumentEdit.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QTextDocumentFragment>

#include "output/RichTextDocument.h"
#include "output/RtfReader.h"

namespace quorvin {

namespace {

/// Names under which systems hand RTF over.
constexpr const char* kRtfTypes[] = {"text/rtf", "application/rtf", "text/richtext",
                                     "application/x-qt-windows-mime;value=\"Rich Text Format\""};

QByteArray rtfOf(const QMimeData& source)
{
    for (const char* type : kRtfTypes) {
        QByteArray data = source.data(QLatin1String(type));
        if (isRtf({data.constData(), static_cast<std::size_t>(data.size())})) return data;
    }
    return {};
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
    document()->setDefaultFont(documentFont());
    // A file dropped anywhere on the window is to be opened.
    setAcceptDrops(false);
}

RichText DocumentEdit::content() const
{
    return toRichText(*document());
}

void DocumentEdit::setContent(const RichText& text)
{
    setRichText(*document(), text);
    moveCursor(QTextCursor::Start);
}

void DocumentEdit::replaceSelection(const QString& text)
{
    QTextCursor cursor = textCursor();
    QTextCharFormat format = currentCharFormat();
    if (cursor.hasSelection()) {
        QTextCursor first(document());
        first.setPosition(cursor.selectionStart() + 1);
        format = first.charFormat();
    }
    cursor.insertText(text, format);
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
    const bool formatted = source->hasHtml() || !rtfOf(*source).isEmpty();
    const RichText text = formatted ? richTextOf(*source, document()->defaultFont()) : RichText();
    const auto added = formatted ? static_cast<qsizetype>(text.text().size()) : source->text().size();
    if (document()->characterCount() + added > static_cast<qsizetype>(RichText::kMostCharacters)) {
        emit tooLong();
        return;
    }
    if (formatted) {
        QTextDocument clean;
        setRichText(clean, text);
        textCursor().insertFragment(QTextDocumentFragment(&clean));
        ensureCursorVisible();
    } else {
        QTextEdit::insertFromMimeData(source);
    }
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
    QTextEdit::keyPressEvent(event);
}

}  // namespace quorvin
