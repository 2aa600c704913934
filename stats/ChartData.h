/// A column chart as data: what is drawn, apart from how.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"

namespace quorvin {

/// The slots 0..200 that a chart has on each axis; slot 0 stays empty. RuntimeError 9 outside.
template<class T>
class ChartSlots {
public:
    static constexpr int kLast = 200;

    T& operator[](int slot)
    {
        requireSlot(slot);
        return slots_[static_cast<std::size_t>(slot)];
    }
    const T& operator[](int slot) const
    {
        requireSlot(slot);
        return slots_[static_cast<std::size_t>(slot)];
    }

private:
    static void requireSlot(int slot)
    {
        if (slot < 0 || slot > kLast) throw RuntimeError(ErrorNumber::subscript);
    }

    std::array<T, kLast + 1> slots_{};
};

/// A value for each category, or none.
using ChartValues = ChartSlots<std::optional<double>>;

struct ChartSeries {
    std::string caption;
    ChartValues values;
};

/// Clustered columns: for each category one column of every series. Texts in Windows-1252.
struct ChartData {
    ChartSlots<std::string> categories;
    std::vector<ChartSeries> series;
    bool HasChartSpaceLegend = false;  ///< names the series
    std::string title;

    /// The last category that has a name; 0 when there is none.
    int lastCategory() const
    {
        int last = ChartSlots<std::string>::kLast;
        while (last > 0 && categories[last].empty())
            --last;
        return last;
    }

    /// The greatest value, 0 at least.
    double greatestValue() const
    {
        double greatest = 0;
        for (const ChartSeries& s : series) {
            for (int slot = 0; slot <= ChartValues::kLast; ++slot)
                greatest = std::max(greatest, s.values[slot].value_or(0));
        }
        return greatest;
    }
};

}  // namespace quorvin
