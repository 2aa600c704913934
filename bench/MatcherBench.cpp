/// One comparison in each search mode, core only.

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

#include "search/Matcher.h"

namespace {

using namespace quorvin;

/// Search text and a value that does not match, so that the whole test is made.
struct Sample {
    SearchMode mode;
    const char* name;
    const char* pattern;
    std::string_view value;
};

constexpr Sample kSamples[] = {
    {SearchMode::equals, "equals", "rossi", "Rossini             "},
    {SearchMode::begins, "begins", "ross", "De Rossi            "},
    {SearchMode::ends, "ends", "ossi", "Rossini             "},
    {SearchMode::contains, "contains", "rossi", "Marco Rosso         "},
    {SearchMode::differs, "differs", "rossi", "Rossi               "},
    {SearchMode::allWords, "allWords", "mario rossi", "Rossi Maria         "},
    {SearchMode::anyWord, "anyWord", "mario rossi", "Bianchi Maria       "},
    {SearchMode::interval, "interval: number", ">65 <80", " 42"},
    {SearchMode::interval, "interval: date", ">01/01/2004", "15/06/1999"},
};

void compare(benchmark::State& state, const Sample& sample)
{
    FieldList selection;
    selection.append(1);
    Matcher matcher;
    matcher.start(sample.mode, selection, {sample.pattern}, false);
    matcher.prepare();
    for ([[maybe_unused]] auto _ : state) {
        matcher.setFieldValue(1, sample.value);
        if (testsFieldByField(sample.mode)) matcher.testField(1);
        matcher.testFields();
        benchmark::DoNotOptimize(matcher.fieldHitCount);
    }
}

/// The cheap test that goes before, on a value that it stops and on one that it lets through.
void filter(benchmark::State& state, std::string_view value)
{
    const auto byteFilter = ByteFilter::forNeedle("ROSSI", true);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(byteFilter->mayHold(value));
}
BENCHMARK_CAPTURE(filter, stops, "Bianchi             ");
BENCHMARK_CAPTURE(filter, lets through, "Rossi               ");

}  // namespace

int main(int argc, char** argv)
{
    for (const Sample& sample : kSamples)
        benchmark::RegisterBenchmark(sample.name,
                                     [&sample](benchmark::State& state) { compare(state, sample); });
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
