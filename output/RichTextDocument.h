/// The step between formatted text and the window's text document.
#pragma once

#include "output/RichText.h"

class QFont;
class QTextCharFormat;
class QTextDocument;

namespace quorvin {

/// The font of a document box: what text without a font of its own is in.
QFont documentFont();

/// A character's format as the window has it.
QTextCharFormat toQt(const CharFormat& format);

/// What RichText can hold of a document, which may come from elsewhere: pictures go, cells become paragraphs,
/// bullets and numbers of lists become text.
RichText toRichText(const QTextDocument& document);

/// Replaces the document's content, as no step that could be undone.
void setRichText(QTextDocument& document, const RichText& text);

}  // namespace quorvin
