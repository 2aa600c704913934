/// What holds in the window at every moment, whatever the user has done before.
#pragma once

#include <QHash>
#include <QList>
#include <QMap>
#include <QStringList>

class QAction;
class QWidget;

namespace quorvin::test {

/// Which ticks go together, what they switch off, and what shows them: written down once more, and kept apart
/// from the program's own tables, to hold the window against.
class WindowRules {
public:
    /// `form` must outlive the rules.
    explicit WindowRules(const QWidget& form);

    /// The rules that are broken now, each in words.
    QStringList broken() const;

    bool isTicked(const char* item) const;
    bool isAnyTicked(const QStringList& items) const;
    /// Whether the user can choose the item: it and the menus that it stands in are enabled.
    bool isReachable(const QString& item) const;
    /// All items of the menus, separators left out.
    QStringList items() const { return actions_.keys(); }
    QAction& item(const QString& name) const { return *actions_.value(name); }

private:
    void addMenu(const QList<QAction*>& entries, const QString& parent);
    QStringList disabledNow() const;
    void checkTicks(QStringList& broken) const;
    void checkEnabled(QStringList& broken) const;
    void checkCaptions(QStringList& broken) const;
    void checkShown(QStringList& broken) const;

    const QWidget& form_;
    QMap<QString, QAction*> actions_;
    QHash<QString, QString> parents_;
    mutable QHash<QString, QWidget*> widgets_;
    QWidget* widget(const QString& name) const;
};

}  // namespace quorvin::test
