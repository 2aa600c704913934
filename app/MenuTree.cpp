#include "app/MenuTree.h"

#include <QAbstractButton>
#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QWidget>
#include <utility>

#include "app/MenuTable.h"
#include "app/ModeTable.h"
#include "view/Utf8.h"

namespace quorvin {

namespace {

QString withAccessKey(const QString& caption, QChar key)
{
    const qsizetype place = key.isNull() ? -1 : caption.indexOf(key, 0, Qt::CaseInsensitive);
    return place < 0 ? caption : QString(caption).insert(place, QLatin1Char('&'));
}

}  // namespace

MenuTree::MenuTree(QMenuBar& bar)
{
    for (const MenuRow& row : menuTable())
        add(row, bar);
    reset();
}

void MenuTree::add(const MenuRow& row, QMenuBar& bar)
{
    const QString name = fromUtf8Text(row.name);
    QMenu* parent = menus_.value(fromUtf8Text(row.parent));
    QAction* action = nullptr;
    if (row.kind == MenuKind::menu) {
        QMenu* menu = parent ? parent->addMenu(QString()) : bar.addMenu(QString());
        menu->setObjectName(name);
        menus_.insert(name, menu);
        action = menu->menuAction();
    } else {
        action = parent ? parent->addAction(QString()) : bar.addAction(QString());
        action->setObjectName(name);
        action->setSeparator(row.kind == MenuKind::separator);
        action->setCheckable(row.tick != Tick::none);
        action->setShortcut(QKeySequence::fromString(fromUtf8Text(row.shortcut), QKeySequence::PortableText));
        // On some systems items named like these are moved to another menu.
        action->setMenuRole(QAction::NoRole);
    }
    items_.insert(name, action);
    accessKeys_.insert(name, QLatin1Char(row.accessKey));
}

QAction& MenuTree::item(const QString& name) const
{
    QAction* action = items_.value(name);
    Q_ASSERT_X(action, "MenuTree::item", qPrintable(name));
    return *action;
}

bool MenuTree::isTicked(const QString& name) const
{
    return item(name).isChecked();
}

void MenuTree::setTicked(const QString& name, bool ticked)
{
    item(name).setChecked(ticked);
}

void MenuTree::setMode(const QString& name, bool on)
{
    for (const ModeRow& mode : modeTable()) {
        if (fromUtf8Text(mode.name) != name) continue;
        for (const std::string_view other : on ? mode.unticks : mode.unticksAtEnd)
            untick(fromUtf8Text(other));
    }
    setTicked(name, on);
    refresh();
}

/// A control or an item.
void MenuTree::untick(const QString& name)
{
    for (QWidget* control : std::as_const(controls_)) {
        auto* box = qobject_cast<QAbstractButton*>(control);
        if (!box || box->objectName() != name) continue;
        box->setChecked(false);
        return;
    }
    setTicked(name, false);
}

QString MenuTree::caption(const QString& name) const
{
    QString caption = item(name).text();
    const QChar key = accessKeys_.value(name);
    return key.isNull() ? caption : caption.remove(caption.indexOf(QLatin1Char('&')), 1);
}

void MenuTree::onClick(const QString& name, const std::function<void()>& handler)
{
    QAction* action = &item(name);
    QObject::connect(action, &QAction::triggered, action, [this, action, handler] {
        // Qt has set the tick already.
        if (action->isCheckable()) action->toggle();
        if (!isBlocked()) handler();
    });
}

void MenuTree::setCaption(const QString& name, const QString& caption)
{
    item(name).setText(withAccessKey(caption, accessKeys_.value(name)));
}

void MenuTree::reset()
{
    for (const MenuRow& row : menuTable()) {
        if (row.kind == MenuKind::separator) continue;
        const QString name = fromUtf8Text(row.name);
        if (row.tick == Tick::on || row.tick == Tick::off) setTicked(name, row.tick == Tick::on);
    }
    refresh();
}

void MenuTree::setFileOpen(bool open)
{
    fileOpen_ = open;
    refresh();
}

void MenuTree::refresh()
{
    QSet<QString> disabled;
    QSet<QString> enabled;
    QHash<QString, QString> captions;
    for (const ModeRow& mode : modeTable()) {
        if (!isTicked(fromUtf8Text(mode.name))) continue;
        for (const std::string_view name : mode.disables)
            disabled.insert(fromUtf8Text(name));
        for (const std::string_view name : mode.enables)
            enabled.insert(fromUtf8Text(name));
        captions.insert(fromUtf8Text(mode.menu), fromUtf8Text(mode.caption));
    }
    for (const MenuRow& row : menuTable()) {
        const QString name = fromUtf8Text(row.name);
        const bool available = row.availability == Availability::always ||
                               (row.availability == Availability::withFile && fileOpen_) ||
                               (row.availability == Availability::inMode && enabled.contains(name));
        item(name).setEnabled(available && !disabled.contains(name));
        setCaption(name, captions.value(name, fromUtf8Text(row.caption)));
    }
    for (QWidget* control : std::as_const(controls_))
        control->setEnabled(!disabled.contains(control->objectName()));
}

}  // namespace quorvin
