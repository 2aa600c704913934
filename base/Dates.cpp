#include "base/Dates.h"

#include <chrono>

#include "base/Text.h"

namespace quorvin {

namespace {

/// Takes the digits up to `separator` (or the end, for 0) off the front of `text`; nothing unless their
/// number is within the bounds.
std::optional<int> takeNumber(std::string_view& text, std::size_t fewest, std::size_t most, char separator)
{
    std::size_t digits = 0;
    int value = 0;
    while (digits < text.size() && digits <= most && isDigit(text[digits])) {
        value = value * 10 + (text[digits] - '0');
        ++digits;
    }
    if (digits < fewest || digits > most) return std::nullopt;
    text.remove_prefix(digits);
    if (separator == 0) return text.empty() ? std::optional(value) : std::nullopt;
    if (!text.starts_with(separator)) return std::nullopt;
    text.remove_prefix(1);
    return value;
}

}  // namespace

std::optional<std::int64_t> dayNumber(std::string_view text)
{
    using namespace std::chrono;
    const auto d = takeNumber(text, 1, 2, '/');
    if (!d) return std::nullopt;
    const auto m = takeNumber(text, 1, 2, '/');
    if (!m) return std::nullopt;
    const auto y = takeNumber(text, 4, 4, 0);
    if (!y) return std::nullopt;

    const year_month_day date(year(*y), month(static_cast<unsigned>(*m)), day(static_cast<unsigned>(*d)));
    if (!date.ok()) return std::nullopt;
    constexpr sys_days kDayZero = year(1899) / December / 30;
    return (sys_days(date) - kDayZero).count();
}

}  // namespace quorvin
