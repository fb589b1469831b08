// What a wrapper costs beside a plain Qt event filter: per event, per message, per lookup and per attachment.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <QVariant>

#include <memory>
#include <vector>

namespace {

constexpr UINT privateMessage = WM_USER + 1;
const auto untranslatedType = static_cast<QEvent::Type>(QEvent::User + 1);

class PassingFilter : public QObject
{
public:
    bool eventFilter(QObject*, QEvent*) override { return false; }
};

class CountingWindow : public CWnd_X
{
public:
    void OnMessageMap() override
    {
        using ThisClass = CountingWindow;
        CWnd_X::OnMessageMap();
        ON_MESSAGE_X(privateMessage, onPrivateMessage)
        ON_WM_MOUSEMOVE_X()
    }
    LRESULT onPrivateMessage(WPARAM wParam, LPARAM) { return static_cast<LRESULT>(wParam) + ++calls; }
    void OnMouseMove(UINT, CPoint) { ++calls; }

    long long calls = 0;
};

class FilteringMouseMoves : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        calls += event->type() == QEvent::MouseMove;
        return event->type() == QEvent::MouseMove;
    }

    long long calls = 0;
};

struct FilteredWidget
{
    FilteredWidget() { widget.installEventFilter(&filter); }

    QWidget widget;
    PassingFilter filter;
};

struct WrappedWidget
{
    WrappedWidget() { window.SubclassWindow(&widget); }

    QWidget widget;
    CountingWindow window;
};

template <class Target>
void sendUntranslated(benchmark::State& state)
{
    Target target;
    QEvent event(untranslatedType);
    for (auto _ : state)
        benchmark::DoNotOptimize(QCoreApplication::sendEvent(&target.widget, &event));
}

void sendPrivateMessage(benchmark::State& state)
{
    WrappedWidget target;
    for (auto _ : state)
        benchmark::DoNotOptimize(SendMessage_X(&target.widget, privateMessage, 1, 2));
    if (target.window.calls != static_cast<long long>(state.iterations()))
        state.SkipWithError("the handler was not called");
}

void sendMouseMoveToWindow(benchmark::State& state)
{
    WrappedWidget target;
    target.widget.setMouseTracking(true);
    target.widget.grabMouse(); // nothing is posted after the event
    QMouseEvent event(QEvent::MouseMove, QPointF(3, 4), QPointF(3, 4), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    for (auto _ : state)
        benchmark::DoNotOptimize(QCoreApplication::sendEvent(&target.widget, &event));
    target.widget.releaseMouse();
    if (target.window.calls < static_cast<long long>(state.iterations()))
        state.SkipWithError("the handler was not called");
}

void sendMouseMoveToFilter(benchmark::State& state)
{
    QWidget widget;
    widget.setMouseTracking(true);
    FilteringMouseMoves filter;
    widget.installEventFilter(&filter);
    QMouseEvent event(QEvent::MouseMove, QPointF(3, 4), QPointF(3, 4), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    for (auto _ : state)
        benchmark::DoNotOptimize(QCoreApplication::sendEvent(&widget, &event));
    if (filter.calls < static_cast<long long>(state.iterations()))
        state.SkipWithError("the filter was not called");
}

void findWrapper(benchmark::State& state)
{
    WrappedWidget target;
    for (auto _ : state) {
        if (CWnd_X::FromHandlePermanent(&target.widget) != &target.window)
            state.SkipWithError("the wrapper was not found");
    }
}

void readProperty(benchmark::State& state)
{
    WrappedWidget target;
    for (auto _ : state)
        benchmark::DoNotOptimize(target.widget.property("owner"));
}

void tie(CWnd_X& window, QWidget& widget) { window.SubclassWindow(&widget); }

void tie(PassingFilter& filter, QWidget& widget) { widget.installEventFilter(&filter); }

// A whole population at once: attaching one more must not cost more the more there are.
template <class Watcher>
void attachPopulation(benchmark::State& state)
{
    const auto count = static_cast<std::size_t>(state.range(0));
    std::vector<QWidget> widgets(count);
    // What new widgets have posted to themselves is searched through as each of them goes.
    QCoreApplication::removePostedEvents(nullptr);
    for (auto _ : state) {
        std::vector<Watcher> watchers(count);
        for (std::size_t i = 0; i < count; ++i)
            tie(watchers[i], widgets[i]);
    }
}

} // namespace

BENCHMARK(sendUntranslated<WrappedWidget>)->Name("untranslated_event/ours");
BENCHMARK(sendUntranslated<FilteredWidget>)->Name("untranslated_event/peer:event filter");
BENCHMARK(sendPrivateMessage)->Name("private_message/ours");
BENCHMARK(sendUntranslated<FilteredWidget>)->Name("private_message/peer:sendEvent to an event filter");
BENCHMARK(sendMouseMoveToWindow)->Name("mouse_move/ours");
BENCHMARK(sendMouseMoveToFilter)->Name("mouse_move/peer:event filter");
BENCHMARK(findWrapper)->Name("from_handle_permanent/ours");
BENCHMARK(readProperty)->Name("from_handle_permanent/peer:property");
BENCHMARK(attachPopulation<CWnd_X>)->Name("attach/ours")->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(attachPopulation<PassingFilter>)
    ->Name("attach/peer:event filter")
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond);
