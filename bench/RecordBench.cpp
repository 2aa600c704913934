/// Opening a file and reaching records in it, core only. QUORVIN_BENCH_FILE names the file.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <random>

#include "base/CommandLine.h"
#include "rec/RecFile.h"

namespace {

using quorvin::RecFile;

void openFile(RecFile& file)
{
    const char* name = std::getenv("QUORVIN_BENCH_FILE");
    file.open(quorvin::pathFromUtf8(name ? name : ""));
    file.readDefinitions();
    file.measure();
}

void open(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state) {
        RecFile file;
        openFile(file);
        benchmark::DoNotOptimize(file.recordCount());
    }
}
BENCHMARK(open)->Unit(benchmark::kMicrosecond);

/// What a step of the window does: recount, seek, read.
void anyRecord(benchmark::State& state)
{
    RecFile file;
    openFile(file);
    std::mt19937_64 random(1);
    for ([[maybe_unused]] auto _ : state) {
        file.recount();
        file.seek(1 + static_cast<quorvin::RecordNumber>(random() %
                                                         static_cast<std::uint64_t>(file.recordCount())));
        file.caricastring();
        benchmark::DoNotOptimize(file.recordText());
    }
}
BENCHMARK(anyRecord)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
