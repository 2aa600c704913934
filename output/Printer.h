/// The printer, as it was set up last, and text put on its pages.
#pragma once

#include <QFont>
#include <QString>
#include <filesystem>
#include <functional>
#include <memory>

class QPainter;
class QPrinter;

namespace quorvin {

class Dialogs;

/// Asks the system for its printers only when they are needed. A "printer" may also be a PDF file chosen in
/// the printer's dialog; such a file appears whole or not at all.
class Printer {
public:
    Printer();
    ~Printer();

    /// The font that it is set to.
    QFont font;
    /// Colours, or shades of grey.
    bool stampcol = false;

    /// Courier new, size 10: a fixed pitch, so that margins and separators line up.
    static QFont usualFont();

    /// Lets the user choose the printer for the jobs to come.
    void setUp(Dialogs& dialogs);

    /// Whether there is anything to print to.
    bool isReachable();

    /// A PDF file that this would replace although the user has printed into it before; empty if none.
    QString fileToReplace();

    /// Ends a drawing; raises RuntimeError 57 when it did not come out whole.
    static void finish(QPainter& painter, const QPrinter& printer);

    /// Draws on pages from the first one on; raises RuntimeError 57 when that fails.
    using Drawing = std::function<void(QPrinter&)>;
    /// Prints what is drawn. `source`: the data file, which names the job. Raises RuntimeError 57 without a
    /// printer or when printing fails, 70 when that very file would be printed over, and what OutputFile
    /// raises.
    void print(const Drawing& drawing, const std::filesystem::path& source);

    /// Draws a text, lines separated by LF, in pages; a line that is too long goes on below, as far in as it
    /// began.
    static void drawText(QPrinter& printer, const QString& text, const QFont& font);

private:
    QPrinter& printer();
    void printToFile(const Drawing& drawing, const QString& target);

    std::unique_ptr<QPrinter> printer_;
    QString printedTo_;  ///< the file of the last job
};

}  // namespace quorvin
