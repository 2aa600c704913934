#include "base/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <system_error>

#include "base/RuntimeError.h"

namespace quorvin {

namespace {

constexpr int kSignificantDigits = 15;

/// A number's decimal digits (no sign, no point, no trailing zeros) and how many of them stand before the
/// point.
struct Decimal {
    std::string digits;
    int pointAfter = 0;
};

/// Through the scientific form, which alone bounds the significant digits; to_chars knows no locale.
Decimal toDecimal(double magnitude)
{
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                   std::chars_format::scientific, kSignificantDigits - 1);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
    const std::size_t e = text.find('e');
    Decimal decimal;
    for (const char c : text.substr(0, e)) {
        if (isDigit(c)) decimal.digits.push_back(c);
    }
    while (decimal.digits.size() > 1 && decimal.digits.back() == '0')
        decimal.digits.pop_back();
    const std::size_t exponent = text[e + 1] == '+' ? e + 2 : e + 1;
    std::from_chars(text.data() + exponent, text.data() + text.size(), decimal.pointAfter);
    ++decimal.pointAfter;
    return decimal;
}

std::string plainNotation(const Decimal& decimal)
{
    const int count = static_cast<int>(decimal.digits.size());
    if (decimal.pointAfter <= 0) {
        std::string text("0.");
        text.append(static_cast<std::size_t>(-decimal.pointAfter), '0');
        return text.append(decimal.digits);
    }
    std::string text = decimal.digits;
    if (decimal.pointAfter >= count)
        return text.append(static_cast<std::size_t>(decimal.pointAfter - count), '0');
    text.insert(static_cast<std::size_t>(decimal.pointAfter), 1, '.');
    return text;
}

/// The usual number, a few digits and nothing else, which needs no copy.
std::optional<double> shortWholeNumber(std::string_view text)
{
    if (text.empty() || text.size() > static_cast<std::size_t>(kSignificantDigits)) return std::nullopt;
    std::int64_t value = 0;
    for (const char c : text) {
        if (!isDigit(c)) return std::nullopt;
        value = 10 * value + (c - '0');
    }
    return static_cast<double>(value);
}

}  // namespace

std::string_view lTrim(std::string_view text)
{
    while (text.starts_with(' '))
        text.remove_prefix(1);
    return text;
}

std::string_view rTrim(std::string_view text)
{
    // Fields are filled with blanks: eight at a time, then what is left.
    constexpr std::string_view kBlanks = "        ";
    while (text.ends_with(kBlanks))
        text.remove_suffix(kBlanks.size());
    while (text.ends_with(' '))
        text.remove_suffix(1);
    return text;
}

std::string_view trim(std::string_view text)
{
    return lTrim(rTrim(text));
}

std::string_view mid(std::string_view text, std::int64_t start, std::int64_t length)
{
    if (start < 1 || length < 0) throw RuntimeError(ErrorNumber::invalidCall);
    if (start > static_cast<std::int64_t>(text.size())) return {};
    return text.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(length));
}

std::string str(double number)
{
    if (number == 0.0 || !std::isfinite(number)) return " 0";
    std::string text(1, number < 0 ? '-' : ' ');
    text += plainNotation(toDecimal(std::fabs(number)));
    return text;
}

std::string str(std::int64_t number)
{
    std::string text = std::to_string(number);
    if (number >= 0) text.insert(0, 1, ' ');
    return text;
}

std::string bareStr(double number)
{
    return std::string(lTrim(str(number)));
}

double val(std::string_view text)
{
    if (const auto whole = shortWholeNumber(text)) return *whole;
    std::string number;
    bool pointSeen = false;
    for (const char c : text) {
        if (c == ' ') continue;
        const bool sign = number.empty() && (c == '+' || c == '-');
        const bool point = c == '.' && !pointSeen;
        if (!isDigit(c) && !sign && !point) break;
        pointSeen = pointSeen || point;
        number.push_back(c);
    }
    if (number.starts_with('+')) number.erase(0, 1);
    double value = 0.0;
    const auto status =
        std::from_chars(number.data(), number.data() + number.size(), value, std::chars_format::fixed).ec;
    // Too large, if it is not too small.
    const bool beyond =
        status == std::errc::result_out_of_range && number.find_first_of("123456789") < number.find('.');
    if (beyond) value = std::copysign(std::numeric_limits<double>::max(), number.starts_with('-') ? -1 : 1);
    return value;
}

std::size_t inStr(std::string_view haystack, std::string_view needle)
{
    if (haystack.empty()) return 0;
    if (needle.empty()) return 1;
    const std::size_t found = haystack.find(needle);
    return found == std::string_view::npos ? 0 : found + 1;
}

}  // namespace quorvin
