/// Opening a file in the window and stepping through it, drawn off screen. QUORVIN_BENCH_FILE names the file.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <random>

#include "app/Formstart.h"
#include "app/QtDialogs.h"

namespace {

using quorvin::Formstart;

struct Window {
    Window() : form(dialogs)
    {
        form.resize(1024, 740);
        form.show();
        open();
    }

    void open() { form.openFile(qEnvironmentVariable("QUORVIN_BENCH_FILE")); }
    void draw() { form.grab(); }

    quorvin::QtDialogs dialogs;
    Formstart form;
};

/// Most memory that this process has held so far, in MiB; 0 where the system does not tell it this way.
double peakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    const QRegularExpression peak(QStringLiteral("VmHWM:\\s+(\\d+)"));
    return peak.match(QString::fromLatin1(status.readAll())).captured(1).toDouble() / 1024;
}

void windowOpen(benchmark::State& state)
{
    Window window;
    for ([[maybe_unused]] auto _ : state) {
        window.open();
        window.draw();
    }
    state.counters["peakMiB"] = peakMemory();
}
BENCHMARK(windowOpen)->Unit(benchmark::kMillisecond);

void windowStep(benchmark::State& state)
{
    Window window;
    auto* next = window.form.findChild<QPushButton*>(QStringLiteral("Command1"));
    for ([[maybe_unused]] auto _ : state) {
        next->click();
        window.draw();
    }
    state.counters["peakMiB"] = peakMemory();
}
BENCHMARK(windowStep)->Unit(benchmark::kMillisecond);

void windowAnyRecord(benchmark::State& state)
{
    Window window;
    const auto count =
        window.form.findChild<QLabel*>(QStringLiteral("Label9"))->text().trimmed().toULongLong();
    std::mt19937_64 random(1);
    for ([[maybe_unused]] auto _ : state) {
        window.form.goToRecord(QString::number(1 + random() % count));
        window.draw();
    }
    state.counters["peakMiB"] = peakMemory();
}
BENCHMARK(windowAnyRecord)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
