#include "stats/ChartLayout.h"

#include <algorithm>
#include <cmath>

#include "base/Text.h"

namespace quorvin {

namespace {

/// Least width of a column that can be pointed at, greatest one that still looks like one.
constexpr double kLeastColumn = 3;
constexpr double kGreatestColumn = 60;
/// Share of a category that its columns take.
constexpr double kFilled = 0.8;
/// Shares of the area that names take at most, a column of the legend, and all its columns.
constexpr double kMostNames = 0.3;
constexpr double kMostLegendColumn = 0.3;
constexpr double kMostLegend = 0.5;
constexpr double kLinesBetweenTicks = 2.5;

/// The smallest of 1, 2, 5, 10, 20 … that is not below `least`.
double roundStep(double least)
{
    if (least <= 1) return 1;
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= least) return factor * power;
    }
    return 10 * power;
}

/// Lines that a title is broken into, in bold letters and where there are blanks.
double titleLines(const ChartData& chart, const ChartFont& font, double width)
{
    constexpr double kBold = 1.25;
    constexpr double kMost = 3;
    return std::clamp(std::ceil(kBold * font.width(chart.title) / width), 1.0, kMost);
}

double widest(const ChartData& chart, const ChartFont& font, int categories)
{
    double width = 0;
    for (int i = 1; i <= categories; ++i)
        width = std::max(width, font.width(chart.categories[i]));
    return width;
}

}  // namespace

ChartLayout::ChartLayout(const ChartData& chart, const ChartArea& area, const ChartFont& font) :
    categories_(chart.lastCategory()),
    series_(static_cast<int>(chart.series.size())),
    lineHeight_(font.lineHeight)
{
    const double margin = lineHeight_ / 2;
    title_ = {margin, margin, std::max(area.width - 2 * margin, 1.0), 0};
    if (!chart.title.empty()) title_.height = (titleLines(chart, font, title_.width) + 0.5) * lineHeight_;
    // Room above the plot for the value of the highest column.
    plot_.y = title_.bottom() + lineHeight_;
    placeLegend(chart, area, font, margin);

    const double longest = widest(chart, font, categories_);
    const double mostNames = kMostNames * area.height;
    // The lowest that the plot can be has the widest values: a coarser step ends higher.
    const double lowest = area.height - margin - std::max(mostNames, lineHeight_) - margin / 2 - plot_.y;
    setTicks(chart.greatestValue(), lowest, font);
    plot_.x = margin + tickWidth(font) + margin;
    plot_.width = std::max(legend_.x - margin - plot_.x, 1.0);
    const double readable = std::max(lineHeight_, series_ * kLeastColumn / kFilled);
    const double natural = std::max(plot_.width, categories_ * readable) * area.zoom;
    contentWidth_ = area.whole ? plot_.width : std::max(plot_.width, natural);
    categoryWidth_ = contentWidth_ / std::max(categories_, 1);

    upright_ = longest + margin > categoryWidth_;
    namesHeight_ = (upright_ ? std::min(longest, mostNames) : lineHeight_) + margin / 2;
    nameStep_ = upright_ ? std::max(static_cast<int>(std::ceil(lineHeight_ / categoryWidth_)), 1) : 1;
    plot_.height = std::max(area.height - margin - namesHeight_ - plot_.y, 1.0);
    setTicks(chart.greatestValue(), plot_.height, font);
    showsValues_ = font.width(bareStr(chart.greatestValue())) <= columnWidth();
}

/// To the right, in one column that scrolls, or in as many as it takes.
void ChartLayout::placeLegend(const ChartData& chart, const ChartArea& area, const ChartFont& font,
                              double margin)
{
    const double right = area.width - margin;
    legend_ = {right, plot_.y, 0, std::max(area.height - plot_.y - margin, lineHeight_)};
    if (!chart.HasChartSpaceLegend || series_ == 0) return;
    double longest = 0;
    for (const ChartSeries& s : chart.series)
        longest = std::max(longest, font.width(s.caption));
    const int fitting = std::max(static_cast<int>(legend_.height / lineHeight_), 1);
    legendRows_ = area.whole ? std::min(fitting, series_) : series_;
    const int columns = (series_ + legendRows_ - 1) / legendRows_;
    legendColumnWidth_ = std::min(longest + 2 * lineHeight_, kMostLegendColumn * area.width);
    legend_.width = std::min(legendColumnWidth_ * columns, kMostLegend * area.width);
    legendColumnWidth_ = std::min(legendColumnWidth_, legend_.width / columns);
    legend_.x = right - legend_.width;
    legendHeight_ = legendRows_ * lineHeight_;
}

void ChartLayout::setTicks(double greatest, double plotHeight, const ChartFont& font)
{
    const double most = std::max(std::floor(plotHeight / (kLinesBetweenTicks * font.lineHeight)), 1.0);
    const double step = roundStep(greatest / most);
    const int count = std::max(static_cast<int>(std::ceil(greatest / step)), 1);
    ticks_.clear();
    for (int i = 0; i <= count; ++i) {
        const double value = i * step;
        ticks_.push_back({value, plot_.bottom() - plot_.height * i / count, bareStr(value)});
    }
}

double ChartLayout::tickWidth(const ChartFont& font) const
{
    double width = 0;
    for (const ChartTick& tick : ticks_)
        width = std::max(width, font.width(tick.text));
    return width;
}

double ChartLayout::columnWidth() const
{
    return std::min(categoryWidth_ * kFilled / std::max(series_, 1), kGreatestColumn);
}

ChartRect ChartLayout::column(Column column, double value) const
{
    const double width = columnWidth();
    const double centre = (column.category - 0.5) * categoryWidth_;
    const double height = plot_.height * value / ticks_.back().value;
    return {centre - width * series_ / 2 + width * column.series, plot_.bottom() - height, width, height};
}

std::optional<ChartLayout::Column> ChartLayout::columnAt(double x, double y) const
{
    if (x < 0 || x >= contentWidth_ || y < plot_.y || y > plot_.bottom() || categories_ == 0 || series_ == 0)
        return std::nullopt;
    const int category = std::min(static_cast<int>(x / categoryWidth_) + 1, categories_);
    const double place = (x - column({0, category}, 0).x) / columnWidth();
    if (place < 0 || place >= series_) return std::nullopt;
    return Column{static_cast<int>(place), category};
}

ChartLayout::Range ChartLayout::categoriesBetween(double from, double to) const
{
    if (categories_ == 0) return {};
    const auto slotAt = [this](double x) {
        return std::clamp(static_cast<int>(x / categoryWidth_) + 1, 1, categories_);
    };
    return {slotAt(from), slotAt(to)};
}

ChartRect ChartLayout::name(int category) const
{
    const double centre = (category - 0.5) * categoryWidth_;
    const double width = upright_ ? lineHeight_ : categoryWidth_;
    const double gap = lineHeight_ / 4;
    return {centre - width / 2, plot_.bottom() + gap, width, namesHeight_ - gap};
}

ChartRect ChartLayout::legendEntry(int series) const
{
    const int column = series / legendRows_;
    const int row = series % legendRows_;
    return {legend_.x + legendColumnWidth_ * column, legend_.y + lineHeight_ * row, legendColumnWidth_,
            lineHeight_};
}

}  // namespace quorvin
