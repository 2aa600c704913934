#include "stats/ChartBinder.h"

#include "base/Text.h"
#include "stats/StatTable.h"

namespace quorvin {

ChartData BindChartToArrays(const StatTable& table, const StatCaptions& captions)
{
    ChartData chart;
    ChartSeries& counts = chart.series.emplace_back();
    counts.caption = trim(captions.lastName);
    for (int i = 1; i < table.nuovoY(); ++i) {
        chart.categories[i] = table.valoriY(i);
        counts.values[i] = static_cast<double>(table.totaliRiga(i));
    }
    counts.values[table.nuovoY()].reset();
    return chart;
}

ChartData Window_OnLoad(const StatTable& table)
{
    ChartData chart;
    for (int i = 1; i <= table.nuovoY(); ++i)
        chart.categories[i] = table.valoriY(i);
    for (int s = 1; s < table.nuovoX(); ++s) {
        ChartSeries& counts = chart.series.emplace_back();
        counts.caption = table.valoriX(s);
        for (int i = 1; i < table.nuovoY(); ++i)
            counts.values[i] = static_cast<double>(table.conteggi(i, s));
    }
    chart.HasChartSpaceLegend = true;
    return chart;
}

std::string chartTitle(StatMode mode, std::string_view typed, const StatCaptions& captions)
{
    std::string title(typed);
    if (mode == StatMode::tabella) title += ' ';
    title += trim(captions.lastName);
    if (mode == StatMode::tabella) {
        title += '/';
        title += trim(captions.penultimateName);
    }
    return title;
}

}  // namespace quorvin
