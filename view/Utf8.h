/// The step from the program's own texts, which are UTF-8 in the sources, to the window's text.
#pragma once

#include <QString>
#include <string_view>

namespace quorvin {

inline QString fromUtf8Text(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace quorvin
