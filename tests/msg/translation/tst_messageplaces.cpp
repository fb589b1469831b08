// Where a message happens: positions, hit codes, and the questions for the pointer.

#include "leavenothing.h"
#include "testclass.h"
#include "translation/madeevents.h"
#include "translation/ownpointer.h"

#include <xeafxwin.h>

#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>

namespace {

class TitleBarOf20 : public QProxyStyle
{
    Q_OBJECT

public:
    TitleBarOf20() : QProxyStyle(QStyleFactory::create(QStringLiteral("fusion"))) {}

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        return metric == PM_TitleBarHeight ? 20 : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

} // namespace

class tst_MessagePlaces : public QObject
{
    Q_OBJECT

private slots:
    void init() { resetPointer(); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void positions_data();
    void positions();
    void hitCodes_data();
    void hitCodes();
    void hitCodeOfAChild();
    void frameReleaseWithoutAWidget();

    void thePointerIsAskedOnce();
    void aPlainWindowDoesNotAskForThePointer();
};

void tst_MessagePlaces::positions_data()
{
    QTest::addColumn<QPointF>("position");
    QTest::addColumn<LPARAM>("lParam");

    QTest::newRow("origin") << QPointF(0, 0) << LPARAM(0);
    QTest::newRow("x in the low word") << QPointF(1, 0) << LPARAM(0x1);
    QTest::newRow("y in the high word") << QPointF(0, 1) << LPARAM(0x10000);
    QTest::newRow("negative x stays in its word") << QPointF(-1, 0) << LPARAM(0xFFFF);
    QTest::newRow("negative y is not extended") << QPointF(0, -1) << LPARAM(0xFFFF0000);
    QTest::newRow("both negative") << QPointF(-2, -3) << LPARAM(0xFFFDFFFE);
    QTest::newRow("greatest signed words") << QPointF(0x7FFF, 0x7FFF) << LPARAM(0x7FFF7FFF);
    QTest::newRow("y of 16 bits is not extended") << QPointF(0x8000, 0x8000) << LPARAM(0x80008000);
    QTest::newRow("beyond 16 bits is cut") << QPointF(0x12345, 0x16789) << LPARAM(0x67892345);
    QTest::newRow("rounded down") << QPointF(10.49, 20.49) << LPARAM(0x14000A);
    QTest::newRow("rounded up") << QPointF(9.51, 19.51) << LPARAM(0x14000A);
    QTest::newRow("a half rounds up") << QPointF(9.5, 19.5) << LPARAM(0x14000A);
    QTest::newRow("a negative fraction rounds to the nearest") << QPointF(-0.4, -1.6) << LPARAM(0xFFFE0000);
}

void tst_MessagePlaces::positions()
{
    QFETCH(QPointF, position);
    QFETCH(LPARAM, lParam);

    QWidget target;
    const EventPointer events[] = {
        mouse(QEvent::MouseButtonPress, position, Qt::LeftButton, Qt::LeftButton, none),
        mouse(QEvent::MouseMove, position, Qt::NoButton, Qt::NoButton, none),
        hover(QEvent::HoverEnter, position, none),
        hover(QEvent::HoverLeave, position, none),
        wheel(position, 120),
    };
    for (const EventPointer& event : events) {
        tagMSG message{};
        QCOMPARE(xeQEventToMsg(&target, event.data(), &message), 1);
        QCOMPARE(message.lParam, lParam);
    }
}

// The window stands at 100,200 and is 300 x 150 large, with margins of 8 left, 6 right and 4 below and a title bar of
// 20: its left edge is at 108, its right edge at 394, its title ends at 220, its bottom edge is at 346.
void tst_MessagePlaces::hitCodes_data()
{
    QTest::addColumn<QPoint>("pointer");
    QTest::addColumn<int>("code");

    QTest::newRow("title bar") << QPoint(200, 210) << 2;
    QTest::newRow("last row of the title bar") << QPoint(200, 220) << 2;
    QTest::newRow("inside the window counts as title") << QPoint(200, 300) << 2;
    QTest::newRow("above the window") << QPoint(200, 0) << 2;
    QTest::newRow("left of the window, beside the title") << QPoint(50, 220) << 2;
    QTest::newRow("left of the window, just below the title") << QPoint(50, 221) << 10;
    QTest::newRow("left of the window, just above the bottom edge") << QPoint(50, 345) << 10;
    QTest::newRow("left of the window, on the bottom edge") << QPoint(50, 346) << 2;
    QTest::newRow("left of the window, below the bottom edge") << QPoint(50, 347) << 15;
    QTest::newRow("on the left edge") << QPoint(108, 300) << 10;
    QTest::newRow("just right of the left edge") << QPoint(109, 300) << 2;
    QTest::newRow("on the bottom edge") << QPoint(200, 346) << 2;
    QTest::newRow("below the bottom edge") << QPoint(200, 347) << 15;
    QTest::newRow("far below") << QPoint(200, 10000) << 15;
    QTest::newRow("on the right edge") << QPoint(394, 300) << 2;
    QTest::newRow("right of the right edge") << QPoint(395, 300) << 11;
    QTest::newRow("right of the window, beside the title") << QPoint(395, 220) << 2;
    QTest::newRow("right of the window, just below the title") << QPoint(395, 221) << 11;
    QTest::newRow("right of the window, just above the bottom edge") << QPoint(395, 345) << 11;
    QTest::newRow("right of the window, on the bottom edge") << QPoint(395, 346) << 2;
    QTest::newRow("right of the window, below the bottom edge") << QPoint(395, 347) << 15;
    QTest::newRow("left of the screen") << QPoint(-5, 300) << 10;
    QTest::newRow("left of and above the screen") << QPoint(-5, -7) << 2;
}

void tst_MessagePlaces::hitCodes()
{
    QFETCH(QPoint, pointer);
    QFETCH(int, code);

    TitleBarOf20 style;
    QWidget window;
    window.setStyle(&style);
    window.setGeometry(100, 200, 300, 150);
    window.setContentsMargins(8, 9, 6, 4);
    QCOMPARE(window.pos(), QPoint(100, 200));

    pointerPosition = pointer;
    const auto event = mouse(175, {1, 2}, Qt::LeftButton, Qt::NoButton, controlAltShift);
    const LPARAM position = LPARAM(quint32(pointer.y()) << 16 | (quint32(pointer.x()) & 0xFFFF));
    tagMSG message{};
    QCOMPARE(xeQEventToMsg(&window, event.data(), &message), 1);
    QCOMPARE(message.message, 0x00A2u);
    QCOMPARE(int(message.wParam), code);
    QCOMPARE(message.lParam, position);
    QCOMPARE(QPoint(message.pt.x, message.pt.y), pointer);
    QCOMPARE(pointerQuestions, 1);
}

// The place in the parent is set against the place of the pointer on the screen.
void tst_MessagePlaces::hitCodeOfAChild()
{
    TitleBarOf20 style;
    QWidget window;
    window.setGeometry(1000, 1000, 500, 500);
    QWidget child(&window);
    child.setStyle(&style);
    child.setGeometry(100, 200, 300, 150);
    pointerPosition = {401, 300};
    const auto event = mouse(175, {1, 2}, Qt::LeftButton, Qt::NoButton, none);
    QCOMPARE(translated(&child, event.data()), QStringLiteral("00a2 wParam b lParam 12c0191"));
}

void tst_MessagePlaces::frameReleaseWithoutAWidget()
{
    QObject target;
    const auto event = mouse(175, {1, 2}, Qt::LeftButton, Qt::NoButton, none);
    QCOMPARE(translated(&target, event.data()), QStringLiteral("ffffffff wParam 0 lParam 0"));
}

// -------------------------------------------------------------------------------------- questions for the pointer

void tst_MessagePlaces::thePointerIsAskedOnce()
{
    QWidget target;
    tagMSG message{};
    const auto move = mouse(5, {10, 20}, Qt::NoButton, Qt::NoButton, none);
    QCOMPARE(xeQEventToMsg(&target, move.data(), &message), 1);
    QCOMPARE(pointerQuestions, 1);
}

void tst_MessagePlaces::aPlainWindowDoesNotAskForThePointer()
{
    QWidget widget;
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&widget));
    const auto press = key(QEvent::KeyPress, Qt::Key_F1, none);
    QCoreApplication::sendEvent(&widget, press.data());
    QCOMPARE(pointerQuestions, 0);
}

XE_TEST(tst_MessagePlaces)
#include "tst_messageplaces.moc"
