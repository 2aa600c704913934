/// The row of controls that format a document: font, size, bold, italic, underline, alignment, colour.
#pragma once

#include <QWidget>

class QButtonGroup;
class QComboBox;
class QFontComboBox;
class QTextCharFormat;
class QToolButton;

namespace quorvin {

class Dialogs;
class DocumentEdit;

/// Follows the caret of its box, and formats the selection, or what is typed next.
class FormatBar : public QWidget {
    Q_OBJECT

public:
    /// All must outlive the bar.
    FormatBar(DocumentEdit& box, Dialogs& dialogs, QWidget* parent);

    /// Stands its controls behind this one for the Tab key; returns the last of them.
    QWidget* setTabOrderAfter(QWidget* control);

private:
    void makeFontBoxes();
    QToolButton* addButton(const char* name, const QString& purpose);
    QToolButton* addToggle(const char* name, const QString& caption, const QString& purpose,
                           const QKeySequence& keys);
    void makeToggles();
    void makeAlignments();
    void makeColour();
    void showFormat(const QTextCharFormat& format);
    void showAlignment();
    void apply(const QTextCharFormat& format);
    void applySize();
    void chooseColour();

    DocumentEdit& box_;
    Dialogs& dialogs_;
    QFontComboBox* font_;
    QComboBox* size_;
    QToolButton* bold_ = nullptr;
    QToolButton* italic_ = nullptr;
    QToolButton* underline_ = nullptr;
    QButtonGroup* alignments_;
    QToolButton* colour_ = nullptr;
};

}  // namespace quorvin
