/// The one seam for everything that asks or tells the user something in a box of its own.
#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <optional>

class QPrinter;

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

    /// Whether the user answers Yes. Closing the box means No; so does Enter at once where the icon warns.
    /// `title`: the program's name when it is empty.
    virtual bool question(BoxIcon icon, const QString& text, const QString& title) = 0;

    /// Name of an existing file, empty when the user cancels. `filter`: pairs of description and pattern,
    /// separated by bars. `folder`: where to begin; empty for the last one.
    virtual QString openFile(const QString& filter, const QString& folder) = 0;

    /// Name of a file to write, which may be there already; empty when the user cancels. `name`: what stands
    /// in the box at first, a path with or without a file's name.
    virtual QString saveFile(const QString& filter, const QString& name) = 0;

    /// A line of text, empty when the user cancels. `text`: what stands in the box at first.
    virtual QString inputBox(const QString& prompt, const QString& text) = 0;

    /// A font, none when the user cancels.
    virtual std::optional<QFont> chooseFont(const QString& title, const QFont& font) = 0;

    /// A colour, none when the user cancels.
    virtual std::optional<QColor> chooseColour(const QColor& colour) = 0;

    /// Lets the user choose and set up the printer; false when the user cancels, who then has changed
    /// nothing.
    virtual bool setUpPrinter(QPrinter& printer) = 0;

    /// Hands a file that is there to the program that the system shows such files with, and does not wait;
    /// false when the system has none.
    virtual bool openOutside(const QString& file) = 0;
};

}  // namespace quorvin
