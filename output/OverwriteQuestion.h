/// The question before a file is written over.
#pragma once

#include <QString>

namespace quorvin {

class Dialogs;

/// Whether the file of that name, which is there, may be replaced.
bool askToOverwrite(Dialogs& dialogs, const QString& name);

}  // namespace quorvin
