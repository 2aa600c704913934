#include "search/SearchPanel.h"

#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <exception>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "search/HitListView.h"
#include "search/SearchStatus.h"
#include "view/AnsiText.h"
#include "view/FieldBox.h"
#include "view/MenuState.h"
#include "view/Navigator.h"
#include "view/RecordView.h"

namespace quorvin {

namespace {

const QString kElencorekord = QStringLiteral("elencorekord");
const QString kEliminapuntegg = QStringLiteral("eliminapuntegg");
const QString kMaxel = QStringLiteral("maxel");
const QString kNorec = QStringLiteral("norec");
const QString kRicparz = QStringLiteral("ricparz");
const QString kRictot = QStringLiteral("rictot");
const QString kSommcamp = QStringLiteral("sommcamp");
const QString kSort = QStringLiteral("sort");
const QString kUnirek = QStringLiteral("unirek");

QString modeItem(int index)
{
    return QStringLiteral("ric(%1)").arg(index);
}

}  // namespace

SearchPanel::SearchPanel(const SearchParts& parts, QWidget* form) :
    QObject(form),
    parts_(parts),
    driver_(parts.recFile),
    lists_(driver_.hits(), parts.navigator, parts.recordView, form),
    frame3_(new RangeFrame(QStringLiteral("Frame3"), QStringLiteral("ricerca parziale"),
                           QStringLiteral("Text3"), QStringLiteral("Text4"), Qt::Vertical, form)),
    norecSign_(new QLabel(QStringLiteral("X"), form)),
    run_(driver_, parts.status.stopButton(), this)
{
    frame3_->hide();
    norecSign_->setObjectName(QStringLiteral("norecSign"));
    norecSign_->setToolTip(QStringLiteral("i rekord cancellati in EpiData sono saltati"));
    norecSign_->hide();
    run_.showAndAsk = [this](RecordNumber n) { return showAndAsk(n); };
    connect(&run_, &SearchRun::progressed, this, [this] {
        showState();
        parts_.status.showProgress(driver_.progress());
    });
    connect(&run_, &SearchRun::failed, this, &SearchPanel::searchFailed);
    connect(&run_, &SearchRun::finished, this, &SearchPanel::finish);
    connect(&parts.status, &SearchStatus::stopRequested, &run_, &SearchRun::stop);
    connect(&lists_, &HitLists::failed, this, &SearchPanel::hitFailed);
    connect(&lists_, &HitLists::epiDataRequested, this, &SearchPanel::epiDataRequested);
    connect(&parts.recordView, &RecordView::Text2_KeyPress, this, &SearchPanel::Text2_KeyPress);
    connectMenu();
}

void SearchPanel::connectMenu()
{
    parts_.menu.onClicks<SearchPanel>(*this, {{kRictot, &SearchPanel::rictot_Click},
                                              {kRicparz, &SearchPanel::ricparz_Click},
                                              {kNorec, &SearchPanel::norec_Click},
                                              {kEliminapuntegg, &SearchPanel::eliminapuntegg_Click},
                                              {kUnirek, &SearchPanel::unirek_Click},
                                              {kElencorekord, &SearchPanel::elencorekord_Click},
                                              {kSort, &SearchPanel::sort_Click},
                                              {kMaxel, &SearchPanel::maxel_Click}});
    for (int i = 1; i <= kSearchModes; ++i)
        parts_.menu.onClick(modeItem(i), [this, i] { ric_Click(i); });
}

// Options

SearchMode SearchPanel::mode() const
{
    for (int i = 1; i <= kSearchModes; ++i) {
        if (parts_.menu.isTicked(modeItem(i))) return static_cast<SearchMode>(i);
    }
    return kUsualMode;
}

void SearchPanel::ric_Click(int index)
{
    const auto chosen = static_cast<SearchMode>(index);
    if (parts_.menu.isTicked(kUnirek) && !worksWithJoinedFields(chosen)) {
        emit hint(QStringLiteral("modo non disponibile con \"unisci campi rekord\""));
        return;
    }
    setMode(index);
    if (!testsFieldByField(chosen)) parts_.menu.setTicked(kEliminapuntegg, false);
}

void SearchPanel::setMode(int index)
{
    for (int i = 1; i <= kSearchModes; ++i)
        parts_.menu.setTicked(modeItem(i), i == index);
    parts_.status.showMode(parts_.menu.caption(modeItem(index)) + QLatin1Char(' '));
}

void SearchPanel::rictot_Click()
{
    parts_.menu.setTicked(kRictot, true);
    parts_.menu.setTicked(kRicparz, false);
    frame3_->hide();
    emit placesChanged();
}

void SearchPanel::ricparz_Click()
{
    parts_.menu.setTicked(kRicparz, true);
    parts_.menu.setTicked(kRictot, false);
    frame3_->from->clear();
    frame3_->to->clear();
    frame3_->show();
    frame3_->from->setFocus();
    emit placesChanged();
}

void SearchPanel::norec_Click()
{
    norecSign_->setVisible(parts_.menu.toggle(kNorec));
}

void SearchPanel::eliminapuntegg_Click()
{
    const bool ticked = parts_.menu.toggle(kEliminapuntegg);
    emit azzeravarRequested();
    emit cancellaRequested();
    if (!ticked || testsFieldByField(mode())) return;
    parts_.menu.setTicked(kEliminapuntegg, false);
    emit hint(QStringLiteral("\"elimina puntegg.\" vale per i primi cinque modi di ricerca"));
}

void SearchPanel::unirek_Click()
{
    if (parts_.menu.isTicked(kSommcamp)) return;
    if (parts_.menu.toggle(kUnirek) && !worksWithJoinedFields(mode())) setMode(static_cast<int>(kUsualMode));
    // With their highlights the fields lose all that they were chosen for.
    parts_.selections.clear();
    parts_.recordView.clearHighlights();
    parts_.navigator.focusNext();
}

void SearchPanel::elencorekord_Click()
{
    parts_.menu.toggle(kElencorekord);
    parts_.menu.setTicked(kSort, false);
    emit azzeravarRequested();
    emit cancellaRequested();
    showLists();
}

void SearchPanel::sort_Click()
{
    if (!parts_.menu.isTicked(kElencorekord)) {
        emit hint(QStringLiteral("\"ordine alfabetico ricerca\" richiede \"elenco rekord\""));
        return;
    }
    parts_.menu.toggle(kSort);
    lists_.empty();
    driver_.hits().clear();
    parts_.status.showHits(0);
    showLists();
}

void SearchPanel::maxel_Click()
{
    parts_.menu.toggle(kMaxel);
    emit placesChanged();
}

void SearchPanel::showLists()
{
    lists_.show(parts_.menu.isTicked(kElencorekord), parts_.menu.isTicked(kSort));
    emit placesChanged();
}

void SearchPanel::cancella()
{
    lists_.empty();
    driver_.clear();
}

void SearchPanel::reset()
{
    lists_.show(false, false);
    frame3_->hide();
    norecSign_->hide();
    emit placesChanged();
}

void SearchPanel::setTabOrderAfter(QWidget* control)
{
    QWidget* const controls[] = {frame3_->from, frame3_->to, lists_.List1, lists_.List2};
    for (QWidget* next : controls) {
        if (control) QWidget::setTabOrder(control, next);
        control = next;
    }
}

// The run

void SearchPanel::Text2_KeyPress(int index)
{
    const FieldBox* box = parts_.recordView.Text2(index);
    if (isSearching() || !box || box->text().isEmpty()) return;
    // Fields are being chosen for something else; those of the search are out of sight.
    if (parts_.menu.isAnyTicked({"impmat", "impostadoc"})) return;
    const FieldList& selection = parts_.selections.searchSelection;
    if (selection.empty()) emit fieldChosen(index);
    if (selection.empty()) return;
    if (parts_.menu.isTicked(kRicparz) && frame3_->from->text().isEmpty()) frame3_->from->setFocus();
    start(query(index));
}

SearchQuery SearchPanel::query(int startField) const
{
    SearchQuery query;
    query.mode = mode();
    query.selection = parts_.selections.searchSelection;
    for (int i = 1; i <= query.selection.count(); ++i) {
        const FieldBox* box = parts_.recordView.Text2(query.selection.at(i));
        query.texts.push_back(box ? toAnsi(box->text()) : std::string());
    }
    query.joinList = parts_.selections.joinList;
    query.startField = startField;
    if (parts_.menu.isTicked(kRicparz)) query.range = frame3_->range();
    query.norec = parts_.menu.isTicked(kNorec);
    query.eliminapuntegg = parts_.menu.isTicked(kEliminapuntegg);
    query.unirek = parts_.menu.isTicked(kUnirek);
    query.elencorekord = parts_.menu.isTicked(kElencorekord);
    query.sort = parts_.menu.isTicked(kSort);
    query.maxel = parts_.menu.isTicked(kMaxel);
    query.Check2 = Check2;
    return query;
}

void SearchPanel::start(const SearchQuery& query)
{
    lists_.empty();
    // A box may come before anything is tested, and the range may be wrong.
    parts_.status.cancella();
    parts_.navigator.stopRepeating();
    // What was said before must not stand over the progress.
    emit hint({});
    SearchDriver::Started started = SearchDriver::Started::running;
    const QScopedValueRollback<bool> starting(starting_, true);
    try {
        started = driver_.start(query);
        parts_.navigator.showCount();
    } catch (const std::exception&) {
        const RuntimeError error = currentError();
        showState();
        emit searchFailed(error);
        emit ended();
        return;
    }
    showState();
    if (started == SearchDriver::Started::badEnd) frame3_->to->setFocus();
    if (started != SearchDriver::Started::running) {
        emit ended();
        return;
    }
    parts_.status.showRunning();
    run_.start();
}

/// Hits and criteria as they stand.
void SearchPanel::showState()
{
    parts_.status.showHits(driver_.hitCount());
    parts_.status.showCriteria(fromAnsi(driver_.criteria()));
    lists_.update(!run_.isRunning());
    emit stateShown();
}

bool SearchPanel::showAndAsk(RecordNumber n)
{
    parts_.navigator.showFound(n);
    showState();
    return continuo();
}

void SearchPanel::finish(bool refused)
{
    parts_.status.showDone();
    if (refused) {
        emit azzeravarRequested();
        emit cancellaRequested();
    }
    showState();
    // On to the hits, if there are any to go through.
    QWidget* list = lists_.shown();
    if (list && driver_.hits().rowCount() > 0) list->setFocus();
    emit ended();
}

void SearchPanel::abandon()
{
    lists_.empty();
    run_.abandon();
}

}  // namespace quorvin
