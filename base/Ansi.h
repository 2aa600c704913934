/// Windows-1252, the code page of all text in the core. Conversion happens only where text enters or leaves
/// it.
#pragma once

#include <string>
#include <string_view>

namespace quorvin {

/// Capital of one character of the code page; characters without a capital in it (ß, ª, º, µ, ƒ) stay as they
/// are.
char toUpper(char c);
std::string upper(std::string_view text);
/// The capitals of `text`, which must not be part of it, behind what `target` holds.
void appendUpper(std::string& target, std::string_view text);

/// Windows-1252 to UTF-8. The five codes that the page leaves open become the control characters of the same
/// number.
std::string toUtf8(std::string_view ansi);
/// The same behind what `target` holds; `ansi` must not be part of it.
void appendUtf8(std::string& target, std::string_view ansi);

/// UTF-8 to Windows-1252; a character outside the code page, or a damaged sequence, becomes "?". A letter and
/// the combining mark behind it, as some systems write file names and arguments, become one character.
std::string fromUtf8(std::string_view utf8);

/// One Unicode character to its code in the page, "?" when it has none.
char fromUnicode(char32_t character);

/// One code of the page to its Unicode character, or all codes of a text.
char32_t toUnicode(char c);
std::u32string toUnicode(std::string_view ansi);

/// Unicode to UTF-8.
std::string toUtf8(std::u32string_view text);

}  // namespace quorvin
