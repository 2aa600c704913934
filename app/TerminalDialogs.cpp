#include "app/TerminalDialogs.h"

#include <QTextStream>

namespace quorvin {

void TerminalDialogs::message(BoxIcon, const QString& text)
{
    spoken_ = true;
    QTextStream(stderr) << text << Qt::endl;
}

bool TerminalDialogs::question(BoxIcon icon, const QString& text, const QString&)
{
    message(icon, text);
    return false;
}

QString TerminalDialogs::openFile(const QString&, const QString&)
{
    return {};
}

QString TerminalDialogs::saveFile(const QString&, const QString&)
{
    return {};
}

QString TerminalDialogs::inputBox(const QString&, const QString&)
{
    return {};
}

std::optional<QFont> TerminalDialogs::chooseFont(const QString&, const QFont&)
{
    return {};
}

std::optional<QColor> TerminalDialogs::chooseColour(const QColor&)
{
    return {};
}

bool TerminalDialogs::setUpPrinter(QPrinter&)
{
    return false;
}

bool TerminalDialogs::openOutside(const QString&)
{
    return false;
}

}  // namespace quorvin
