#include "app/PreferencesPanel.h"

#include <QCheckBox>

#include "app/ClickModes.h"
#include "app/FormCanvas.h"
#include "app/PreferencesFrame.h"
#include "output/PrintMatrix.h"
#include "rec/RecFile.h"
#include "view/Colours.h"
#include "view/Dialogs.h"
#include "view/MenuState.h"
#include "view/Messages.h"
#include "view/RecordView.h"
#include "view/Utf8.h"

namespace quorvin {

namespace {

const QString kCompEpidat = QStringLiteral("compEpidat");
const QString kImpostMaiusc = QStringLiteral("impostMaiusc");
const QString kAdatta600 = QStringLiteral("adatta600");

}  // namespace

PreferencesPanel::PreferencesPanel(const PreferencesParts& parts, QObject* form) :
    QObject(form),
    parts_(parts)
{
    parts_.menu.onClicks<PreferencesPanel>(*this, {{kImpostMaiusc, &PreferencesPanel::impostMaiusc_Click},
                                                   {kCompEpidat, &PreferencesPanel::compEpidat_Click},
                                                   {kAdatta600, &PreferencesPanel::adatta600_Click}});
    connect(parts_.Frame10.Check1, &QCheckBox::clicked, this, &PreferencesPanel::Check1_Click);
    connect(parts_.Frame10.Check3, &QCheckBox::clicked, this, &PreferencesPanel::Check3_Click);
}

void PreferencesPanel::Check1_Click()
{
    const bool counting = parts_.menu.isAnyTicked(MenuState::kCountingModes);
    const bool choosing = parts_.menu.isTicked(QStringLiteral("impmat"));
    const bool original = parts_.Frame10.Check1->isChecked() && !choosing && !counting;
    const QColor ofMode = counting ? paletteColour(kCountingColour) : QColor();
    const QColor ofFile = original ? paletteColour(parts_.recFile.screenColour()) : QColor();
    parts_.recordView.useFileColours(original);
    parts_.recordView.setLabelColour(ofMode);
    parts_.canvas.setFormColour(counting ? ofMode : ofFile);
}

void PreferencesPanel::Check3_Click()
{
    if (!parts_.Frame10.Check3->isChecked()) return;
    parts_.Frame10.Check4->setChecked(false);
    parts_.Frame10.Check4->setEnabled(false);
    if (parts_.matrix.entries.empty())
        parts_.dialogs.message(BoxIcon::exclamation, fromUtf8Text(messages::kEmptyMatrix));
}

void PreferencesPanel::impostMaiusc_Click()
{
    parts_.recFile.impostMaiusc = parts_.menu.toggle(kImpostMaiusc);
}

void PreferencesPanel::compEpidat_Click()
{
    setCompatible(!parts_.menu.isTicked(kCompEpidat));
}

void PreferencesPanel::setCompatible(bool compatible)
{
    parts_.menu.setTicked(kCompEpidat, compatible);
    parts_.recordView.setCompatible(compatible);
}

void PreferencesPanel::adatta600_Click()
{
    emit adatta600Changed(parts_.menu.toggle(kAdatta600));
}

}  // namespace quorvin
