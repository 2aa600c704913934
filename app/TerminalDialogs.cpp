#include "app/TerminalDialogs.h"

#include <QTextStream>

namespace quorvin {

void TerminalDialogs::message(BoxIcon, const QString& text)
{
    spoken_ = true;
    QTextStream(stderr) << text << Qt::endl;
}

bool TerminalDialogs::question(BoxIcon icon, const QString& text)
{
    message(icon, text);
    return false;
}

QString TerminalDialogs::openFile(const QString&, const QString&)
{
    return {};
}

}  // namespace quorvin
