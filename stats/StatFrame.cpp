#include "stats/StatFrame.h"

#include <QHBoxLayout>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "stats/ChartView.h"
#include "stats/StatGridView.h"
#include "view/TitleLabel.h"

namespace quorvin {

StatFrame::StatFrame(QWidget* parent) :
    QFrame(parent),
    title_(new TitleLabel({}, this)),
    grid_(new StatGridView(this)),
    chart_(new ChartView(this))
{
    setObjectName(QStringLiteral("statFrame"));
    setAccessibleName(QStringLiteral("statistica"));
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    title_->setObjectName(QStringLiteral("statTitle"));

    auto* head = new QHBoxLayout;
    head->addWidget(title_);
    head->addStretch();
    zoomOut_ = addButton(*head, QStringLiteral("−"), QStringLiteral("grafico più stretto (-)"));
    zoomIn_ = addButton(*head, QStringLiteral("+"), QStringLiteral("grafico più largo (+)"));
    enlarge_ = addButton(*head, QStringLiteral("□"), QStringLiteral("ingrandisci"));
    enlarge_->setCheckable(true);
    enlarge_->setObjectName(QStringLiteral("enlarge"));
    close_ = addButton(*head, QStringLiteral("×"), QStringLiteral("chiudi (Esc)"));
    connect(zoomOut_, &QToolButton::clicked, chart_, &ChartView::zoomOut);
    connect(zoomIn_, &QToolButton::clicked, chart_, &ChartView::zoomIn);
    connect(enlarge_, &QToolButton::clicked, this, &StatFrame::enlarged);
    connect(close_, &QToolButton::clicked, this, &StatFrame::closeRequested);

    auto* both = new QSplitter(this);
    both->setChildrenCollapsible(false);
    both->addWidget(grid_);
    both->addWidget(chart_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 4);
    layout->setSpacing(2);
    layout->addLayout(head);
    layout->addWidget(both, 1);
    showChart(false);
}

QToolButton* StatFrame::addButton(QHBoxLayout& row, const QString& caption, const QString& purpose)
{
    auto* button = new QToolButton(this);
    button->setText(caption);
    button->setAutoRaise(true);
    button->setAccessibleName(purpose);
    button->setToolTip(purpose);
    row.addWidget(button);
    return button;
}

void StatFrame::showGrid(StatGrid grid, const QString& title)
{
    showChart(false);
    title_->setText(title);
    grid_->setGrid(std::move(grid));
}

void StatFrame::blank()
{
    showGrid({}, {});
}

void StatFrame::showChart(bool shown)
{
    for (QWidget* part : std::initializer_list<QWidget*>{chart_, zoomOut_, zoomIn_})
        part->setVisible(shown);
}

bool StatFrame::isEnlarged() const
{
    return enlarge_->isChecked();
}

void StatFrame::shrink()
{
    enlarge_->setChecked(false);
}

void StatFrame::setTabOrderAfter(QWidget* control)
{
    QWidget* const controls[] = {grid_, chart_, zoomOut_, zoomIn_, enlarge_, close_};
    for (QWidget* next : controls) {
        setTabOrder(control, next);
        control = next;
    }
}

}  // namespace quorvin
