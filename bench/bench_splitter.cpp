// What it costs to drag the divider of a splitter whose panes are windows, beside a plain QSplitter whose panes, and
// which itself, have event filters.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QSplitter>

#include <memory>

namespace {

constexpr int moves = 100; // a drag, from 100 to 299
constexpr int from = 100;

class PassingFilter : public QObject
{
public:
    bool eventFilter(QObject*, QEvent*) override { return false; }
};

/// Counts its sizes, as a view does that lays itself out.
class Pane : public CWnd_X
{
public:
    void OnMessageMap() override
    {
        using ThisClass = Pane;
        CWnd_X::OnMessageMap();
        ON_WM_SIZE_X()
    }
    void OnSize(UINT type, int width, int height)
    {
        ++sizes;
        CWnd_X::OnSize(type, width, height);
    }

    long long sizes = 0;
};

struct WrappedSplitter
{
    WrappedSplitter()
    {
        top.resize(600, 100);
        frame.SubclassWindow(&top);
        splitter.CreateStatic(&frame, 1, 2);
        splitter.CreateView(0, 0, &left);
        splitter.CreateView(0, 1, &right);
        imp = splitter.Imp<QSplitter>();
    }

    QWidget top;
    CWnd_X frame;
    Pane left;
    Pane right;
    CSplitterWndEx_X splitter;
    QSplitter* imp = nullptr;
};

struct FilteredSplitter
{
    FilteredSplitter()
    {
        top.resize(600, 100);
        imp = new QSplitter(&top);
        for (int i = 0; i < 2; ++i) {
            auto* const pane = new QWidget;
            pane->setAttribute(Qt::WA_Hover);
            pane->setMouseTracking(true);
            pane->installEventFilter(&filter);
            imp->addWidget(pane);
        }
        imp->installEventFilter(&filter);
        imp->handle(1)->installEventFilter(&filter);
    }

    QWidget top;
    PassingFilter filter;
    QSplitter* imp = nullptr;
};

void moveDivider(QSplitterHandle& divider, int x)
{
    const QPoint global = divider.parentWidget()->mapToGlobal({x, 50});
    QMouseEvent move(QEvent::MouseMove, divider.mapFromGlobal(global), global, Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(&divider, &move);
}

template <class Splitter>
void drag(benchmark::State& state)
{
    Splitter splitter;
    splitter.imp->setGeometry(0, 0, 600, 100);
    splitter.imp->show();
    splitter.top.show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        for (int i = 0; i < moves; ++i)
            moveDivider(*splitter.imp->handle(1), from + 2 * i);
        QCoreApplication::sendPostedEvents();
    }
    if (splitter.imp->handle(1)->x() != from + 2 * (moves - 1))
        state.SkipWithError("the divider was not dragged");
}

} // namespace

BENCHMARK(drag<WrappedSplitter>)->Name("splitter_drag/ours");
BENCHMARK(drag<FilteredSplitter>)->Name("splitter_drag/peer:QSplitter with filters");
