#include "search/SearchStatus.h"

#include <QHBoxLayout>
#include <QLabel>

namespace quorvin {

namespace {

const QString kNoHits = QStringLiteral(" 0");
const QString kSearchDone = QStringLiteral("  ...fine ricerca");
const QString kUsualMode = QStringLiteral(" ricerca     *abcdef*");

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
    Label16 = addLabel(QStringLiteral("Label16"), QStringLiteral("stato della ricerca"));
    reset();
    cancella();
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
    Label3->setText(kNoHits);
    Label8->clear();
    Label16->setText(kSearchDone);
    Label16->hide();
}

void SearchStatus::reset()
{
    Label15->setText(kUsualMode);
}

}  // namespace quorvin
