#include "view/AnsiText.h"

#include <QList>

#include "base/Ansi.h"

namespace quorvin {

QString fromAnsi(std::string_view ansi)
{
    QString text;
    text.reserve(static_cast<qsizetype>(ansi.size()));
    for (const char c : ansi)
        text.append(QChar(static_cast<char16_t>(toUnicode(c))));
    return text;
}

std::string toAnsi(const QString& text)
{
    std::string ansi;
    const auto characters = text.normalized(QString::NormalizationForm_C).toUcs4();
    ansi.reserve(static_cast<std::size_t>(characters.size()));
    for (const auto character : characters)
        ansi.push_back(fromUnicode(character));
    return ansi;
}

}  // namespace quorvin
