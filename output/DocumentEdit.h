/// A box for formatted text that holds nothing but what a template can keep, and no more.
#pragma once

#include <QTextEdit>

#include "output/RichText.h"

namespace quorvin {

/// What is pasted is brought down to the formats of RichText first; what is copied is RTF too. Tab is part of
/// the text while it can be edited; Ctrl+Tab leaves the box then.
class DocumentEdit : public QTextEdit {
    Q_OBJECT

public:
    explicit DocumentEdit(QWidget* parent);

    /// The text with its formats; setting it is no step that could be undone, and puts the caret at its
    /// beginning.
    RichText content() const;
    void setContent(const RichText& text);

    /// Puts `text` in place of the selection, formatted like its first character, or as typed text would be.
    void replaceSelection(const QString& text);
    /// Gives all of the text this font, as one step that can be undone.
    void setWholeFont(const QFont& font);

signals:
    /// Something was not put in, for the text would become longer than a document may be.
    void tooLong();

protected:
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool hasRoomFor(qsizetype characters);
    void insert(const RichText& text);
};

}  // namespace quorvin
