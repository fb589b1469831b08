// A divider is dragged with the mouse.

#include "leavenothing.h"
#include "messagetrace.h"
#include "realwindow.h"
#include "testclass.h"

#include <xeafxframe.h>

namespace {

/// Keeps its dividers within its limits.
class LimitedSplitter : public CSplitterWndEx_X
{
    Q_OBJECT

public:
    void OnMouseMove(UINT flags, CPoint point)
    {
        seen += point.x;
        if (point.x >= m_nXMin && point.x <= m_nXMax)
            CSplitterWndEx_X::OnMouseMove(flags, point);
    }

    QList<int> seen;

    DECLARE_MESSAGE_MAP_X()
};

BEGIN_MESSAGE_MAP_X(LimitedSplitter, CSplitterWndEx_X)
    ON_WM_MOUSEMOVE_X()
END_MESSAGE_MAP_X()

} // namespace

class tst_SplitterDrag : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_input.isUsable()); }
    void cleanup();

    void thePanesFollowTheDivider();
    void aSplitterWithoutEyesIsDragged();
    void theHostsLimitsHold();
    void aColumnWithAWidthIsNotDraggedWider();

private:
    template <class Splitter>
    void comeUp(Splitter& splitter);
    int dividerX() const { return m_splitter->handle(1)->x(); }
    void drag(int x);

    VirtualInput m_input;
    std::unique_ptr<RealWindow<CWnd_X>> m_window;
    Traced<> m_left;
    Traced<> m_right;
    QPointer<QSplitter> m_splitter;
};

void tst_SplitterDrag::cleanup()
{
    m_input.releaseAll();
    m_window.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

template <class Splitter>
void tst_SplitterDrag::comeUp(Splitter& splitter)
{
    m_window = std::make_unique<RealWindow<CWnd_X>>(m_input);
    m_window->widget()->resize(600, 200);
    QCOMPARE(splitter.CreateStatic(&m_window->wrapper, 1, 2), 1);
    QCOMPARE(splitter.CreateView(0, 0, &m_left), 1);
    QCOMPARE(splitter.CreateView(0, 1, &m_right), 1);
    m_splitter = splitter.template Imp<QSplitter>();
    splitter.MoveWindow(CRect(0, 0, 600, 200));
    splitter.ShowWindow(SW_SHOW);
    m_splitter->setSizes({200, 400 - m_splitter->handleWidth()});
    QVERIFY(m_window->comeUp());
    QCOMPARE(dividerX(), 200);
    m_window->settle();
    m_left.trace.clear();
    m_right.trace.clear();
}

// Moves the pointer with the left button down to this column of the window, or as far as it is let.
void tst_SplitterDrag::drag(int x)
{
    const QPoint grip(1, 100);
    m_window->movePointer(QPoint(dividerX(), 0) + grip);
    m_window->settle();
    m_input.pressButton(1);
    m_window->settle();
    m_window->movePointer(QPoint(x, 0) + grip);
    m_window->settle();
    QTest::qWait(0);
    m_input.releaseButton(1);
    m_window->settle();
}

void tst_SplitterDrag::thePanesFollowTheDivider()
{
    LimitedSplitter splitter;
    comeUp(splitter);
    drag(300);
    QTRY_COMPARE(dividerX(), 300);
    QVERIFY(splitter.seen.contains(301));
    const int right = 300 - m_splitter->handleWidth();
    QVERIFY(m_left.trace.text().contains(QStringLiteral("WM_SIZE(0x0, 0xc8012c)")));
    QVERIFY(m_right.trace.text().contains(QStringLiteral("WM_SIZE(0x0, 0xc8%1)").arg(right, 4, 16, QLatin1Char('0'))));
    QCOMPARE(m_left.GetSafeHwnd()->width(), 300);
    QCOMPARE(m_right.GetSafeHwnd()->width(), right);
}

void tst_SplitterDrag::aSplitterWithoutEyesIsDragged()
{
    CSplitterWnd_X splitter;
    comeUp(splitter);
    drag(300);
    QTRY_COMPARE(dividerX(), 300);
    QVERIFY(m_left.trace.text().contains(QStringLiteral("WM_SIZE(0x0, 0xc8012c)")));
}

void tst_SplitterDrag::theHostsLimitsHold()
{
    LimitedSplitter splitter;
    splitter.SetXMIn(80);
    splitter.SetXMax(400);
    comeUp(splitter);
    drag(40);
    QTRY_COMPARE(splitter.seen.value(splitter.seen.size() - 1), 41);
    QCOMPARE(dividerX(), 200);
    drag(480);
    QTRY_COMPARE(splitter.seen.value(splitter.seen.size() - 1), 481);
    QCOMPARE(dividerX(), 200);
    drag(399);
    QTRY_COMPARE(dividerX(), 399);
    drag(79);
    QTRY_COMPARE(dividerX(), 79);
}

void tst_SplitterDrag::aColumnWithAWidthIsNotDraggedWider()
{
    LimitedSplitter splitter;
    comeUp(splitter);
    splitter.SetColumnInfo(0, 150, 60);
    QTRY_COMPARE(dividerX(), 150);
    drag(300);
    QTRY_VERIFY(splitter.seen.contains(301));
    m_window->settle();
    QCOMPARE(dividerX(), 150);
    drag(100);
    QTRY_COMPARE(dividerX(), 100);
    drag(140);
    QTRY_COMPARE(dividerX(), 140);
}

XE_TEST(tst_SplitterDrag)
#include "tst_splitterdrag.moc"
