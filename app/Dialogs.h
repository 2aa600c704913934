/// The one seam for everything that asks or tells the user something in a box of its own.
#pragma once

#include <QString>

namespace quorvin {

enum class BoxIcon { information, exclamation, question, critical };

/// Calls return when the user has answered; the box is modal to the whole program meanwhile.
class Dialogs {
public:
    Dialogs() = default;
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;
    virtual ~Dialogs() = default;

    virtual void message(BoxIcon icon, const QString& text) = 0;

    /// Whether the user answers Yes. Closing the box means No.
    virtual bool question(BoxIcon icon, const QString& text) = 0;

    /// Name of an existing file, empty when the user cancels. `filter`: pairs of description and pattern,
    /// separated by bars. `folder`: where to begin; empty for the last one.
    virtual QString openFile(const QString& filter, const QString& folder) = 0;
};

}  // namespace quorvin
