/// The step between the core's Windows-1252 bytes and the window's text.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace quorvin {

QString fromAnsi(std::string_view ansi);

/// One line of what was typed: line ends and Ctrl-Z, which only come by pasting, are blanks.
/// Characters outside the code page become "?".
std::string toAnsi(const QString& text);

}  // namespace quorvin
