#include "app/FullGuide.h"

#include <QDir>
#include <QFileInfo>

#include "view/Dialogs.h"
#include "view/Messages.h"
#include "view/Utf8.h"

namespace quorvin {

void openFullGuide(Dialogs& dialogs, const QString& programFolder)
{
    const QString name = QStringLiteral("guida.html");
    const QStringList folders = {
        QDir::cleanPath(programFolder),
        QDir::cleanPath(programFolder + QStringLiteral("/../share/doc/quorvin")),
    };
    QString failure =
        name + fromUtf8Text(messages::kNotIn) + QDir::toNativeSeparators(folders.join(QLatin1Char('\n')));
    for (const QString& folder : folders) {
        const QString file = folder + QLatin1Char('/') + name;
        if (!QFileInfo(file).isFile()) continue;
        if (dialogs.openOutside(file)) return;
        failure = QDir::toNativeSeparators(file);
        break;
    }
    dialogs.message(BoxIcon::information, fromUtf8Text(messages::kNoFullGuide) + failure);
}

}  // namespace quorvin
