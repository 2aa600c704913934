#include "stats/StatPanel.h"

#include <QScopedValueRollback>
#include <exception>

#include "base/RuntimeError.h"
#include "search/SearchPanel.h"
#include "stats/ChartBinder.h"
#include "stats/ChartView.h"
#include "stats/StatGridView.h"
#include "view/AnsiText.h"
#include "view/Dialogs.h"
#include "view/FormScale.h"
#include "view/MenuState.h"
#include "view/Messages.h"
#include "view/Navigator.h"
#include "view/Utf8.h"

namespace quorvin {

namespace {

const QString kFreq = QStringLiteral("freq");
const QString kTabella = QStringLiteral("tabella");
const QString kAccorpa = QStringLiteral("accorpa");
const QString kSommaCampNum = QStringLiteral("SommaCampNum");
const QString kGrafImpost = QStringLiteral("GrafImpost");
const QString kMenExcel = QStringLiteral("MenExcel");

/// Pitch of the grid's font in columns of the form.
constexpr double kPitch = 0.9;

}  // namespace

StatPanel::StatPanel(const StatParts& parts, QWidget* form) :
    QObject(form),
    parts_(parts),
    run_(parts.recFile.fields()),
    frame_(new StatFrame(form)),
    printout_(frame_->chart(), parts.recFile, parts.dialogs)
{
    frame_->hide();
    connect(frame_, &StatFrame::closeRequested, this, &StatPanel::closeFrame);
    connect(frame_, &StatFrame::enlarged, this, &StatPanel::placesChanged);
    connect(&parts_.search, &SearchPanel::ended, this, &StatPanel::present);
    run_.askOptions = [this] {
        frame_->blank();
        return options();
    };
    parts_.search.addConsumer(run_);
    connectMenu();
}

void StatPanel::connectMenu()
{
    parts_.menu.onClicks<StatPanel>(*this, {{kFreq, &StatPanel::freq_Click},
                                            {kTabella, &StatPanel::tabella_Click},
                                            {kAccorpa, &StatPanel::accorpa_Click},
                                            {kSommaCampNum, &StatPanel::SommaCampNum_Click},
                                            {kGrafImpost, &StatPanel::GrafImpost_Click},
                                            {kMenExcel, &StatPanel::MenExcel_Click}});
}

void StatPanel::reset()
{
    run_.clear();
    ownFont_ = false;
    frame_->grid().setGridFont(usualFont_);
    closeFrame();
}

void StatPanel::setScale(const FormScale& scale)
{
    usualFont_ = scale.squeezedFont(kPitch);
    if (!ownFont_) frame_->grid().setGridFont(usualFont_);
}

void StatPanel::setGridFont(const QFont& font)
{
    if (!parts_.menu.isAnyTicked(MenuState::kCountingModes)) return;
    ownFont_ = true;
    frame_->grid().setGridFont(font);
}

// The modes

void StatPanel::freq_Click()
{
    toggleMode(kFreq);
}

void StatPanel::tabella_Click()
{
    toggleMode(kTabella);
}

void StatPanel::toggleMode(const QString& mode)
{
    if (parts_.menu.isAnyTicked({"stamp1", "stamp2", "impostadoc"})) return;
    parts_.menu.setMode(mode, !parts_.menu.isTicked(mode));
    closeFrame();
    emit azzeravarRequested();
    emit cancellaRequested();
    emit modeChanged();
}

void StatPanel::accorpa_Click()
{
    run_.table.inizioData = parts_.menu.toggle(kAccorpa) ? StatTable::kDayLength : 0;
}

void StatPanel::SommaCampNum_Click()
{
    parts_.menu.toggle(kSommaCampNum);
}

void StatPanel::GrafImpost_Click()
{
    parts_.menu.setMode(kGrafImpost, !parts_.menu.isTicked(kGrafImpost));
}

void StatPanel::MenExcel_Click()
{
    parts_.menu.setMode(kMenExcel, !parts_.menu.isTicked(kMenExcel));
}

// The table

/// What the search that starts now is to count.
StatOptions StatPanel::options() const
{
    StatOptions options;
    if (parts_.menu.isTicked(kFreq)) options.mode = StatMode::freq;
    if (parts_.menu.isTicked(kTabella)) options.mode = StatMode::tabella;
    options.SelectedFields = parts_.selections.SelectedFields;
    options.accorpa = parts_.menu.isTicked(kAccorpa);
    options.SommaCampNum = parts_.menu.isTicked(kSommaCampNum);
    return options;
}

/// After a search: its table, or none.
void StatPanel::present()
{
    if (!run_.isReady()) {
        closeFrame();
        return;
    }
    const QScopedValueRollback<bool> presenting(presenting_, true);
    try {
        grigliastat();
    } catch (const std::exception&) {
        run_.clear();
        closeFrame();
        parts_.dialogs.message(BoxIcon::critical,
                               fromUtf8Text(messages::kError) + fromUtf8Text(currentError().description()));
    }
}

void StatPanel::grigliastat()
{
    const QString title = run_.options().mode == StatMode::freq
                              ? QStringLiteral("frequenza - rekord contati: %1")
                              : QStringLiteral("tabella - rekord contati: %1");
    frame_->showGrid(run_.grid(), title.arg(run_.table.total()));
    frame_->show();
    emit placesChanged();
    emit tableShown();
    frame_->grid().setFocus();
    const QString error = parts_.menu.isTicked(kGrafImpost) ? showChart() : QString();
    const bool fullY = run_.table.isFullY();
    const bool fullX = run_.table.isFullX();
    run_.clear();
    if (fullY) warn(error, messages::kLimitY);
    if (fullX) warn(error, messages::kLimitX);
}

void StatPanel::warn(const QString& error, const char* message)
{
    parts_.dialogs.message(BoxIcon::critical, error + fromUtf8Text(message));
}

/// Shows the chart, or says why there is none; returns the description of the error then.
QString StatPanel::showChart()
{
    try {
        bindChart();
        return {};
    } catch (const std::exception&) {
        QString error = fromUtf8Text(currentError().description());
        parts_.dialogs.message(BoxIcon::critical, fromUtf8Text(messages::kError) + error);
        return error;
    }
}

void StatPanel::bindChart()
{
    const StatMode mode = run_.options().mode;
    ChartView& chart = frame_->chart();
    chart.setChart(mode == StatMode::freq ? BindChartToArrays(run_.table, run_.captions())
                                          : Window_OnLoad(run_.table));
    frame_->showChart(true);
    const QString typed = parts_.dialogs.inputBox(fromUtf8Text(messages::kChartTitle), {});
    chart.setTitle(chartTitle(mode, toAnsi(typed), run_.captions()));
}

void StatPanel::closeFrame()
{
    if (frame_->isHidden()) return;
    const bool focusWithin = frame_->isAncestorOf(frame_->window()->focusWidget());
    frame_->hide();
    frame_->shrink();
    if (focusWithin) parts_.navigator.focusNext();
    emit placesChanged();
}

}  // namespace quorvin
