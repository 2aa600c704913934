/// Opening a file in the window, stepping through it, and lists in which every record is a hit, drawn off
/// screen. QUORVIN_BENCH_FILE names the file.

#include <benchmark/benchmark.h>

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
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

/// A window in which every record is to be found, by a blank in the field of the towns.
struct ListWindow : Window {
    explicit ListWindow(bool sorted)
    {
        form.findChild<QAction*>(QStringLiteral("elencorekord"))->trigger();
        if (sorted) form.findChild<QAction*>(QStringLiteral("sort"))->trigger();
        QTest::mouseClick(box, Qt::LeftButton);
        box->setText(QStringLiteral(" "));
    }

    /// Searches, and returns the most milliseconds that the window takes no input.
    qint64 search()
    {
        qint64 held = 0;
        QElapsedTimer time;
        time.start();
        QTest::keyClick(box, Qt::Key_Return);
        while (state->text() != QStringLiteral("  ...fine ricerca")) {
            held = std::max(held, time.restart());
            QCoreApplication::processEvents();
        }
        return std::max(held, time.elapsed());
    }

    QLineEdit* box = form.findChild<QLineEdit*>(QStringLiteral("Text2(6)"));
    QLabel* state = form.findChild<QLabel*>(QStringLiteral("Label16"));
};

void listFill(benchmark::State& state)
{
    ListWindow window(state.range(0) != 0);
    qint64 held = 0;
    for ([[maybe_unused]] auto _ : state) {
        held = std::max(held, window.search());
        window.draw();
    }
    state.counters["heldMs"] = static_cast<double>(held);
    state.counters["peakMiB"] = peakMemory();
}
BENCHMARK(listFill)->ArgName("sorted")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void listScroll(benchmark::State& state)
{
    ListWindow window(false);
    window.search();
    auto* list = window.form.findChild<QListView*>(QStringLiteral("List1"));
    for ([[maybe_unused]] auto _ : state) {
        list->scrollToBottom();
        list->grab();
        list->verticalScrollBar()->setValue(list->verticalScrollBar()->maximum() / 2);
        list->grab();
        list->scrollToTop();
        list->grab();
    }
    state.counters["peakMiB"] = peakMemory();
}
BENCHMARK(listScroll)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
