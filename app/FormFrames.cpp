#include "app/FormFrames.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCoreApplication>
#include <QRectF>

#include "app/BuiltInTexts.h"
#include "app/FormCanvas.h"
#include "app/FullGuide.h"
#include "app/GuideFrame.h"
#include "app/MenuTree.h"
#include "app/PreferencesFrame.h"
#include "app/TextFrame.h"
#include "view/Messages.h"
#include "view/Utf8.h"

namespace quorvin {

namespace {

/// Places on the form: left, top, width, height in columns and lines.
constexpr QRectF kGuidePlace(3, 3, 84, 37);
constexpr QRectF kLimitsPlace(40, 8, 56, 18);
constexpr QRectF kVersionPlace(44, 12, 56, 11);
constexpr QRectF kPreferencesPlace(78, 3, 44, 11);

TextFrame* makeText(const char* name, const char* title, const char* box, const char* text, QWidget* parent)
{
    return new TextFrame(QLatin1String(name), fromUtf8Text(title), QLatin1String(box), text, parent);
}

}  // namespace

FormFrames::FormFrames(MenuTree& menu, FormCanvas& canvas, Dialogs& dialogs) :
    QObject(&canvas),
    Frame10(new PreferencesFrame(&canvas)),
    menu_(menu),
    canvas_(canvas),
    Frame5(makeText("Frame5", messages::kLimitsFrame, "Text6", limitsText(), &canvas)),
    Frame6(makeText("Frame6", messages::kVersionFrame, "versionText", versionText(), &canvas)),
    Frame7(new GuideFrame(&canvas))
{
    add(QStringLiteral("note"), Frame7, kGuidePlace);
    add(QStringLiteral("limiti"), Frame5, kLimitsPlace);
    add(QStringLiteral("versione"), Frame6, kVersionPlace);
    add(QStringLiteral("preferenze"), Frame10, kPreferencesPlace);
    connect(Frame7, &GuideFrame::fullGuideRequested, this,
            [&dialogs] { openFullGuide(dialogs, QCoreApplication::applicationDirPath()); });
    menu_.onClick(QStringLiteral("note"), [this] { note_Click(); });
    menu_.onClick(QStringLiteral("limiti"), [this] { limiti_Click(); });
    menu_.onClick(QStringLiteral("versione"), [this] { versione_Click(); });
}

void FormFrames::add(const QString& menu, TitledFrame* frame, const QRectF& place)
{
    frame->hide();
    canvas_.place(frame, place);
    connect(frame, &TitledFrame::closeRequested, &menu_.item(menu), &QAction::trigger);
}

void FormFrames::preferenze_Click()
{
    toggle(QStringLiteral("preferenze"), Frame10);
    // A mode may keep the first box.
    if (Frame10->isVisible()) (Frame10->Check1->isEnabled() ? Frame10->Check1 : Frame10->Check2)->setFocus();
}

void FormFrames::note_Click()
{
    toggle(QStringLiteral("note"), Frame7);
}

void FormFrames::limiti_Click()
{
    toggle(QStringLiteral("limiti"), Frame5);
}

void FormFrames::versione_Click()
{
    toggle(QStringLiteral("versione"), Frame6);
}

void FormFrames::toggle(const QString& menu, QWidget* frame)
{
    const bool shown = !menu_.isTicked(menu);
    menu_.setMode(menu, shown);
    QWidget* focus = canvas_.window()->focusWidget();
    const bool focusWithin = focus && frame->isAncestorOf(focus);
    if (shown && !qobject_cast<TitledFrame*>(focus ? focus->parentWidget() : nullptr)) focusBefore_ = focus;
    frame->setVisible(shown);
    if (shown) frame->raise();
    if (!shown && focusWithin && focusBefore_) focusBefore_->setFocus();
}

bool FormFrames::closeTop()
{
    TitledFrame* top = nullptr;
    for (QObject* child : canvas_.children()) {
        auto* frame = qobject_cast<TitledFrame*>(child);
        if (frame && frame->isVisible()) top = frame;
    }
    if (top) emit top->closeRequested();
    return top != nullptr;
}

}  // namespace quorvin
