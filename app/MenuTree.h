/// The menu bar, built from the menu table, and the one place that enables and disables its items.
#pragma once

#include <QChar>
#include <QHash>
#include <QString>

#include "view/MenuState.h"

class QAction;
class QMenuBar;
class QMenu;

namespace quorvin {

struct MenuRow;

/// Whether an item is enabled follows from three things only: its row, whether a file is open, and the modes
/// that are on. So whatever a mode disabled is enabled again when it ends.
class MenuTree : public MenuState {
public:
    /// Fills `bar`; actions and menus get their row's name as objectName.
    explicit MenuTree(QMenuBar& bar);

    /// The item, or the entry of a menu or submenu, of that name; it exists for every row of the table.
    QAction& item(const QString& name) const;
    bool isTicked(const QString& name) const override;
    void setTicked(const QString& name, bool ticked) override;
    QString caption(const QString& name) const override;
    void onClick(const QString& name, const std::function<void()>& handler) override;

    /// Asked at each click; while it says so, clicks do nothing.
    std::function<bool()> isBlocked = [] { return false; };

    /// Replaces a caption; keeps its access key.
    void setCaption(const QString& name, const QString& caption);

    /// Every caption as at the start, and every tick that does not last for the run.
    void reset();

    void setFileOpen(bool open);
    /// Brings all enabled states up to date; to be called when a mode was entered or left.
    void refresh();

private:
    void add(const MenuRow& row, QMenuBar& bar);

    QHash<QString, QAction*> items_;
    QHash<QString, QMenu*> menus_;
    QHash<QString, QChar> accessKeys_;
    bool fileOpen_ = false;
};

}  // namespace quorvin
