/// The boxes of a run that nobody watches.
#pragma once

#include "app/Dialogs.h"

namespace quorvin {

/// Messages go to standard error; questions are answered by No or cancelling.
class TerminalDialogs : public Dialogs {
public:
    void message(BoxIcon icon, const QString& text) override;
    bool question(BoxIcon icon, const QString& text) override;
    QString openFile(const QString& filter, const QString& folder) override;

    /// Whether there was any message.
    bool spoken() const { return spoken_; }

private:
    bool spoken_ = false;
};

}  // namespace quorvin
