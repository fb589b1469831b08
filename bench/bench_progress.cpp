// What it costs to move a progress bar in a loop, beside the same with the widget.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QProgressBar>

namespace {

constexpr int steps = 10000;

// Ends with the bar at its beginning, so that each round moves it as far.
template <class MoveTo>
void loop(benchmark::State& state, QProgressBar& bar, MoveTo moveTo)
{
    bar.setRange(0, steps);
    bar.resize(300, 20);
    bar.show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        for (int i = steps; i-- > 0;)
            moveTo(i);
    }
    if (bar.value() != 0)
        state.SkipWithError("the bar was not moved");
}

void moveByControl(benchmark::State& state)
{
    QProgressBar widget;
    CProgressCtrl_X bar;
    bar.SubclassWindow(&widget);
    loop(state, widget, [&bar](int position) { bar.SetPos(position); });
}

void moveByWidget(benchmark::State& state)
{
    QProgressBar bar;
    loop(state, bar, [&bar](int position) {
        bar.setValue(position);
        QCoreApplication::processEvents();
    });
}

} // namespace

BENCHMARK(moveByControl)->Name("progress_loop/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(moveByWidget)->Name("progress_loop/peer:setValue and processEvents")->Unit(benchmark::kMillisecond);
