/// The search as the user handles it: options, Enter in a field, the run and its results.
#pragma once

#include <QObject>
#include <functional>

#include "search/HitLists.h"
#include "search/RangeFrame.h"
#include "search/SearchDriver.h"
#include "search/SearchRun.h"
#include "view/Selections.h"

class QLabel;

namespace quorvin {

class MenuState;
class Navigator;
class RecordView;
class SearchStatus;

/// The parts of the window that a search works with; all must outlive the panel.
struct SearchParts {
    RecFile& recFile;
    Selections& selections;
    RecordView& recordView;
    Navigator& navigator;
    MenuState& menu;
    SearchStatus& status;
};

/// Owns the driver, the lists, Frame3 and the sign of skipped records. Options are ticks of the menu items of
/// their names.
class SearchPanel : public QObject {
    Q_OBJECT

public:
    SearchPanel(const SearchParts& parts, QWidget* form);

    /// What the window places: the lists, the range of a partial search, and the "X" that says that deleted
    /// records are skipped.
    HitLists& lists() { return lists_; }
    RangeFrame& Frame3() { return *frame3_; }
    /// Its place in form units: above the lists, also when they are wide.
    static constexpr QRectF kFrame3Place{99, 2.1, 24.125, 3.8};
    QLabel& norecSign() { return *norecSign_; }

    /// Enter in the box of a field: searches, unless the box is empty.
    void Text2_KeyPress(int index);

    /// Stands range and lists behind a control, the last field's box, for the Tab key.
    void setTabOrderAfter(QWidget* control);

    /// From Enter until the results stand, boxes included.
    bool isSearching() const { return starting_ || run_.isRunning(); }
    /// Has one that wants to see what is found take part in all searches; it must outlive the panel.
    void addConsumer(SearchConsumer& consumer) { driver_.addConsumer(consumer); }

    /// Ends a search at once because the window closes or another file is opened.
    void abandon();

    /// Part of the window's `cancella`: no hits.
    void cancella();
    /// State of a file just opened; ticks are the menu's business.
    void reset();

    /// "visualizza ultimi due campi di ricerca".
    bool Check2 = false;
    /// Asks "continuo?".
    std::function<bool()> continuo;

signals:
    /// The boxes are to be emptied; the search state is to be reset.
    void azzeravarRequested();
    void cancellaRequested();
    /// A field is to be chosen as by a click.
    void fieldChosen(int index);
    /// An error that ended a search; one that ended a click on a line.
    void searchFailed(const RuntimeError& error);
    void hitFailed(const RuntimeError& error);
    void epiDataRequested();
    /// The lists or Frame3 came, went or changed their size.
    void placesChanged();
    /// A search is over and its results stand, or it could not begin.
    void ended();
    /// The results that a search has so far were brought up to date.
    void stateShown();
    /// Something worth a word in passing; an empty text takes the last one back.
    void hint(const QString& text);

private:
    void connectMenu();
    void ric_Click(int index);
    void rictot_Click();
    void ricparz_Click();
    void norec_Click();
    void eliminapuntegg_Click();
    void unirek_Click();
    void elencorekord_Click();
    void sort_Click();
    void maxel_Click();

    SearchMode mode() const;
    SearchQuery query(int startField) const;
    void start(const SearchQuery& query);
    bool showAndAsk(RecordNumber n);
    void showState();
    void finish(bool refused);
    void setMode(int index);
    void showLists();

    SearchParts parts_;
    SearchDriver driver_;
    HitLists lists_;
    RangeFrame* frame3_;
    QLabel* norecSign_;
    SearchRun run_;
    bool starting_ = false;  ///< a search is being prepared, perhaps by a box
};

}  // namespace quorvin
