#include "search/SearchStatus.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QToolButton>
#include <algorithm>

#include "base/Text.h"
#include "view/AnsiText.h"

namespace quorvin {

namespace {

const QString kSearching = QStringLiteral("  ...ricerca in corso");
const QString kSearchDone = QStringLiteral("  ...fine ricerca");
const QString kUsualMode = QStringLiteral(" ricerca     *abcdef*");

constexpr int kProgressSteps = 1000;
constexpr int kNoticeWidth = 320;
constexpr int kProgressWidth = 140;

/// Milliseconds that a search may take before it shows its progress.
constexpr qint64 kMoment = 200;

}  // namespace

SearchStatus::SearchStatus(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 0);
    Label15 = addLabel(QStringLiteral("Label15"), QStringLiteral("tipo di ricerca"));
    layout->addWidget(new QLabel(QStringLiteral("trovati:"), this));
    Label3 = addLabel(QStringLiteral("Label3"), QStringLiteral("rekord trovati"));
    Label8 = addLabel(QStringLiteral("Label8"), QStringLiteral("criteri di ricerca"));
    layout->setStretchFactor(Label8, 1);
    // Long criteria are cut by the window's edge rather than widening the window.
    Label8->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    notice_ = addLabel(QStringLiteral("searchNotice"), QStringLiteral("file scritto dalla ricerca"));
    Label16 = addLabel(QStringLiteral("Label16"), QStringLiteral("stato della ricerca"));
    addProgress();
    reset();
    cancella();
}

void SearchStatus::addProgress()
{
    progress_ = new QProgressBar(this);
    progress_->setObjectName(QStringLiteral("searchProgress"));
    progress_->setAccessibleName(QStringLiteral("avanzamento della ricerca"));
    progress_->setRange(0, kProgressSteps);
    progress_->setFixedWidth(kProgressWidth);
    stop_ = new QToolButton(this);
    stop_->setObjectName(QStringLiteral("searchStop"));
    stop_->setText(QStringLiteral("ferma"));
    stop_->setToolTip(QStringLiteral("ferma (Esc)"));
    stop_->setFocusPolicy(Qt::NoFocus);
    connect(stop_, &QToolButton::clicked, this, &SearchStatus::stopRequested);
    layout()->addWidget(progress_);
    layout()->addWidget(stop_);
    // The form above keeps its height when they come and go.
    setMinimumHeight(std::max(stop_->sizeHint().height(), progress_->sizeHint().height()));
    progress_->hide();
    stop_->hide();
}

QLabel* SearchStatus::addLabel(const QString& name, const QString& purpose)
{
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setAccessibleName(purpose);
    label->setToolTip(purpose);
    layout()->addWidget(label);
    return label;
}

void SearchStatus::cancella()
{
    showHits(0);
    showCriteria({});
    showNotice({});
    hideState();
}

void SearchStatus::hideState()
{
    showDone();
    Label16->hide();
}

void SearchStatus::reset()
{
    Label15->setText(kUsualMode);
}

void SearchStatus::showMode(const QString& caption)
{
    Label15->setText(caption);
}

void SearchStatus::showHits(double count)
{
    Label3->setText(fromAnsi(str(count)));
}

void SearchStatus::showCriteria(const QString& criteria)
{
    Label8->setText(criteria);
    // The label may be too short for all of them.
    Label8->setToolTip(criteria.isEmpty() ? Label8->accessibleName() : criteria);
}

void SearchStatus::showNotice(const QString& text)
{
    // A long file name must not widen the window.
    notice_->setText(notice_->fontMetrics().elidedText(text, Qt::ElideMiddle, kNoticeWidth));
    notice_->setToolTip(text.isEmpty() ? notice_->accessibleName() : text);
}

void SearchStatus::showRunning()
{
    showRunning(kSearching);
    showNotice({});
}

void SearchStatus::showRunning(const QString& state)
{
    isRunning_ = true;
    Label16->setText(state);
    Label16->show();
    running_.start();
}

void SearchStatus::showDone()
{
    isRunning_ = false;
    Label16->setText(kSearchDone);
    progress_->hide();
    stop_->hide();
}

void SearchStatus::showProgress(double share)
{
    // The end of the records is not yet the end: a list may have to be put in order, for nobody knows how
    // long.
    progress_->setMaximum(share < 1 ? kProgressSteps : 0);
    progress_->setValue(qRound(share * kProgressSteps));
    const bool takesTime = isRunning_ && running_.elapsed() >= kMoment;
    progress_->setVisible(takesTime);
    stop_->setVisible(takesTime);
}

QWidget& SearchStatus::stopButton() const
{
    return *stop_;
}

}  // namespace quorvin
