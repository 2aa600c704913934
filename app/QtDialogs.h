/// The boxes of the running program.
#pragma once

#include <QStringList>

#include "view/Dialogs.h"

class QWidget;

namespace quorvin {

/// Qt's standard dialogs, in front of the given window.
class QtDialogs : public Dialogs {
public:
    /// `window`: the program's window; must outlive the calls.
    void setWindow(QWidget* window) { window_ = window; }

    void message(BoxIcon icon, const QString& text) override;
    bool question(BoxIcon icon, const QString& text, const QString& title) override;
    QString openFile(const QString& filter, const QString& folder) override;
    QString saveFile(const QString& filter, const QString& name) override;
    QString inputBox(const QString& prompt, const QString& text) override;
    std::optional<QFont> chooseFont(const QString& title, const QFont& font) override;
    std::optional<QColor> chooseColour(const QColor& colour) override;
    bool setUpPrinter(QPrinter& printer) override;
    bool openOutside(const QString& file) override;

private:
    QWidget* window_ = nullptr;
};

/// Qt's name filters for pairs of description and pattern separated by bars. The pattern for all files also
/// takes names without a full stop.
QStringList nameFilters(const QString& filter);

}  // namespace quorvin
