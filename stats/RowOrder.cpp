#include "stats/RowOrder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <optional>
#include <string>

#include "base/Dates.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "stats/StatGrid.h"

namespace quorvin {

namespace {

/// The text (an empty count too) as a number, or as the serial number of a day, if it is one from end to end.
using Reading = std::optional<double> (*)(const std::string&);

std::optional<double> asNumber(const std::string& text)
{
    if (text.empty()) return 0;
    const bool plain = text.find_first_not_of("0123456789.-+") == std::string::npos &&
                       text.find_first_of("0123456789") != std::string::npos;
    // Digits and marks in any order, such as those of a telephone number, are text.
    const bool one =
        text.find_first_of("-+", 1) == std::string::npos && std::count(text.begin(), text.end(), '.') <= 1;
    return plain && one ? std::optional(val(text)) : std::nullopt;
}

std::optional<double> asDate(const std::string& text)
{
    std::optional<std::int64_t> day = dayNumber(text);
    if (!day) day = dayNumber("1/" + text);
    return day ? std::optional(static_cast<double>(*day)) : std::nullopt;
}

/// One number for each row, from row 1 on; none when a row's text cannot be read this way.
std::optional<std::vector<double>> keys(const StatGrid& grid, int column, Reading reading)
{
    std::vector<double> all;
    for (int row = 1; row < grid.totalsRow(); ++row) {
        const std::optional<double> key = reading(grid.at(row, column).text);
        if (!key) return std::nullopt;
        all.push_back(*key);
    }
    return all;
}

std::vector<int> sorted(int rows, Direction direction, const auto& isBefore)
{
    std::vector<int> order(static_cast<std::size_t>(rows));
    std::iota(order.begin(), order.end(), 1);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return direction == Direction::ascending ? isBefore(a, b) : isBefore(b, a);
    });
    return order;
}

}  // namespace

std::vector<int> rowOrder(const StatGrid& grid, int column, Direction direction)
{
    if (column < 0 || column >= grid.columns()) throw RuntimeError(ErrorNumber::subscript);
    const int rows = grid.totalsRow() - 1;
    for (const Reading reading : {&asNumber, &asDate}) {
        if (const auto key = keys(grid, column, reading)) {
            return sorted(rows, direction, [&](int a, int b) {
                return (*key)[static_cast<std::size_t>(a) - 1] < (*key)[static_cast<std::size_t>(b) - 1];
            });
        }
    }
    return sorted(rows, direction,
                  [&](int a, int b) { return grid.at(a, column).text < grid.at(b, column).text; });
}

}  // namespace quorvin
