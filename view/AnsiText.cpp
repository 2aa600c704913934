#include "view/AnsiText.h"

#include <QList>

#include "base/Ansi.h"

namespace quorvin {

namespace {

/// Line ends, and Ctrl-Z, which ends a whole text file.
bool endsLine(char32_t character)
{
    constexpr char32_t kCtrlZ = 0x1A;
    return character == kCtrlZ || character == U'\n' || character == U'\r' || character == U'\u2028' ||
           character == U'\u2029';
}

}  // namespace

QString fromAnsi(std::string_view ansi)
{
    // The code pages differ in 32 codes only; Qt's conversion is many times as quick as one by characters.
    QString text = QString::fromLatin1(ansi.data(), static_cast<qsizetype>(ansi.size()));
    for (QChar& c : text)
        if ((c.unicode() & 0xE0U) == 0x80U)
            c = QChar(static_cast<char16_t>(toUnicode(static_cast<char>(c.unicode()))));
    return text;
}

std::string toAnsi(const QString& text)
{
    std::string ansi;
    const auto characters = text.normalized(QString::NormalizationForm_C).toUcs4();
    ansi.reserve(static_cast<std::size_t>(characters.size()));
    for (const auto character : characters)
        ansi.push_back(endsLine(character) ? ' ' : fromUnicode(character));
    return ansi;
}

}  // namespace quorvin
