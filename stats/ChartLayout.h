/// Where everything of a column chart stands on an area of given size.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "stats/ChartData.h"

namespace quorvin {

/// Pixels, or whatever unit the area is measured in, from its left upper corner.
struct ChartRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double right() const { return x + width; }
    double bottom() const { return y + height; }
};

/// How large texts are, in the same unit.
struct ChartFont {
    double lineHeight = 0;
    std::function<double(std::string_view)> width;  ///< of a text in Windows-1252
};

struct ChartArea {
    double width = 0;
    double height = 0;
    double zoom = 1;     ///< stretches the categories; 1: columns and names can be told apart
    bool whole = false;  ///< all categories and series must be in sight, however small; else they scroll
};

/// A gridline and its value.
struct ChartTick {
    double value = 0;
    double y = 0;
    std::string text;
};

/// Title above, values to the left, names below, legend to the right. The categories may be wider than the
/// plot, and the legend of a chart that scrolls longer than its place: what belongs to them counts from the
/// beginning of the first category, and from the first entry of the legend.
class ChartLayout {
public:
    /// A column: series from 0, category slot from 1.
    struct Column {
        int series = 0;
        int category = 0;

        bool operator==(const Column&) const = default;
    };
    /// Category slots, from 1; none when `first` is beyond `last`.
    struct Range {
        int first = 1;
        int last = 0;
    };

    ChartLayout() = default;
    ChartLayout(const ChartData& chart, const ChartArea& area, const ChartFont& font);

    /// The axes' rectangle, of which `contentWidth` shows at most its width.
    const ChartRect& plot() const { return plot_; }
    double contentWidth() const { return contentWidth_; }
    /// From 0 up to the greatest value, at round distances, never closer than one.
    const std::vector<ChartTick>& ticks() const { return ticks_; }
    /// Place of a column of some value.
    ChartRect column(Column column, double value) const;
    /// The column that stands there, or would if it were higher.
    std::optional<Column> columnAt(double x, double y) const;
    /// The categories that a part of the content shows.
    Range categoriesBetween(double from, double to) const;

    const ChartRect& title() const { return title_; }
    /// Place of a category's name; names stand upright, read from below, where they are too long.
    ChartRect name(int category) const;
    bool areNamesUpright() const { return upright_; }
    /// Only every so many categories' names have room.
    int nameStep() const { return nameStep_; }
    /// Whether the values have room above their columns.
    bool showsValues() const { return showsValues_; }

    const ChartRect& legend() const { return legend_; }
    double legendHeight() const { return legendHeight_; }
    /// Place of a series' entry in the legend; its square is as wide as the entry is high.
    ChartRect legendEntry(int series) const;

private:
    void setTicks(double greatest, double plotHeight, const ChartFont& font);
    void placeLegend(const ChartData& chart, const ChartArea& area, const ChartFont& font, double margin);
    double tickWidth(const ChartFont& font) const;
    double columnWidth() const;

    int categories_ = 0;
    int series_ = 0;
    ChartRect title_;
    ChartRect plot_;
    ChartRect legend_;
    double contentWidth_ = 0;
    double categoryWidth_ = 0;
    double namesHeight_ = 0;
    double lineHeight_ = 0;
    double legendHeight_ = 0;
    double legendColumnWidth_ = 0;
    int legendRows_ = 1;
    int nameStep_ = 1;
    bool upright_ = false;
    bool showsValues_ = false;
    std::vector<ChartTick> ticks_ = {{0, 0, "0"}, {1, 0, "1"}};
};

}  // namespace quorvin
