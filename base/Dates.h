/// Dates as EpiData's European date fields hold them: day/month/year.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace quorvin {

/// Serial day number of a date, counted from 30 December 1899 (which is day 0); may be negative.
/// Accepted: d/m/yyyy with one- or two-digit day and month and four-digit year, a day that exists, nothing
/// else around it. Any other text is no date.
std::optional<std::int64_t> dayNumber(std::string_view text);

}  // namespace quorvin
