#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "stats/ChartBinder.h"
#include "stats/ChartLayout.h"
#include "stats/StatTable.h"
#include "tests/support/ErrorNumber.h"

namespace quorvin {
namespace {

/// "slot name value" of all slots that hold anything.
std::vector<std::string> filledSlots(const ChartData& chart, const ChartSeries& series)
{
    std::vector<std::string> slots;
    for (int slot = 0; slot <= ChartValues::kLast; ++slot) {
        const std::string value =
            series.values[slot] ? std::to_string(std::lround(*series.values[slot])) : "-";
        if (!chart.categories[slot].empty() || series.values[slot])
            slots.push_back(std::to_string(slot) + ' ' + chart.categories[slot] + ' ' + value);
    }
    return slots;
}

TEST(ChartBinder, SlotsAndSeries)
{
    using Slots = std::vector<std::string>;
    StatTable table;
    for (const auto& [y, x] : {std::pair("A", "X"), {"B", "Y"}, {"C", ""}, {"A", "Y"}, {"A", "X"}})
        table.statistica(y, x);
    const ChartData freq = BindChartToArrays(table, {" Valore   ", "GRUPPO    ", "", 0, 0});
    ASSERT_EQ(freq.series.size(), 1U);
    EXPECT_EQ(freq.series[0].caption, "Valore");
    EXPECT_FALSE(freq.HasChartSpaceLegend);
    EXPECT_EQ(filledSlots(freq, freq.series[0]), (Slots{"1 A 3", "2 B 1", "3 C 1"}));

    const ChartData cross = Window_OnLoad(table);
    ASSERT_EQ(cross.series.size(), 2U) << "none for the blanks";
    EXPECT_EQ(cross.series[0].caption + cross.series[1].caption, "XY");
    EXPECT_TRUE(cross.HasChartSpaceLegend);
    EXPECT_EQ(filledSlots(cross, cross.series[0]), (Slots{"1 A 2", "2 B 0", "3 C 0"}));
    EXPECT_EQ(filledSlots(cross, cross.series[1]), (Slots{"1 A 1", "2 B 1", "3 C 0"}));
}

TEST(ChartBinder, TwoHundredRowsAreTooMany)
{
    for (const int rows : {199, 200}) {
        StatTable table;
        for (int n = 1; n <= rows; ++n)
            table.statistica(std::to_string(n), "X");
        EXPECT_EQ(test::errorOf([&] { BindChartToArrays(table, {}); }), rows == 200 ? 9 : 0);
        EXPECT_EQ(test::errorOf([&] { Window_OnLoad(table); }), rows == 200 ? 9 : 0);
    }
}

TEST(ChartBinder, Titles)
{
    const StatCaptions names{" Valore   ", "GRUPPO    ", "X", 0, 0};
    EXPECT_EQ(chartTitle(StatMode::freq, "Casi di", names), "Casi diValore");
    EXPECT_EQ(chartTitle(StatMode::tabella, "Casi di", names), "Casi di Valore/GRUPPO");
    EXPECT_EQ(chartTitle(StatMode::tabella, "", names), " Valore/GRUPPO");
}

/// Values from 0 to 7, the greatest among them. Names as long as asked for.
ChartData chartOf(int series, int categories, std::size_t nameLength)
{
    ChartData chart;
    chart.title = "Titolo";
    chart.HasChartSpaceLegend = series > 1;
    for (int i = 1; i <= categories; ++i)
        chart.categories[i] = std::string(nameLength, 'N');
    for (int s = 0; s < series; ++s) {
        chart.series.push_back({"serie " + std::to_string(s), {}});
        for (int i = 1; i <= categories; ++i)
            chart.series.back().values[i] = (s + i + 6) % 8;
    }
    return chart;
}

/// Letters of 6 by 10.
const ChartFont kFont = {10, [](std::string_view text) { return 6.0 * static_cast<double>(text.size()); }};

struct LayoutCase {
    int series, categories;
    std::size_t nameLength;
    ChartArea area;
    bool upright;
};

class ChartLayoutTest : public testing::TestWithParam<LayoutCase> {
protected:
    LayoutCase c_ = GetParam();
    ChartLayout layout_{chartOf(c_.series, c_.categories, c_.nameLength), c_.area, kFont};
};

TEST_P(ChartLayoutTest, ColumnsStandSideBySideInTheirCategories)
{
    const double category = layout_.contentWidth() / c_.categories;
    const double base = layout_.plot().bottom();
    for (int i = 1; i <= c_.categories; ++i) {
        double left = layout_.column({0, i}, 1).x;
        const double gap = left - (i - 1) * category;
        EXPECT_GT(gap, 0);
        for (int s = 0; s < c_.series; ++s) {
            const ChartRect column = layout_.column({s, i}, 7);
            EXPECT_NEAR(column.x, left, 1e-6);
            EXPECT_NEAR(column.height, 7 * layout_.column({s, i}, 1).height, 1e-6);
            for (const double part : {0.01, 0.99})
                EXPECT_EQ(layout_.columnAt(left + part * column.width, base - 1),
                          (ChartLayout::Column{s, i}));
            left = column.right();
        }
        EXPECT_NEAR(i * category - left, gap, 1e-6);
        for (const double between : {left + gap / 2, layout_.column({0, i}, 1).x - gap / 2})
            EXPECT_EQ(layout_.columnAt(between, base - 1), std::nullopt);
    }
}

TEST_P(ChartLayoutTest, EverythingHasItsPlace)
{
    const ChartRect& plot = layout_.plot();
    const double category = layout_.contentWidth() / c_.categories;
    EXPECT_EQ(layout_.areNamesUpright(), c_.upright);
    const double room = layout_.nameStep() * category;
    EXPECT_GE(room, c_.upright ? kFont.lineHeight : 6.0 * static_cast<double>(c_.nameLength));
    EXPECT_LT(room - category, kFont.lineHeight) << "no more names are left out than needed";
    const ChartRect name = layout_.name(c_.categories);
    EXPECT_NEAR(name.x + name.width / 2, (c_.categories - 0.5) * category, 1e-6);
    EXPECT_GE(name.y, plot.bottom());
    EXPECT_LE(name.bottom(), c_.area.height);
    EXPECT_GE(plot.x, kFont.width(layout_.ticks().back().text) + kFont.lineHeight / 2);
    EXPECT_EQ(layout_.showsValues(), layout_.column({0, 1}, 1).width >= 6);
    EXPECT_LE(plot.right(), layout_.legend().x);
    if (c_.area.whole) {
        EXPECT_NEAR(layout_.contentWidth(), plot.width, 1e-6);
    } else {
        EXPECT_GE(layout_.column({0, 1}, 1).width, 3) << "can be pointed at";
        EXPECT_EQ(layout_.nameStep(), 1);
    }
    for (int s = 0; s < c_.series && c_.series > 1; ++s) {
        const ChartRect entry = layout_.legendEntry(s);
        EXPECT_GE(entry.x, layout_.legend().x);
        EXPECT_LE(entry.right(), c_.area.width);
        EXPECT_LE(entry.bottom(),
                  c_.area.whole ? c_.area.height : layout_.legend().y + layout_.legendHeight());
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, ChartLayoutTest,
                         testing::Values(LayoutCase{1, 3, 4, {400, 300, 1, false}, false},
                                         LayoutCase{3, 4, 30, {400, 300, 1, false}, true},
                                         LayoutCase{1, 150, 2, {400, 300, 1.5, false}, true},
                                         LayoutCase{199, 200, 9, {800, 600, 1, false}, false},
                                         LayoutCase{199, 200, 9, {800, 600, 3, true}, true},
                                         LayoutCase{40, 2, 60, {300, 120, 1, true}, true}));

TEST(ChartLayout, Ticks)
{
    using Values = std::vector<double>;
    for (const auto& [greatest, height, values] : {std::tuple(0, 300, Values{0, 1}),
                                                   {4, 300, {0, 1, 2, 3, 4}},
                                                   {33, 300, {0, 5, 10, 15, 20, 25, 30, 35}},
                                                   {101, 200, {0, 20, 40, 60, 80, 100, 120}},
                                                   {260, 120, {0, 200, 400}},
                                                   {7, 40, {0, 10}}}) {
        ChartData chart = chartOf(1, 1, 1);
        chart.series[0].values[1] = greatest;
        const ChartLayout layout(chart, {400, static_cast<double>(height), 1, false}, kFont);
        Values found;
        for (const ChartTick& tick : layout.ticks()) {
            found.push_back(tick.value);
            EXPECT_NEAR(tick.y, layout.column({0, 1}, tick.value).y, 1e-6);
        }
        EXPECT_EQ(found, values) << greatest;
    }
}

TEST(ChartLayout, PartsOfTheContent)
{
    const ChartLayout layout(chartOf(2, 10, 3), {400, 300, 1, false}, kFont);
    const double category = layout.contentWidth() / 10;
    const auto part = layout.categoriesBetween(2.5 * category, 4.1 * category);
    EXPECT_EQ(part.first, 3);
    EXPECT_EQ(part.last, 5);
    EXPECT_EQ(layout.categoriesBetween(0, 10 * category).last, 10);
    ChartData nine = chartOf(1, 55, 12);
    nine.series[0].values[1] = 9;
    const ChartLayout narrow(nine, {1124, 277}, kFont);
    EXPECT_GE(narrow.plot().x, 2 * 6 + kFont.lineHeight / 2)
        << "the axis goes up to 10 when names are upright";
    const ChartRect& plot = layout.plot();
    for (const auto& [x, y] : {std::pair(-category, plot.y), {10.5 * category, plot.y}, {6.0, plot.y - 1}})
        EXPECT_EQ(layout.columnAt(x, y), std::nullopt) << x;
    EXPECT_EQ(layout.columnAt(category / 2, plot.bottom() + 1), std::nullopt);
    const ChartLayout many(chartOf(40, 2, 3), {400, 120, 1, false}, kFont);
    EXPECT_EQ(many.legendHeight(), 40 * kFont.lineHeight) << "one column, which scrolls";
    EXPECT_EQ(ChartLayout(chartOf(1, 2, 3), {400, 120}, kFont).legend().width, 0);
    const ChartLayout zoomed(chartOf(2, 10, 3), {400, 300, 2, false}, kFont);
    EXPECT_NEAR(zoomed.contentWidth(), 2 * layout.contentWidth(), 1e-6);
    const ChartLayout empty(ChartData(), {400, 300, 1, false}, kFont);
    EXPECT_GT(empty.categoriesBetween(0, 400).first, empty.categoriesBetween(0, 400).last);
}

}  // namespace
}  // namespace quorvin
