#include "app/PreferencesFrame.h"

#include <QCheckBox>
#include <QVBoxLayout>

#include "view/Messages.h"

namespace quorvin {

PreferencesFrame::PreferencesFrame(QWidget* parent) :
    TitledFrame(QStringLiteral("Frame10"), QLatin1String(messages::kPreferencesFrame), parent),
    Check1(addBox(QStringLiteral("Check1"), QStringLiteral("colori file originali"))),
    Check2(addBox(QStringLiteral("Check2"), QStringLiteral("visualizza ultimi due campi di ricerca"))),
    Check3(addBox(QStringLiteral("Check3"), QStringLiteral("griglie campi selez."))),
    Check4(addBox(QStringLiteral("Check4"), QStringLiteral("foglio Excel ")))
{
    content()->addStretch();
    Check4->setEnabled(false);
}

QCheckBox* PreferencesFrame::addBox(const QString& name, const QString& caption)
{
    auto* box = new QCheckBox(caption, this);
    box->setObjectName(name);
    content()->addWidget(box);
    return box;
}

}  // namespace quorvin
