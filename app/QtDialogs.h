/// The boxes of the running program.
#pragma once

#include <QStringList>

#include "app/Dialogs.h"

class QWidget;

namespace quorvin {

/// Qt's standard dialogs, in front of the given window.
class QtDialogs : public Dialogs {
public:
    /// `window`: the program's window; must outlive the calls.
    void setWindow(QWidget* window) { window_ = window; }

    void message(BoxIcon icon, const QString& text) override;
    bool question(BoxIcon icon, const QString& text) override;
    QString openFile(const QString& filter, const QString& folder) override;

private:
    QWidget* window_ = nullptr;
};

/// Qt's name filters for pairs of description and pattern separated by bars. The pattern for all files also
/// takes names without a full stop.
QStringList nameFilters(const QString& filter);

}  // namespace quorvin
