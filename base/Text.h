/// Helpers for text as the core keeps it: bytes in Windows-1252, one byte a character, positions counted
/// from 1.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvin {

/// Whether `c` is one of 0 to 9, whatever the locale.
constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The text without the blanks (code 32, nothing else) at its left, right, or both ends. Views into `text`.
std::string_view lTrim(std::string_view text);
std::string_view rTrim(std::string_view text);
std::string_view trim(std::string_view text);

/// The (up to) `length` characters of `text` from position `start` on, fewer where the text ends. A view into
/// `text`. `start`: 1-based; raises RuntimeError 5 below 1 or for a negative length.
std::string_view mid(std::string_view text, std::int64_t start, std::int64_t length);

/// Number to text: a leading blank when not negative, up to 15 significant digits, "." as decimal mark with a
/// zero before it, no trailing zeros, never an exponent.
std::string str(double number);
std::string str(std::int64_t number);

/// The same without the leading blank.
std::string bareStr(double number);

/// The number at the beginning of a text, 0 if there is none. Blanks are skipped wherever they stand; then an
/// optional sign, digits, at most one "." and digits; what follows is ignored. Beyond what a double holds it
/// is the largest or smallest one.
double val(std::string_view text);

/// 1-based position of the first `needle` in `haystack`, 0 when it does not occur.
/// An empty haystack holds nothing, not even the empty text; a filled one holds the empty text at 1. Blank
/// searches rest on this: they find the filled fields.
std::size_t inStr(std::string_view haystack, std::string_view needle);

}  // namespace quorvin
