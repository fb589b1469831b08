// What a wrapper costs beside a plain Qt event filter: per event, per message, per lookup and per attachment.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QMenuBar>
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

// The same by hand: the handler gets the buttons and the place.
class FilteringMouseMoves : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::MouseMove)
            return false;
        const auto* const mouse = static_cast<QMouseEvent*>(event);
        mouseMove(mouse->buttons(), mouse->modifiers(), mouse->pos());
        return true;
    }

    virtual void mouseMove(Qt::MouseButtons, Qt::KeyboardModifiers, QPoint) { ++calls; }

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

// A window with children, each wrapped or not, that gets an event.
template <bool wrapped>
void sendToParent(benchmark::State& state)
{
    constexpr std::size_t count = 100;
    QWidget window;
    std::vector<QWidget> children(count);
    std::vector<CWnd_X> wrappers(wrapped ? count : 0);
    for (std::size_t i = 0; i < count; ++i) {
        children[i].setParent(&window);
        if (wrapped)
            wrappers[i].SubclassWindow(&children[i]);
    }
    QMouseEvent event(QEvent::MouseMove, QPointF(3, 4), QPointF(3, 4), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    for (auto _ : state)
        benchmark::DoNotOptimize(QCoreApplication::sendEvent(&window, &event));
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

// What a window object needs of Qt, at the least: a filter, an address on the widget and the other way round, word of
// the widget's end and of idle moments, and a menu bar.
class TiedFilter : public PassingFilter
{
public:
    void tieTo(QWidget& widget)
    {
        widget.installEventFilter(this);
        widget.setProperty("owner", static_cast<qlonglong>(reinterpret_cast<qintptr>(this)));
        widget.setProperty("parent", static_cast<qlonglong>(0));
        connect(&widget, &QObject::destroyed, this, [] {});
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this, [] {});
        auto* const menuBar = new QMenuBar(&widget);
        menuBar->hide();
    }
};

void tie(CWnd_X& window, QWidget& widget) { window.SubclassWindow(&widget); }

void tie(TiedFilter& filter, QWidget& widget) { filter.tieTo(widget); }

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
BENCHMARK(sendToParent<true>)->Name("wrapped_children/ours");
BENCHMARK(sendToParent<false>)->Name("wrapped_children/peer:plain children");
BENCHMARK(findWrapper)->Name("from_handle_permanent/ours");
BENCHMARK(readProperty)->Name("from_handle_permanent/peer:property");
BENCHMARK(attachPopulation<CWnd_X>)->Name("attach/ours")->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(attachPopulation<TiedFilter>)
    ->Name("attach/peer:filter, properties, connections, menu bar")
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond);
