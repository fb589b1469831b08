// The scroll bars of a window.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

namespace {

// A window with both bars, in a parent of its own.
class ScrolledWindow
{
public:
    ScrolledWindow()
    {
        m_wrapper.Create(WS_VISIBLE | WS_VSCROLL | WS_HSCROLL, {0, 0, 100, 80}, &m_parent);
        bar(SB_HORZ)->setRange(10, 20);
        bar(SB_VERT)->setRange(100, 200);
    }

    QWidget* handle() const { return m_wrapper.GetSafeHwnd(); }
    QScrollBar* bar(int which) const { return m_wrapper.GetScrollBarCtrl(which); }

private:
    QWidget m_parent;
    CWnd_X m_wrapper;
};

// Has a bar of its own to show.
class BorrowingWindow : public CWnd_X
{
public:
    QScrollBar* GetScrollBarCtrl(int bar) const override { return bar == SB_VERT ? borrowed : nullptr; }

    QScrollBar* borrowed = nullptr;
};

} // namespace

class tst_ScrollFunctions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void position();
    void positionStaysInTheRange();
    void range();
    void rangeWithoutAPlaceForIt();
    void swappedRange();
    void overriddenBarIsTheOne();
    void windowWithoutBars_data();
    void windowWithoutBars();
    void nullWindow();
    void disabledBarIsHidden();
    void enablingMakesTheBar();
    void plainWidgetHasABarUntilTheIdleMoment();
};

void tst_ScrollFunctions::position()
{
    const ScrolledWindow window;
    QCOMPARE(SetScrollPos_X(window.handle(), SB_HORZ, 13, TRUE), 10); // the old one
    QCOMPARE(SetScrollPos_X(window.handle(), SB_HORZ, 17, FALSE), 13);
    QCOMPARE(SetScrollPos_X(window.handle(), SB_VERT, 150, TRUE), 100);
    QCOMPARE(GetScrollPos_X(window.handle(), SB_HORZ), 17);
    QCOMPARE(GetScrollPos_X(window.handle(), SB_VERT), 150);
    QCOMPARE(window.bar(SB_HORZ)->value(), 17);
    QCOMPARE(window.bar(SB_VERT)->value(), 150);
}

void tst_ScrollFunctions::positionStaysInTheRange()
{
    const ScrolledWindow window;
    SetScrollPos_X(window.handle(), SB_VERT, 5000, TRUE);
    QCOMPARE(GetScrollPos_X(window.handle(), SB_VERT), 200);
    SetScrollPos_X(window.handle(), SB_VERT, -1, TRUE);
    QCOMPARE(GetScrollPos_X(window.handle(), SB_VERT), 100);
}

void tst_ScrollFunctions::range()
{
    const ScrolledWindow window;
    int minimum = -1;
    int maximum = -1;
    QCOMPARE(GetScrollRange_X(window.handle(), SB_HORZ, &minimum, &maximum), 1);
    QCOMPARE(minimum, 10);
    QCOMPARE(maximum, 20);

    QCOMPARE(SetScrollRange_X(window.handle(), SB_VERT, -5, 5, TRUE), 1);
    QCOMPARE(window.bar(SB_VERT)->minimum(), -5);
    QCOMPARE(window.bar(SB_VERT)->maximum(), 5);
    QCOMPARE(window.bar(SB_HORZ)->maximum(), 20);
    QCOMPARE(GetScrollRange_X(window.handle(), SB_VERT, &minimum, &maximum), 1);
    QCOMPARE(minimum, -5);
    QCOMPARE(maximum, 5);
}

void tst_ScrollFunctions::rangeWithoutAPlaceForIt()
{
    const ScrolledWindow window;
    int number = -1;
    QCOMPARE(GetScrollRange_X(window.handle(), SB_HORZ, nullptr, &number), 1);
    QCOMPARE(number, 20);
    QCOMPARE(GetScrollRange_X(window.handle(), SB_HORZ, &number, nullptr), 1);
    QCOMPARE(number, 10);
}

void tst_ScrollFunctions::swappedRange()
{
    const ScrolledWindow window;
    QCOMPARE(SetScrollRange_X(window.handle(), SB_HORZ, 50, 30, TRUE), 1);
    QCOMPARE(window.bar(SB_HORZ)->minimum(), 30); // the maximum is set last
    QCOMPARE(window.bar(SB_HORZ)->maximum(), 30);
}

void tst_ScrollFunctions::overriddenBarIsTheOne()
{
    QWidget widget;
    QScrollBar bar;
    bar.setRange(3, 9);
    BorrowingWindow wrapper;
    wrapper.SubclassWindow(&widget);
    wrapper.borrowed = &bar;
    QCOMPARE(SetScrollPos_X(&widget, SB_VERT, 7, TRUE), 3);
    QCOMPARE(bar.value(), 7);
    QCOMPARE(GetScrollPos_X(&widget, SB_VERT), 7);
    QCOMPARE(SetScrollRange_X(&widget, SB_VERT, 1, 2, TRUE), 1);
    QCOMPARE(bar.maximum(), 2);
    QCOMPARE(SetScrollRange_X(&widget, SB_HORZ, 1, 2, TRUE), 0);
}

void tst_ScrollFunctions::windowWithoutBars_data()
{
    QTest::addColumn<bool>("wrapped");
    QTest::newRow("wrapped") << true;
    QTest::newRow("plain widget") << false;
}

void tst_ScrollFunctions::windowWithoutBars()
{
    QFETCH(bool, wrapped);
    QWidget widget;
    CWnd_X wrapper;
    if (wrapped)
        wrapper.SubclassWindow(&widget);
    int minimum = -1;
    int maximum = -2;
    QCOMPARE(GetScrollPos_X(&widget, SB_VERT), 0);
    QCOMPARE(SetScrollPos_X(&widget, SB_VERT, 5, TRUE), 0);
    QCOMPARE(GetScrollRange_X(&widget, SB_HORZ, &minimum, &maximum), 0);
    QCOMPARE(SetScrollRange_X(&widget, SB_HORZ, 1, 2, TRUE), 0);
    QCOMPARE(minimum, -1);
    QCOMPARE(maximum, -2);
    QCOMPARE(widget.findChild<QScrollBar*>(), nullptr);
    QCOMPARE(CWnd_X::FromHandlePermanent(&widget), wrapped ? &wrapper : nullptr); // nor a temporary one
}

void tst_ScrollFunctions::nullWindow()
{
    int number = -1;
    QCOMPARE(GetScrollPos_X(nullptr, SB_VERT), 0);
    QCOMPARE(SetScrollPos_X(nullptr, SB_VERT, 5, TRUE), 0);
    QCOMPARE(GetScrollRange_X(nullptr, SB_VERT, &number, &number), 0);
    QCOMPARE(SetScrollRange_X(nullptr, SB_VERT, 1, 2, TRUE), 0);
    QCOMPARE(EnableScrollBar_X(nullptr, SB_VERT, ESB_ENABLE_BOTH), 0);
    QCOMPARE(number, -1);
}

void tst_ScrollFunctions::disabledBarIsHidden()
{
    const ScrolledWindow window;
    QCOMPARE(EnableScrollBar_X(window.handle(), SB_VERT, ESB_DISABLE_BOTH), 1);
    QVERIFY(window.bar(SB_VERT)->isHidden());
    QVERIFY(window.bar(SB_VERT)->isEnabled());
    QVERIFY(!window.bar(SB_HORZ)->isHidden());
    QCOMPARE(EnableScrollBar_X(window.handle(), SB_BOTH, 1), 1); // one arrow alone
    QVERIFY(window.bar(SB_HORZ)->isHidden());
    QCOMPARE(EnableScrollBar_X(window.handle(), SB_BOTH, ESB_ENABLE_BOTH), 1);
    QVERIFY(!window.bar(SB_VERT)->isHidden());
    QVERIFY(!window.bar(SB_HORZ)->isHidden());
}

void tst_ScrollFunctions::enablingMakesTheBar()
{
    QWidget widget;
    CWnd_X wrapper;
    wrapper.SubclassWindow(&widget);
    QCOMPARE(EnableScrollBar_X(&widget, SB_VERT, ESB_DISABLE_BOTH), 1);
    QCOMPARE(wrapper.GetScrollBarCtrl(SB_VERT), nullptr);
    QCOMPARE(EnableScrollBar_X(&widget, SB_VERT, ESB_ENABLE_BOTH), 1);
    QVERIFY(wrapper.GetScrollBarCtrl(SB_VERT));
    QVERIFY(!wrapper.GetScrollBarCtrl(SB_VERT)->isHidden());
    QCOMPARE(wrapper.GetScrollBarCtrl(SB_HORZ), nullptr);
}

void tst_ScrollFunctions::plainWidgetHasABarUntilTheIdleMoment()
{
    QWidget widget;
    QCOMPARE(EnableScrollBar_X(&widget, SB_VERT, ESB_ENABLE_BOTH), 1);
    QVERIFY(widget.findChild<QScrollBar*>());
    ClearTempObjectPool();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(widget.findChild<QScrollBar*>(), nullptr);
}

XE_TEST(tst_ScrollFunctions)
#include "tst_scrollfunctions.moc"
