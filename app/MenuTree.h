/// The menu bar, built from the menu table, and the one place that enables and disables its items.
#pragma once

#include <QChar>
#include <QHash>
#include <QList>
#include <QString>

#include "view/MenuState.h"

class QAction;
class QMenuBar;
class QMenu;
class QWidget;

namespace quorvin {

struct MenuRow;

/// Whether an item is enabled follows from three things only: its row, whether a file is open, and the modes
/// that are on; a top-level menu's caption follows from the modes. So whatever a mode changed is back when it
/// ends.
class MenuTree : public MenuState {
public:
    /// Fills `bar`; actions and menus get their row's name as objectName.
    explicit MenuTree(QMenuBar& bar);

    /// The item, or the entry of a menu or submenu, of that name; it exists for every row of the table.
    QAction& item(const QString& name) const;
    bool isTicked(const QString& name) const override;
    void setTicked(const QString& name, bool ticked) override;
    void setMode(const QString& name, bool on) override;
    QString caption(const QString& name) const override;
    void onClick(const QString& name, const std::function<void()>& handler) override;

    /// Asked at each click; while it says so, clicks do nothing.
    std::function<bool()> isBlocked = [] { return false; };

    /// Has modes disable a control that is no menu item, or untick a box, by its objectName; it must outlive
    /// the tree's use.
    void addControl(QWidget& control) { controls_.append(&control); }

    /// Every tick as at the start that does not last for the run; all modes are left.
    void reset();

    void setFileOpen(bool open);
    /// Brings all enabled states and captions up to date with the modes' ticks.
    void refresh();

private:
    void add(const MenuRow& row, QMenuBar& bar);
    void untick(const QString& name);
    void setCaption(const QString& name, const QString& caption);

    QHash<QString, QAction*> items_;
    QHash<QString, QMenu*> menus_;
    QHash<QString, QChar> accessKeys_;
    QList<QWidget*> controls_;
    bool fileOpen_ = false;
};

}  // namespace quorvin
