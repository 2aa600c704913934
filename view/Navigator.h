/// The navigation row: steps through the records, goes to a typed number, shows number and count.
#pragma once

#include <QWidget>
#include <functional>

#include "rec/RecFormat.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace quorvin {

class RecFile;
class RecordView;
class StepButton;

/// Owns Command1 (next), Command2 (previous), Command3 (signal of deleted records; clears), Command5 (list
/// size), Text1, Label14, Label9 and the two repeat timers. Recounts the file before every move. What fails
/// ends the move without a box; a failed read leaves the boxes empty rather than with another record's
/// values.
class Navigator : public QWidget {
    Q_OBJECT

public:
    Navigator(RecFile& recFile, RecordView& recordView, QWidget* parent);

    /// Record on show, 1-based; 0 before the first one.
    RecordNumber currentRecord() const { return currentRecord_; }

    /// Puts a number on the clipboard and shows it and its record. Raises what reading raises; the boxes are
    /// then empty.
    void showRecord(RecordNumber n);
    /// The same for a hit that a search pauses at; the clipboard stays as it is.
    void showFound(RecordNumber n);
    /// Reads the record at the reading position and fills the boxes. Raises what reading raises; the boxes
    /// are then empty.
    void caricarekord();
    void showCount();
    /// Opens the file anew, counts its records and shows the count. Raises what RecFile::recount does.
    void recount();

    /// State without a file.
    void reset();
    /// State after opening a file: nothing on show, keys and buttons enabled.
    void start();

    /// Next and previous record. At the end, or the beginning, the record on show stays.
    void Command1_Click();
    void Command2_Click();
    /// What the step buttons do, as long as they are enabled.
    void pressNext();
    void pressPrevious();
    void focusNumber();
    void focusNext();
    /// Ends a hold of a step button.
    void stopRepeating();
    /// Puts a number into Text1, as typing does.
    void typeNumber(const QString& number);
    /// Names a button of the row, says what it is for, and keeps it as narrow as its caption allows.
    static void nameButton(QPushButton& button, const QString& name, const QString& purpose);
    /// Further controls, one or a row of them, placed before Command5, in the order of the calls.
    void insertTools(QWidget* tools);

signals:
    void epiDataRequested();
    void clearRequested();
    void expandRequested();
    /// A move that ended silently, with the reason.
    void moveFailed(const QString& reason);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void followInBox(RecordNumber n);
    void showNumber(RecordNumber n, const QString& caption);
    void showRecord(RecordNumber n, const QString& caption);
    void read(RecordNumber n);
    void showSignal(bool deleted);
    void makeNumberControls();
    void enableControls(bool enabled);
    void layOut();
    /// Runs one move; an error ends it.
    void attempt(const std::function<void()>& move);
    void Text1_Change();
    void Text1_KeyPress();

    RecFile& recFile_;
    RecordView& recordView_;
    RecordNumber currentRecord_ = 0;
    StepButton* Command1;
    StepButton* Command2;
    QPushButton* Command3;
    QPushButton* Command5;
    QLineEdit* Text1;
    QWidget* lastTool_ = nullptr;  ///< before Command5 for the Tab key
    QLabel* Label14;
    QLabel* Label9;
};

}  // namespace quorvin
