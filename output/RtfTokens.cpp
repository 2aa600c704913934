#include "output/RtfTokens.h"

#include <algorithm>
#include <limits>

#include "base/Text.h"

namespace quorvin {

namespace {

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// -1 for what is no hexadecimal digit.
int digitValue(char c)
{
    if (isDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

template<class Predicate>
std::size_t countWhile(std::string_view text, Predicate holds)
{
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), holds) - text.begin());
}

}  // namespace

RtfToken RtfTokens::next()
{
    using enum RtfToken::Kind;
    while (!rest_.empty()) {
        const char c = rest_.front();
        if (c == '\r' || c == '\n') {
            take(1);
        } else if (c == '{' || c == '}') {
            take(1);
            return {c == '{' ? groupBegin : groupEnd, {}, {}};
        } else if (c != '\\') {
            return {bytes, take(std::min(rest_.find_first_of("\\{}\r\n"), rest_.size())), {}};
        } else if (const RtfToken token = control(); token.kind != end) {
            return token;
        }
    }
    return {};
}

std::string_view RtfTokens::take(std::size_t count)
{
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
}

/// What a backslash begins; a token of kind `end` when it is nothing.
RtfToken RtfTokens::control()
{
    take(1);
    if (rest_.empty()) return {};
    if (isLetter(rest_.front())) return word();
    const std::string_view symbol = take(1);
    if (symbol != "'") return {RtfToken::Kind::word, symbol, {}};
    const std::optional<char> byte = code();
    if (!byte) return {};
    return {RtfToken::Kind::code, {}, {}, *byte};
}

RtfToken RtfTokens::word()
{
    const std::string_view name = take(countWhile(rest_, isLetter));
    const std::optional<int> number = parameter();
    if (rest_.starts_with(' ')) take(1);
    if (name == "bin") {
        take(static_cast<std::size_t>(std::max(number.value_or(0), 0)));
        return {};
    }
    return {RtfToken::Kind::word, name, number};
}

/// Beyond what an int holds it is the largest or smallest one.
std::optional<int> RtfTokens::parameter()
{
    const bool negative = rest_.starts_with('-');
    const std::size_t sign = negative ? 1 : 0;
    const std::size_t digits = countWhile(rest_.substr(sign), isDigit);
    if (digits == 0) return std::nullopt;
    constexpr int kMost = std::numeric_limits<int>::max();
    int value = 0;
    for (const char digit : take(sign + digits).substr(sign))
        value = value > (kMost - 9) / 10 ? kMost : 10 * value + (digit - '0');
    return negative ? -value : value;
}

/// Two hexadecimal digits.
std::optional<char> RtfTokens::code()
{
    const std::string_view digits =
        take(countWhile(rest_.substr(0, 2), [](char c) { return digitValue(c) >= 0; }));
    if (digits.size() < 2) return std::nullopt;
    return static_cast<char>(16 * digitValue(digits[0]) + digitValue(digits[1]));
}

}  // namespace quorvin
