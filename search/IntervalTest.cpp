#include "search/IntervalTest.h"

#include <cstddef>
#include <cstdint>

#include "base/Dates.h"
#include "base/Text.h"

namespace quorvin {

namespace {

constexpr std::string_view kSigns = "<>";

/// Characters behind a sign that are read as a number, and as a date (dd/mm/yyyy).
constexpr std::size_t kNumberWidth = 80;
constexpr std::size_t kDateWidth = 10;

/// Up to `width` characters behind the first `sign`; nothing when there is none.
std::optional<std::string_view> behind(std::string_view text, char sign, std::size_t width)
{
    const std::size_t place = text.find(sign);
    if (place == std::string_view::npos) return std::nullopt;
    return text.substr(place + 1, width);
}

/// A date's day number, or the number that any other text begins with.
double dayOrNumber(std::string_view text)
{
    const std::optional<std::int64_t> day = dayNumber(text);
    return day ? static_cast<double>(*day) : val(text);
}

}  // namespace

bool IntervalTest::Bounds::contain(double number) const
{
    if (!lower && !upper) return false;
    return (!lower || *lower < number) && (!upper || number < *upper);
}

IntervalTest::Bounds IntervalTest::boundsOf(std::string_view text)
{
    Bounds bounds;
    if (const auto lower = behind(text, '>', kNumberWidth)) bounds.lower = val(*lower);
    if (const auto upper = behind(text, '<', kNumberWidth)) bounds.upper = val(*upper);
    return bounds;
}

IntervalTest::Bounds IntervalTest::dateBoundsOf(std::string_view text)
{
    const auto bound = [&](char sign) -> std::optional<double> {
        const auto date = behind(text, sign, kDateWidth);
        if (!date) return std::nullopt;
        return dayOrNumber(trim(date->substr(0, date->find_first_of(kSigns))));
    };
    return {bound('>'), bound('<')};
}

IntervalTest::IntervalTest(std::string_view pattern) :
    numbers_(boundsOf(pattern)),
    dates_(dateBoundsOf(pattern)),
    slash_(pattern.find('/') != std::string_view::npos)
{
}

bool IntervalTest::matches(std::string_view value) const
{
    if (slash_ && value.find('/') != std::string_view::npos) return dates_.contain(dayOrNumber(value));
    return numbers_.contain(val(value));
}

}  // namespace quorvin
