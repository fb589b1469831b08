// Windows on a real screen, with a window manager's frames around them.

#include "leavenothing.h"
#include "realwindow.h"
#include "testclass.h"

#include <XeMFCEmu.h>

class tst_WindowOnScreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_input.isUsable()); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void shownWindowComesBackWhereItWas();
    void windowRectHasTheFrame();
    void pointsAreOnTheScreen();
    void focusActivatesTheWindow();
    void capturedPointer();
    void pointerIsMovedAndFound();

private:
    VirtualInput m_input;
};

void tst_WindowOnScreen::shownWindowComesBackWhereItWas()
{
    RealWindow<CWnd_X> window(m_input);
    QVERIFY(window.comeUp());
    const QPoint place = window.widget()->pos();
    const QPoint origin = window.origin();
    for (int round = 0; round < 3; ++round) {
        QCOMPARE(ShowWindow_X(window.widget(), SW_HIDE), 1);
        QVERIFY(!window.widget()->isVisible());
        window.settle();
        QCOMPARE(ShowWindow_X(window.widget(), SW_SHOW), 1);
        QVERIFY(QTest::qWaitForWindowExposed(window.widget()));
        QTRY_COMPARE(window.origin(), origin); // does not wander by its frame
        QTRY_COMPARE(window.widget()->pos(), place);
    }
}

void tst_WindowOnScreen::windowRectHasTheFrame()
{
    RealWindow<CWnd_X> window(m_input);
    QVERIFY(window.comeUp());
    const QPoint origin = window.origin();
    tagRECT rect{};
    GetWindowRect_X(window.widget(), &rect);
    QVERIFY(rect.top < origin.y()); // the title bar
    QVERIFY(rect.bottom >= origin.y() + 200);
    QVERIFY(rect.left <= origin.x());
    QVERIFY(rect.right >= origin.x() + 300);
    QCOMPARE(QPoint(rect.left, rect.top), window.widget()->pos());
}

void tst_WindowOnScreen::pointsAreOnTheScreen()
{
    RealWindow<CWnd_X> window(m_input);
    QVERIFY(window.comeUp());
    auto* const child = new QWidget(window.widget());
    child->setGeometry(10, 20, 30, 40);
    child->show();
    const QPoint origin = window.origin();
    tagRECT rect{};
    GetWindowRect_X(child, &rect);
    QCOMPARE(QRect(QPoint(rect.left, rect.top), QPoint(rect.right, rect.bottom)),
             QRect(origin + QPoint(10, 20), origin + QPoint(40, 60)));
    tagPOINT point{1, 2};
    ClientToScreen_X(child, &point);
    QCOMPARE(QPoint(point.x, point.y), origin + QPoint(11, 22));
    QCOMPARE(WindowFromPoint_X(point), child);
}

void tst_WindowOnScreen::focusActivatesTheWindow()
{
    RealWindow<CWnd_X> first(m_input);
    QVERIFY(first.comeUp());
    RealWindow<CWnd_X> second(m_input);
    QVERIFY(second.comeUp());
    auto* const edit = new QLineEdit(first.widget());
    edit->show();
    QCOMPARE(GetActiveWindow_X(), second.widget());
    SetFocus_X(edit);
    QTRY_COMPARE(GetActiveWindow_X(), first.widget());
    QCOMPARE(GetFocus_X(), edit);
    QCOMPARE(SetActiveWindow_X(second.widget()), first.widget());
    QTRY_COMPARE(GetActiveWindow_X(), second.widget());
}

void tst_WindowOnScreen::capturedPointer()
{
    struct Catcher : QWidget
    {
        QPoint last;
        void mouseMoveEvent(QMouseEvent* event) override { last = event->pos(); }
    };
    RealWindow<CWnd_X> window(m_input, new Catcher);
    QVERIFY(window.comeUp());
    const auto* const catcher = static_cast<Catcher*>(window.widget());
    SetCapture_X(window.widget());
    window.movePointer({400, 30}); // beside the window
    QTRY_COMPARE(catcher->last, QPoint(400, 30));
    QCOMPARE(ReleaseCapture_X(), 1);
    window.settle();
    window.movePointer({410, 40});
    window.settle();
    QCOMPARE(catcher->last, QPoint(400, 30));
}

void tst_WindowOnScreen::pointerIsMovedAndFound()
{
    m_input.movePointer({321, 123});
    tagPOINT point{};
    GetCursorPos_X(&point);
    QCOMPARE(QPoint(point.x, point.y), QPoint(321, 123));
    SetCursorPos_X(45, 67);
    GetPhysicalCursorPos_X(&point);
    QCOMPARE(QPoint(point.x, point.y), QPoint(45, 67));
}

XE_TEST(tst_WindowOnScreen)
#include "tst_windowonscreen.moc"
