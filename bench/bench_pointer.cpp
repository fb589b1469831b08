// On a real X server: an event whose message nobody can look at must not pay for a question to the server.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QCursor>
#include <QTimerEvent>

namespace {

class LookingWindow : public CWnd_X
{
public:
    int PreTranslateMessage(tagMSG* message) override
    {
        benchmark::DoNotOptimize(message->pt.x);
        return 0;
    }
};

template <class Window>
void sendTimer(benchmark::State& state)
{
    QWidget widget;
    Window window;
    window.SubclassWindow(&widget);
    QTimerEvent event(1 << 30);
    for (auto _ : state)
        benchmark::DoNotOptimize(QCoreApplication::sendEvent(&widget, &event));
}

void askForPointer(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(QCursor::pos());
}

} // namespace

BENCHMARK(sendTimer<LookingWindow>)->Name("event_looked_at/ours");
BENCHMARK(askForPointer)->Name("event_looked_at/peer:one QCursor pos");
BENCHMARK(sendTimer<CWnd_X>)->Name("event_not_looked_at/ours");
BENCHMARK(askForPointer)->Name("event_not_looked_at/peer:one QCursor pos");
