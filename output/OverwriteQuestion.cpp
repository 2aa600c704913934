#include "output/OverwriteQuestion.h"

#include <QDir>

#include "view/Dialogs.h"
#include "view/Messages.h"
#include "view/Utf8.h"

namespace quorvin {

bool askToOverwrite(Dialogs& dialogs, const QString& name)
{
    const QString text = fromUtf8Text(messages::kOverwrite) + QDir::toNativeSeparators(name) +
                         fromUtf8Text(messages::kOverwriteEnd);
    return dialogs.question(BoxIcon::exclamation, text, fromUtf8Text(messages::kOverwriteTitle));
}

}  // namespace quorvin
