#include "app/TerminalDialogs.h"

#include <QTextStream>

namespace quorvin {

void TerminalDialogs::message(BoxIcon, const QString& text)
{
    spoken_ = true;
    QTextStream(stderr) << text << Qt::endl;
}

QString TerminalDialogs::openFile(const QString&, const QString&)
{
    return {};
}

}  // namespace quorvin
