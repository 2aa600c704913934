#include "tests/app/WindowRules.h"

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <vector>

namespace quorvin::test {

namespace {

QStringList names(const char* separatedByBlanks)
{
    return QString::fromLatin1(separatedByBlanks).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

struct Rule {
    const char* ticked;
    QStringList neverWith;
    QStringList disables = {};
    const char* menu = nullptr;
    const char* caption = nullptr;
};

const QStringList kOffWhilePrinting = names("impmat stat esporta documento impostadoc preferenze");
const QStringList kOffWhileCounting =
    names("stampa Check1 Check3 esporta documento impostadoc preferenze ric1 sommcamp grigliarek");
const QStringList kCounting = names("freq tabella");

const std::vector<Rule> kRules = {
    {"preferenze", names("freq tabella stamp1 stamp2 impostadoc"),
     names("esporta stat stampa documento impostadoc")},
    {"impmat", names("unirek documento impostadoc stamp1 stamp2 freq tabella"),
     names("opz stamp1 stamp2 stat Check1"), "stampa", "IMPOSTA MATRICE"},
    {"stamp1", names("stamp2 documento impostadoc freq tabella"), kOffWhilePrinting + names("Frame3"),
     "stampa", "STAMPA REKORD"},
    {"stamp2", names("documento impostadoc freq tabella"), kOffWhilePrinting, "stampa", "STAMPA RICERCA"},
    {"impostadoc", names("documento freq tabella"), names("esporta stampa stat preferenze")},
    {"freq", names("tabella"), kOffWhileCounting, "stat", "STATISTICA"},
    {"tabella", {}, kOffWhileCounting, "stat", "STATISTICA"},
    {"creamat1", names("creamat2 creamatutto"), {}, "esporta", "ESPORTA/IMPORTA"},
    {"creamat2", names("creamatutto"), {}, "esporta", "ESPORTA/IMPORTA"},
    {"creamatutto", {}, {}, "esporta", "ESPORTA/IMPORTA"},
    {"unirek", names("ric(8)")},
    {"eliminapuntegg", names("ric(6) ric(7) ric(8)")},
    {"rictot", names("ricparz")},
};

const QHash<QString, QString> kTopCaptions = {
    {QStringLiteral("indice"), QStringLiteral("  File")},
    {QStringLiteral("cercarekord"), QStringLiteral(" Cerca rekord")},
    {QStringLiteral("stampa"), QStringLiteral(" Stampa")},
    {QStringLiteral("opz"), QStringLiteral(" Opzioni")},
    {QStringLiteral("stat"), QStringLiteral("Statistica")},
    {QStringLiteral("esporta"), QStringLiteral("Esporta/Importa")},
    {QStringLiteral("EpiData"), QStringLiteral(" EpiData")},
    {QStringLiteral("inf"), QStringLiteral(" ?")},
};

const QStringList kWithoutFile = names("indice aprifile esci inf note limiti versione");
const QStringList kNotInThisVersion = names("sortgrid campx campy adattaColonna sommcamp ric1 ric1(1) "
                                            "ric1(2) ric1(3) ric1(4) ric1(5) ric1(6) ric1(7) "
                                            "ric1(8) grigliarek MenExcel sostituisci cancellarec Importa");
const QStringList kOnlyWhileCounting = names("accorpa SommaCampNum GrafImpost");

const QStringList kModes = names("ric(1) ric(2) ric(3) ric(4) ric(5) ric(6) ric(7) ric(8)");

QString captionOf(const QAction& action)
{
    return action.text().remove(QLatin1Char('&'));
}

}  // namespace

WindowRules::WindowRules(const QWidget& form) : form_(form)
{
    addMenu(static_cast<const QMainWindow&>(form).menuBar()->actions(), {});
}

void WindowRules::addMenu(const QList<QAction*>& entries, const QString& parent)
{
    for (QAction* action : entries) {
        if (action->isSeparator()) continue;
        const QMenu* menu = action->menu();
        const QString name = menu ? menu->objectName() : action->objectName();
        actions_.insert(name, action);
        parents_.insert(name, parent);
        if (menu) addMenu(menu->actions(), name);
    }
}

QWidget* WindowRules::widget(const QString& name) const
{
    QWidget*& known = widgets_[name];
    if (!known) known = form_.findChild<QWidget*>(name);
    return known;
}

bool WindowRules::isTicked(const char* item) const
{
    return actions_.value(QLatin1String(item))->isChecked();
}

bool WindowRules::isAnyTicked(const QStringList& items) const
{
    return std::any_of(items.begin(), items.end(),
                       [this](const QString& name) { return item(name).isChecked(); });
}

bool WindowRules::isReachable(const QString& item) const
{
    for (QString name = item; !name.isEmpty(); name = parents_.value(name))
        if (!actions_.value(name)->isEnabled()) return false;
    return true;
}

QStringList WindowRules::broken() const
{
    QStringList broken;
    checkTicks(broken);
    checkEnabled(broken);
    checkCaptions(broken);
    checkShown(broken);
    return broken;
}

void WindowRules::checkTicks(QStringList& broken) const
{
    for (const Rule& rule : kRules) {
        for (const QString& other : rule.neverWith)
            if (isTicked(rule.ticked) && item(other).isChecked())
                broken += QLatin1String(rule.ticked) + QStringLiteral(" together with ") + other;
    }
    const auto chosen =
        std::count_if(kModes.begin(), kModes.end(), [this](const QString& m) { return item(m).isChecked(); });
    if (chosen != 1) broken += QStringLiteral("search modes ticked: %1").arg(chosen);
    if (!isTicked("rictot") && !isTicked("ricparz")) broken += QStringLiteral("neither rictot nor ricparz");
    if (isTicked("sort") && !isTicked("elencorekord")) broken += QStringLiteral("sort without elencorekord");
    if (isAnyTicked(kOnlyWhileCounting) && !isAnyTicked(kCounting))
        broken += QStringLiteral("statistics option without statistics");
    if (isAnyTicked(kNotInThisVersion)) broken += QStringLiteral("ticked, though not in this version");
}

QStringList WindowRules::disabledNow() const
{
    QStringList disabled;
    for (const Rule& rule : kRules)
        if (isTicked(rule.ticked)) disabled += rule.disables;
    return disabled;
}

void WindowRules::checkEnabled(QStringList& broken) const
{
    const bool fileOpen = widget(QStringLiteral("Label7"))->isHidden();
    const bool counting = isAnyTicked(kCounting);
    const QStringList disabled = disabledNow();
    for (auto entry = actions_.begin(); entry != actions_.end(); ++entry) {
        const QString& name = entry.key();
        const bool exists =
            !kNotInThisVersion.contains(name) && (counting || !kOnlyWhileCounting.contains(name));
        const bool expected = (fileOpen || kWithoutFile.contains(name)) && exists && !disabled.contains(name);
        // What stands in a disabled menu counts as disabled by itself or not, as it likes.
        if (entry.value()->isEnabled() != expected && isReachable(parents_.value(name)))
            broken += name + (expected ? QStringLiteral(" is disabled") : QStringLiteral(" is enabled"));
    }
    for (const char* name : {"Check1", "Check3", "Frame3"})
        if (widget(QLatin1String(name))->isEnabledTo(widget(QLatin1String(name))->parentWidget()) ==
            disabled.contains(QLatin1String(name)))
            broken += QLatin1String(name) + QStringLiteral(" is wrongly enabled or disabled");
}

void WindowRules::checkCaptions(QStringList& broken) const
{
    QHash<QString, QString> captions = kTopCaptions;
    for (const Rule& rule : kRules)
        if (rule.menu && isTicked(rule.ticked))
            captions[QLatin1String(rule.menu)] = QLatin1String(rule.caption);
    for (auto caption = captions.begin(); caption != captions.end(); ++caption)
        if (captionOf(item(caption.key())) != caption.value())
            broken += caption.key() + QStringLiteral(" reads ") + captionOf(item(caption.key()));
    const QString mode = static_cast<QLabel*>(widget(QStringLiteral("Label15")))->text();
    for (const QString& name : kModes)
        if (item(name).isChecked() && mode.trimmed() != captionOf(item(name)))
            broken += name + QStringLiteral(" is ticked, Label15 reads ") + mode;
}

void WindowRules::checkShown(QStringList& broken) const
{
    const struct {
        const char* name;
        bool shown;
    } kParts[] = {
        {"Frame3", isTicked("ricparz")},
        {"Frame5", isTicked("limiti")},
        {"Frame6", isTicked("versione")},
        {"Frame7", isTicked("note")},
        {"Frame8", isTicked("stamp1")},
        {"Frame9", isTicked("documento") || isTicked("impostadoc")},
        {"Frame10", isTicked("preferenze")},
        {"norecSign", isTicked("norec")},
        {"List1", isTicked("elencorekord") && !isTicked("sort")},
        {"List2", isTicked("sort")},
    };
    for (const auto& part : kParts)
        if (widget(QLatin1String(part.name))->isHidden() == part.shown)
            broken += QLatin1String(part.name) +
                      (part.shown ? QStringLiteral(" is hidden") : QStringLiteral(" is shown"));
    const bool printing = isTicked("stamp1") || isTicked("stamp2");
    if (printing && widget(QStringLiteral("printFrame"))->isHidden())
        broken += QStringLiteral("no print file is shown");
    if (!isAnyTicked(kCounting) && !widget(QStringLiteral("statFrame"))->isHidden())
        broken += QStringLiteral("a table is shown without statistics");
}

}  // namespace quorvin::test
