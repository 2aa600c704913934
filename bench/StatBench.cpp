/// Showing the largest tables and charts, drawn off screen.

#include <benchmark/benchmark.h>

#include <QApplication>

#include "stats/ChartBinder.h"
#include "stats/ChartPainter.h"
#include "stats/ChartView.h"
#include "stats/StatGridView.h"
#include "stats/StatTable.h"

namespace {

using namespace quorvin;

/// Counts of so many row and column values, all pairs.
StatTable table(int rows, int columns)
{
    StatTable table;
    // The last values come last, for they end the counting.
    for (int i = 1; i <= rows; ++i) {
        for (int j = 1; j < columns; ++j) {
            for (int times = 0; times <= (i * j) % 5; ++times)
                table.statistica("RIGA " + std::to_string(i), "COLONNA " + std::to_string(j));
        }
    }
    table.statistica("RIGA 1", "COLONNA " + std::to_string(columns));
    return table;
}

void gridShow(benchmark::State& state)
{
    const StatTable counts = table(StatTable::kMostY - 1, StatTable::kMostX);
    StatOptions options;
    options.mode = StatMode::tabella;
    StatGridView view(nullptr);
    view.resize(800, 400);
    for ([[maybe_unused]] auto _ : state) {
        view.setGrid(StatGrid(counts, options, {"NOME", "ALTRO", "", 8, 8}));
        view.grab();
    }
}
BENCHMARK(gridShow)->Unit(benchmark::kMillisecond);

void chartShow(benchmark::State& state)
{
    const ChartData chart = Window_OnLoad(table(199, StatTable::kMostX));
    ChartView view(nullptr);
    view.resize(800, 400);
    for ([[maybe_unused]] auto _ : state) {
        view.setChart(chart);
        // From what can be told apart to all 199 x 199 columns at once.
        for (int i = 0; i < 40 * state.range(0); ++i)
            view.zoomOut();
        view.grab();
    }
}
BENCHMARK(chartShow)->ArgName("whole")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void chartSave(benchmark::State& state)
{
    const ChartData chart = Window_OnLoad(table(199, StatTable::kMostX));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(chartPicture(chart));
}
BENCHMARK(chartSave)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
