/// The print file on the form: Text5, with what belongs to it in a line above.
#pragma once

#include <QFrame>
#include <cstddef>

class QLabel;
class QPlainTextEdit;
class QToolButton;

namespace quorvin {

class PrintFile;
class RangeFrame;

/// Owns Text5 (the print file's text, which the user may change before it is printed) and Frame8 with Text8
/// and Text9, the interval of "stampa rekord".
class PrintFrame : public QFrame {
    Q_OBJECT

public:
    explicit PrintFrame(QWidget* parent);

    /// Brings the box up to date with the print file, and says how much of its capacity is taken. What the
    /// user changed stays until the print file begins anew.
    void show(const PrintFile& printFile);
    using QFrame::show;
    /// The text of the box, lines separated by LF.
    QString text() const;
    void setTextFont(const QFont& font);
    QFont textFont() const;
    void focusText();

    RangeFrame& Frame8() { return *frame8_; }
    /// Stands the frame's controls behind this one for the Tab key.
    void setTabOrderAfter(QWidget* control);
    /// Whether the user may close the frame.
    void setClosable(bool closable);
    bool isClosable() const;

signals:
    /// A click in one of the boxes.
    void Text8_Click();
    void Text9_Click();
    /// Text9's number was changed; Enter in it.
    void Text9_Change();
    void Text9_KeyPress();
    /// The user wants it closed.
    void closeRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void layOut();
    void showFill();

    RangeFrame* frame8_;
    QPlainTextEdit* Text5;
    QLabel* fill_;
    QToolButton* close_;
    bool enterIsDown_ = false;  ///< since it was pressed in Text9
    int edition_ = -1;          ///< of what is shown
    std::size_t shown_ = 0;     ///< and how much of it
    bool full_ = false;         ///< something did not fit
};

}  // namespace quorvin
