/// The boxes of a run that nobody watches.
#pragma once

#include "view/Dialogs.h"

namespace quorvin {

/// Messages go to standard error; questions are answered by No or cancelling.
class TerminalDialogs : public Dialogs {
public:
    void message(BoxIcon icon, const QString& text) override;
    bool question(BoxIcon icon, const QString& text, const QString& title) override;
    QString openFile(const QString& filter, const QString& folder) override;
    QString saveFile(const QString& filter, const QString& name) override;
    QString inputBox(const QString& prompt, const QString& text) override;
    std::optional<QFont> chooseFont(const QString& title, const QFont& font) override;
    std::optional<QColor> chooseColour(const QColor& colour) override;
    bool setUpPrinter(QPrinter& printer) override;
    bool openOutside(const QString& file) override;

    /// Whether there was any message.
    bool spoken() const { return spoken_; }

private:
    bool spoken_ = false;
};

}  // namespace quorvin
