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

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeFontBoxes();
    void makeEditable(QComboBox& box, const char* name, const QString& purpose, void (FormatBar::*take)());
    QToolButton* addButton(const char* name, const QString& purpose);
    QToolButton* addToggle(const char* name, const QString& caption, const QString& purpose,
                           const QKeySequence& keys);
    void makeToggles();
    void makeAlignments();
    void makeColour();
    void showFormat(const QTextCharFormat& format);
    void showAlignment();
    QColor colour() const;
    void apply(const QTextCharFormat& format);
    void applyAndGoOn(const QTextCharFormat& format);
    void applyFont();
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
    bool viaKeys_ = false;  ///< the last entry of a list was chosen by keyboard
};

}  // namespace quorvin
