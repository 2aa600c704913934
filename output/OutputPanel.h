/// Printing as the user handles it: the two print modes, the print file, the printer.
#pragma once

#include <QObject>

#include "output/IntervalPrint.h"
#include "output/PrintFile.h"
#include "output/PrintFrame.h"
#include "output/Printer.h"
#include "search/SliceTimer.h"

class QPushButton;

namespace quorvin {

class Dialogs;
class MenuState;
class Navigator;
class PrintMatrix;
class Printout;
class RecordView;
class SearchPanel;
class SearchStatus;

/// The parts of the window that printing works with; all must outlive the panel.
struct OutputParts {
    RecFile& recFile;
    const PrintMatrix& matrix;
    RecordView& recordView;
    Navigator& navigator;
    MenuState& menu;
    SearchPanel& search;
    SearchStatus& status;
    Dialogs& dialogs;
};

/// Owns the print file and its frame, the printer and Command4.
class OutputPanel : public QObject {
    Q_OBJECT

public:
    OutputPanel(const OutputParts& parts, QWidget* form);

    /// What the window places.
    PrintFrame& printFrame() { return *frame_; }
    QPushButton& Command4() { return *command4_; }

    /// While the records of an interval are being printed.
    bool isPrinting() const { return timer_.isRunning(); }
    /// Ends that at once because the window closes or another file is opened.
    void abandon();

    /// Takes the print file off the form, unless a print mode is on or it is not there.
    void closeFrame();

    /// Has Command4 print this while it is shown; it must outlive the panel's use.
    void addPrintout(Printout& printout) { printouts_.append(&printout); }

    /// The font that the printer is set to, apart from what the print file shows.
    void setPrinterFont(const QFont& font) { printer_.font = font; }

    /// State of a file just opened, or of none; ticks are the menu's business.
    void reset(bool fileOpen);

signals:
    /// The boxes are to be emptied; the search state is to be reset.
    void azzeravarRequested();
    void cancellaRequested();
    /// A print mode began or ended.
    void modeChanged();
    /// The print frame came or went.
    void placesChanged();
    /// A font was chosen for all that is printed.
    void fontChosen(const QFont& font);
    /// Something worth a word in passing.
    void hint(const QString& text);

private:
    void connectMenu();
    void stamp1_Click();
    void stamp2_Click();
    void Text8_Click();
    void Text9_Click();
    void Text9_Change();
    void Text9_KeyPress();
    void prefstamp_Click();
    void impoststamp_Click();
    void stampcol_Click();
    void Command4_Click();

    Printout* shownPrintout() const;
    void print(const Printer::Drawing& drawing);
    void begin();
    void warnOfEmptyMatrix();
    bool printFor(qint64 milliseconds);
    void printSome();
    void stopInterval();
    void endInterval();
    void showPrintFile();
    void followModes();

    OutputParts parts_;
    PrintFile printFile_;
    IntervalPrint interval_;
    PrintFrame* frame_;
    QPushButton* command4_;
    Printer printer_;
    QList<Printout*> printouts_;
    SliceTimer timer_;
};

}  // namespace quorvin
