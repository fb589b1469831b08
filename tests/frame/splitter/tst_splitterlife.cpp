// Splitters, their panes and their wrappers end in every order.

#include "deletelater.h"
#include "leavenothing.h"
#include "messagetrace.h"
#include "testclass.h"

#include <xeafxframe.h>

#include <QMouseEvent>

namespace {

/// A move of the mouse on a divider, with the left button down.
void dragDivider(QSplitterHandle& divider)
{
    QMouseEvent move(QEvent::MouseMove, QPointF(2, 3), divider.mapToGlobal(QPoint(2, 3)), Qt::NoButton, Qt::LeftButton,
                     Qt::ShiftModifier);
    QCoreApplication::sendEvent(&divider, &move);
}

/// Carries out what a test gives it when a divider is dragged, and does not let it move.
class ActingSplitter : public CSplitterWndEx_X
{
    Q_OBJECT

public:
    std::function<void()> act;
    int moves = 0;
    UINT lastFlags = 0;
    CPoint lastPoint;

    void OnMouseMove(UINT flags, CPoint point)
    {
        ++moves;
        lastFlags = flags;
        lastPoint = point;
        if (act)
            act();
    }

    DECLARE_MESSAGE_MAP_X()
};

BEGIN_MESSAGE_MAP_X(ActingSplitter, CSplitterWndEx_X)
    ON_WM_MOUSEMOVE_X()
END_MESSAGE_MAP_X()

enum Part { Top, SplitterWidget, Splitter, Frame, LeftView, RightView };

/// A splitter with two panes in a window, each with a wrapper on the heap.
struct Parts
{
    Parts()
    {
        top->resize(400, 100);
        frame->SubclassWindow(top);
        splitter->CreateStatic(frame, 1, 2);
        splitter->CreateView(0, 0, left);
        splitter->CreateView(0, 1, right);
        splitter->MoveWindow(0, 0, 400, 100);
        splitter->ShowWindow(SW_SHOW);
        top->show();
    }

    void end(Part part)
    {
        switch (part) {
        case Top:
            return delete top;
        case SplitterWidget:
            return delete (splitter ? splitter->GetSafeHwnd() : nullptr);
        case Splitter:
            return delete splitter;
        case Frame:
            return delete frame;
        case LeftView:
            return delete left;
        case RightView:
            return delete right;
        }
    }

    void endAll()
    {
        delete left;
        delete right;
        delete splitter;
        delete frame;
        delete top;
        deleteLaterObjects();
    }

    QPointer<QWidget> top = new QWidget;
    QPointer<CWnd_X> frame = new CWnd_X;
    QPointer<ActingSplitter> splitter = new ActingSplitter;
    QPointer<Traced<>> left = new Traced<>;
    QPointer<Traced<>> right = new Traced<>;
};

} // namespace

class tst_SplitterLife : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void everyOrderOfEnds_data();
    void everyOrderOfEnds();
    void destroyWindowTellsThePanes();
    void thousandSplittersLeaveNothing();

    void aDragIsSeenInTheSplittersCoordinates();
    void theFirstLookMayStopADrag();
    void movesWithoutTheButtonAreNotSeen();
    void panesAreNotSeen();
    void dividersOfAnAdoptedSplitter();
    void dividersOfASplitterThatWasLetGo();
    void theEndDuringADrag_data();
    void theEndDuringADrag();

    void limits();
};

void tst_SplitterLife::everyOrderOfEnds_data()
{
    QTest::addColumn<QVector<int>>("order");
    QTest::addColumn<bool>("atOnce");
    QVector<int> order{Top, SplitterWidget, Splitter, Frame, LeftView, RightView};
    do {
        QTest::addRow("%d%d%d%d%d%d", order[0], order[1], order[2], order[3], order[4], order[5]) << order << true;
        QTest::addRow("%d%d%d%d%d%d slowly", order[0], order[1], order[2], order[3], order[4], order[5])
            << order << false;
    } while (std::next_permutation(order.begin(), order.end()));
}

void tst_SplitterLife::everyOrderOfEnds()
{
    QFETCH(QVector<int>, order);
    QFETCH(bool, atOnce);
    Parts parts;
    for (const int part : order) {
        parts.end(static_cast<Part>(part));
        if (!atOnce)
            deleteLaterObjects();
    }
    deleteLaterObjects();
    QVERIFY(!parts.top && !parts.splitter && !parts.left && !parts.right);
}

void tst_SplitterLife::destroyWindowTellsThePanes()
{
    Parts parts;
    parts.left->trace.clear();
    parts.right->trace.clear();
    QCOMPARE(parts.splitter->DestroyWindow(), 1);
    for (const Traced<>* view : {parts.left.data(), parts.right.data()}) {
        QCOMPARE(view->trace.text(), QStringLiteral("WM_DESTROY(0x0, 0x0) WM_NCDESTROY(0x0, 0x0)"));
        QCOMPARE(view->GetSafeHwnd(), nullptr);
    }
    QCOMPARE(parts.splitter->GetSafeHwnd(), nullptr);
    parts.endAll();
}

void tst_SplitterLife::thousandSplittersLeaveNothing()
{
    QWidget top;
    CWnd_X frame;
    frame.SubclassWindow(&top);
    const int children = top.children().size();
    for (int i = 0; i < 1000; ++i) {
        CSplitterWndEx_X splitter;
        CWnd_X left;
        CWnd_X right;
        splitter.CreateStatic(&frame, 1, 2);
        splitter.CreateView(0, 0, &left);
        splitter.CreateView(0, 1, &right);
        splitter.DestroyWindow();
        deleteLaterObjects();
    }
    QCOMPARE(top.children().size(), children);
}

// ------------------------------------------------------------------------------------------------------- dividers

void tst_SplitterLife::aDragIsSeenInTheSplittersCoordinates()
{
    Parts parts;
    QSplitterHandle* const divider = parts.splitter->Imp<QSplitter>()->handle(1);
    const int x = divider->x();
    dragDivider(*divider);
    QCOMPARE(parts.splitter->moves, 1);
    QCOMPARE(parts.splitter->lastFlags, MK_LBUTTON | MK_SHIFT);
    QCOMPARE(parts.splitter->lastPoint, CPoint(x + 2, 3));
    QCOMPARE(divider->x(), x);
    parts.endAll();
}

void tst_SplitterLife::theFirstLookMayStopADrag()
{
    class Looking : public CSplitterWndEx_X
    {
    public:
        int PreTranslateMessage(tagMSG* message) override
        {
            if (message->message == WM_MOUSEMOVE)
                seen += QString::number(message->lParam, 16);
            return stops;
        }

        QStringList seen;
        bool stops = false;
    };
    QWidget top;
    QSplitter splitter(&top);
    splitter.resize(400, 100);
    splitter.addWidget(new QWidget);
    splitter.addWidget(new QWidget);
    top.show();
    Looking wrapper;
    wrapper.SubclassWindow(&splitter);
    QSplitterHandle* const divider = splitter.handle(1);
    const int x = divider->x();
    const auto drag = [&](int distance) {
        QMouseEvent move(QEvent::MouseMove, QPointF(distance, 3), divider->mapToGlobal(QPoint(distance, 3)),
                         Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(divider, &move);
    };
    wrapper.stops = true;
    drag(40);
    QCOMPARE(divider->x(), x);
    wrapper.stops = false;
    drag(40);
    QCOMPARE(divider->x(), x + 40);
    QCOMPARE(wrapper.seen, QStringList({QString::number(0x30000 + x + 40, 16), QString::number(0x30000 + x + 40, 16)}));
}

void tst_SplitterLife::movesWithoutTheButtonAreNotSeen()
{
    Parts parts;
    QSplitterHandle* const divider = parts.splitter->Imp<QSplitter>()->handle(1);
    QTest::mouseMove(divider, QPoint(1, 1));
    QMouseEvent right(QEvent::MouseMove, QPointF(2, 3), Qt::NoButton, Qt::RightButton, Qt::NoModifier);
    QCoreApplication::sendEvent(divider, &right);
    QTest::mousePress(divider, Qt::LeftButton);
    QTest::mouseRelease(divider, Qt::LeftButton);
    QCOMPARE(parts.splitter->moves, 0);
    parts.endAll();
}

void tst_SplitterLife::panesAreNotSeen()
{
    Parts parts;
    QMouseEvent move(QEvent::MouseMove, QPointF(2, 3), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    parts.left->trace.clear();
    QCoreApplication::sendEvent(parts.left->GetSafeHwnd(), &move);
    QCOMPARE(parts.left->trace.text(), QStringLiteral("WM_MOUSEMOVE(0x1, 0x30002)"));
    QCOMPARE(parts.splitter->moves, 1); // as the parent, to which Qt hands on what a pane leaves
    QCOMPARE(parts.splitter->lastPoint, CPoint(2, 3) + CPoint(parts.left->GetSafeHwnd()->x(), 0));
    parts.endAll();
}

void tst_SplitterLife::dividersOfAnAdoptedSplitter()
{
    QWidget top;
    QSplitter splitter(&top);
    splitter.resize(400, 100);
    splitter.addWidget(new QWidget);
    splitter.addWidget(new QWidget);
    top.show();
    ActingSplitter wrapper;
    wrapper.SubclassWindow(&splitter);
    dragDivider(*splitter.handle(1));
    QCOMPARE(wrapper.moves, 1);
    splitter.addWidget(new QWidget); // a divider more
    dragDivider(*splitter.handle(2));
    QCOMPARE(wrapper.moves, 2);
}

void tst_SplitterLife::dividersOfASplitterThatWasLetGo()
{
    QWidget top;
    QSplitter first(&top);
    QSplitter second(&top);
    for (QSplitter* splitter : {&first, &second}) {
        splitter->addWidget(new QWidget);
        splitter->addWidget(new QWidget);
        splitter->resize(400, 100);
    }
    top.show();
    ActingSplitter wrapper;
    wrapper.SubclassWindow(&first);
    wrapper.SubclassWindow(&second);
    dragDivider(*first.handle(1));
    QCOMPARE(wrapper.moves, 0);
    dragDivider(*second.handle(1));
    QCOMPARE(wrapper.moves, 1);
    wrapper.Detach();
    dragDivider(*second.handle(1));
    QCOMPARE(wrapper.moves, 1);
    wrapper.SubclassWindow(&first);
    dragDivider(*first.handle(1));
    QCOMPARE(wrapper.moves, 2); // once
}

void tst_SplitterLife::theEndDuringADrag_data()
{
    QTest::addColumn<int>("part");
    QTest::newRow("the window") << int(Top);
    QTest::newRow("the splitter's widget") << int(SplitterWidget);
    QTest::newRow("the splitter's wrapper") << int(Splitter);
    QTest::newRow("a pane's wrapper") << int(LeftView);
}

void tst_SplitterLife::theEndDuringADrag()
{
    QFETCH(int, part);
    Parts parts;
    parts.splitter->act = [&parts, part] { parts.end(static_cast<Part>(part)); };
    dragDivider(*parts.splitter->Imp<QSplitter>()->handle(1));
    parts.endAll();
}

void tst_SplitterLife::limits()
{
    CSplitterWndEx_X splitter;
    QCOMPARE(splitter.m_nXMax, 500);
    QCOMPARE(splitter.m_nXMin, 50);
    splitter.SetXMax(-3);
    splitter.SetXMIn(1000);
    QCOMPARE(splitter.m_nXMax, -3);
    QCOMPARE(splitter.m_nXMin, 1000);
}

XE_TEST(tst_SplitterLife)
#include "tst_splitterlife.moc"
