/// The guide that the built-in text is the short form of: a file beside the program.
#pragma once

class QString;

namespace quorvin {

class Dialogs;

/// Opens "guida.html" of the program's folder, else that of ../share/doc/quorvin, where a package has put it.
/// When there is none, or nothing to show it with, a box says what was looked for and where.
void openFullGuide(Dialogs& dialogs, const QString& programFolder);

}  // namespace quorvin
