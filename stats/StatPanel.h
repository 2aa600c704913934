/// Statistics as the user handles them: the two modes, what is counted and shown, and the chart.
#pragma once

#include <QObject>

#include "stats/ChartPrintout.h"
#include "stats/StatFrame.h"
#include "stats/StatRun.h"

namespace quorvin {

class Dialogs;
class FormScale;
class MenuState;
class Navigator;
class SearchPanel;
struct Selections;

/// The parts of the window that statistics work with; all must outlive the panel.
struct StatParts {
    const RecFile& recFile;
    const Selections& selections;
    Navigator& navigator;
    MenuState& menu;
    SearchPanel& search;
    Dialogs& dialogs;
};

/// Owns the table that searches fill while a mode is on, and the frame that shows it.
class StatPanel : public QObject {
    Q_OBJECT

public:
    StatPanel(const StatParts& parts, QWidget* form);

    /// What the window places.
    StatFrame& frame() { return *frame_; }
    /// Takes the table off the form.
    void closeFrame();
    /// The grid's usual font goes with the form's scale; one that was chosen for printing stays instead of it
    /// until another file is opened.
    void setScale(const FormScale& scale);
    void setGridFont(const QFont& font);

    /// While a table is being shown, which may take a box.
    bool isPresenting() const { return presenting_; }
    /// What prints the chart.
    Printout& chartPrintout() { return printout_; }

    /// State of a file just opened; ticks are the menu's business.
    void reset();

signals:
    /// The boxes are to be emptied; the search state is to be reset.
    void azzeravarRequested();
    void cancellaRequested();
    /// A mode was entered or left.
    void modeChanged();
    /// A table has come, which the window may have to scroll to.
    void tableShown();
    /// The frame came, went or changed its size.
    void placesChanged();

private:
    void connectMenu();
    void freq_Click();
    void tabella_Click();
    void toggleMode(const QString& mode);
    void accorpa_Click();
    void SommaCampNum_Click();
    void GrafImpost_Click();
    void MenExcel_Click();

    StatOptions options() const;
    void present();
    void grigliastat();
    QString showChart();
    void bindChart();
    void warn(const QString& error, const char* message);

    StatParts parts_;
    StatRun run_;
    StatFrame* frame_;
    ChartPrintout printout_;
    QFont usualFont_;
    bool ownFont_ = false;  ///< the grid has a font that was chosen for printing
    bool presenting_ = false;
};

}  // namespace quorvin
