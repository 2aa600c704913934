/// Turns a finished statistics table into a chart.
#pragma once

#include <string>
#include <string_view>

#include "stats/ChartData.h"
#include "stats/StatGrid.h"
#include "stats/StatOptions.h"

namespace quorvin {

class StatTable;

/// The chart of a frequency table: one series of row totals, named by the row field. Categories are the row
/// values; the slot behind them belongs to the chart too, so that RuntimeError 9 is raised for a table of 200
/// row values or more.
ChartData BindChartToArrays(const StatTable& table, const StatCaptions& captions);

/// The chart of a cross table: one series for each column value that is not blank, named by it, and a legend.
/// RuntimeError 9 as above.
ChartData Window_OnLoad(const StatTable& table);

/// Title of the chart of a mode, around what the user has typed: the fields' names, trimmed, directly behind
/// it for a frequency table, after a blank for a cross table. Windows-1252.
std::string chartTitle(StatMode mode, std::string_view typed, const StatCaptions& captions);

}  // namespace quorvin
