// Places and sizes: of a window in its parent, of points and rectangles between window and screen.

#include "leavenothing.h"
#include "placement.h"
#include "testclass.h"
#include "valuetext.h"

#include <XeMFCEmu.h>

#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>

Q_DECLARE_METATYPE(tagRECT)

class tst_WndGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void moveNeverShown() { MoveWindowCheck::neverShown(); }
    void moveShown() { MoveWindowCheck::shown(); }
    void moveShownAgain() { MoveWindowCheck::shownAgain(); }
    void moveInTheParent_data();
    void moveInTheParent();
    void moveToARectangle_data();
    void moveToARectangle();
    void moveWindowRepaintsIfTold();

    void centredOnATarget_data();
    void centredOnATarget();
    void centredOnTheParentByDefault();
    void centredOnTheScreenWithoutParent();

    void clientRectIsWithoutTheBarsShown_data();
    void clientRectIsWithoutTheBarsShown();
    void windowRectIsOnTheScreen();
    void pointsBetweenWindowAndScreen();
    void rectanglesBetweenWindowAndScreen();
    void nullIsLeftAlone();

    void windowAtAPoint();
    void viewportStandsForItsArea();
};

// ------------------------------------------------------------------------------------------------------- MoveWindow

void tst_WndGeometry::moveInTheParent_data()
{
    QTest::addColumn<QRect>("to");
    QTest::addColumn<QRect>("geometry");
    // From 1 2, 30x40.
    QTest::newRow("place and size") << QRect(10, 20, 70, 80) << QRect(10, 20, 70, 80);
    QTest::newRow("no size") << QRect(10, 20, -1, -1) << QRect(10, 20, 30, 40);
    QTest::newRow("a width alone is no size") << QRect(10, 20, 70, -1) << QRect(10, 20, 30, 40);
    QTest::newRow("a height alone is no size") << QRect(10, 20, -1, 80) << QRect(10, 20, 30, 40);
    QTest::newRow("no room") << QRect(10, 20, 0, 0) << QRect(10, 20, 0, 0);
    QTest::newRow("out of the parent") << QRect(-10, -20, 70, 80) << QRect(-10, -20, 70, 80);
}

void tst_WndGeometry::moveInTheParent()
{
    QFETCH(QRect, to);
    QWidget parent;
    QWidget widget(&parent);
    widget.setGeometry(1, 2, 30, 40);
    CWnd_X window;
    window.SubclassWindow(&widget);
    for (int i = 0; i < 2; ++i) {
        window.MoveWindow(to.x(), to.y(), to.width(), to.height(), FALSE);
        QTEST(widget.geometry(), "geometry");
    }
    parent.show();
    window.MoveWindow(to.x(), to.y(), to.width(), to.height(), FALSE);
    QTEST(widget.geometry(), "geometry");
}

void tst_WndGeometry::moveToARectangle_data()
{
    QTest::addColumn<tagRECT>("to");
    QTest::addColumn<QRect>("geometry");
    QTest::newRow("rectangle") << tagRECT{10, 20, 80, 100} << QRect(10, 20, 70, 80);
    QTest::newRow("swapped left and right") << tagRECT{80, 20, 10, 100} << QRect(80, 20, 70, 80);
    QTest::newRow("swapped top and bottom") << tagRECT{10, 100, 80, 20} << QRect(10, 100, 70, 80);
    QTest::newRow("empty") << tagRECT{10, 20, 10, 20} << QRect(10, 20, 0, 0);
    QTest::newRow("the whole number range")
        << tagRECT{INT_MIN, INT_MIN, INT_MAX, INT_MAX} << QRect(INT_MIN, INT_MIN, QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}

void tst_WndGeometry::moveToARectangle()
{
    QFETCH(tagRECT, to);
    QWidget parent;
    QWidget widget(&parent);
    widget.setGeometry(1, 2, 30, 40);
    CWnd_X window;
    window.SubclassWindow(&widget);
    window.MoveWindow(nullptr);
    QCOMPARE(widget.geometry(), QRect(1, 2, 30, 40));
    window.MoveWindow(&to);
    QTEST(widget.geometry(), "geometry");
}

void tst_WndGeometry::moveWindowRepaintsIfTold()
{
    class PaintCounter : public QWidget
    {
    public:
        using QWidget::QWidget;
        int paints = 0;

    protected:
        void paintEvent(QPaintEvent*) override { ++paints; }
    };
    QWidget parent;
    PaintCounter widget(&parent);
    widget.setGeometry(1, 2, 30, 40);
    CWnd_X window;
    window.SubclassWindow(&widget);
    parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&parent));
    QTRY_VERIFY(widget.paints > 0);
    widget.paints = 0;
    window.MoveWindow(1, 2, 30, 40, FALSE);
    QCoreApplication::processEvents();
    QCOMPARE(widget.paints, 0);
    window.MoveWindow(1, 2, 30, 40);
    QTRY_COMPARE(widget.paints, 1);
}

// ----------------------------------------------------------------------------------------------------- CenterWindow

void tst_WndGeometry::centredOnATarget_data()
{
    QTest::addColumn<QRect>("target");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("place");
    // x = (left + right) / 2 - (width - 1) / 2, where right is the target's last pixel.
    QTest::newRow("even in even") << QRect(0, 0, 100, 80) << QSize(20, 10) << QPoint(49 - 9, 39 - 4);
    QTest::newRow("odd in even") << QRect(0, 0, 100, 80) << QSize(21, 11) << QPoint(49 - 10, 39 - 5);
    QTest::newRow("even in odd") << QRect(0, 0, 101, 81) << QSize(20, 10) << QPoint(50 - 9, 40 - 4);
    QTest::newRow("place of the target") << QRect(30, 50, 100, 80) << QSize(20, 10) << QPoint(79 - 9, 89 - 4);
    QTest::newRow("larger than the target") << QRect(0, 0, 10, 10) << QSize(100, 100) << QPoint(4 - 49, 4 - 49);
    QTest::newRow("negative places are cut towards 0") << QRect(-50, -40, 20, 10) << QSize(1, 1) << QPoint(-40, -35);
}

void tst_WndGeometry::centredOnATarget()
{
    QFETCH(QRect, target);
    QFETCH(QSize, size);
    QWidget parent;
    QWidget targetWidget(&parent);
    QWidget widget(&parent);
    targetWidget.setGeometry(target);
    widget.resize(size);
    CWnd_X targetWindow;
    CWnd_X window;
    targetWindow.SubclassWindow(&targetWidget);
    window.SubclassWindow(&widget);
    window.CenterWindow(&targetWindow);
    QTEST(widget.pos(), "place");
    widget.move(0, 0);
    window.CenterWindow(&targetWidget);
    QTEST(widget.pos(), "place");
}

void tst_WndGeometry::centredOnTheParentByDefault()
{
    QWidget parent;
    QWidget group(&parent);
    group.setGeometry(200, 100, 100, 80);
    QWidget widget(&group);
    widget.resize(20, 10);
    CWnd_X window;
    window.SubclassWindow(&widget);
    window.CenterWindow();
    QCOMPARE(widget.pos(), QPoint(249 - 9, 139 - 4)); // where the middle of the group is in *its* parent
    widget.move(0, 0);
    window.CenterWindow(nullptr);
    QCOMPARE(widget.pos(), QPoint(249 - 9, 139 - 4));

    parent.setGeometry(200, 100, 100, 80);
    QDialog dialog(&parent);
    dialog.resize(20, 10);
    CDialog_X dialogWindow;
    dialogWindow.SubclassWindow(&dialog);
    dialogWindow.CenterWindow();
    QCOMPARE(dialog.pos(), QPoint(249 - 9, 139 - 4));
}

void tst_WndGeometry::centredOnTheScreenWithoutParent()
{
    QWidget widget;
    widget.setGeometry(10, 10, 100, 50);
    CWnd_X window;
    window.SubclassWindow(&widget);
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const QPoint expected((screen.left() + screen.right()) / 2 - 49, (screen.top() + screen.bottom()) / 2 - 24);
    window.CenterWindow();
    QCOMPARE(widget.pos(), expected);
    widget.move(-5000, -5000); // on no screen
    window.CenterWindow();
    QCOMPARE(widget.pos(), expected);
}

// ------------------------------------------------------------------------------------------------ window and screen

void tst_WndGeometry::clientRectIsWithoutTheBarsShown_data()
{
    QTest::addColumn<int>("shown");
    QTest::addColumn<QString>("rect");
    QTest::newRow("none") << -1 << "0 0 100 80";
    QTest::newRow("horizontal") << SB_HORZ << "0 0 100 63";
    QTest::newRow("vertical") << SB_VERT << "0 0 83 80";
    QTest::newRow("both") << SB_BOTH << "0 0 83 63";
}

void tst_WndGeometry::clientRectIsWithoutTheBarsShown()
{
    QFETCH(int, shown);
    QWidget parent;
    QWidget widget(&parent);
    widget.setGeometry(5, 6, 100, 80);
    CWnd_X window;
    window.SubclassWindow(&widget);
    if (shown >= 0)
        window.ShowScrollBar(static_cast<UINT>(shown));
    CRect rect(-1, -1, -1, -1);
    window.GetClientRect(rect);
    QTEST(text(rect), "rect");
    window.ShowScrollBar(SB_BOTH, FALSE);
    window.GetClientRect(&rect);
    QCOMPARE(text(rect), QStringLiteral("0 0 100 80"));
    window.ShowScrollBar(SB_BOTH);
    GetClientRect_X(&widget, &rect);
    QCOMPARE(text(rect), QStringLiteral("0 0 100 80"));
}

void tst_WndGeometry::windowRectIsOnTheScreen()
{
    QWidget parent;
    parent.setGeometry(200, 100, 300, 200);
    QWidget widget(&parent);
    widget.setGeometry(5, 6, 100, 80);
    CWnd_X window;
    window.SubclassWindow(&widget);
    CRect rect;
    QCOMPARE(window.GetWindowRect(rect), 1);
    QCOMPARE(text(rect), QStringLiteral("205 106 305 186"));
}

void tst_WndGeometry::pointsBetweenWindowAndScreen()
{
    QWidget parent;
    parent.setGeometry(200, 100, 300, 200);
    QWidget widget(&parent);
    widget.setGeometry(5, 6, 100, 80);
    CWnd_X window;
    window.SubclassWindow(&widget);
    CPoint point(-1, 2);
    window.ClientToScreen(&point);
    QCOMPARE(text(point), QStringLiteral("204 108"));
    window.ScreenToClient(&point);
    QCOMPARE(text(point), QStringLiteral("-1 2"));
}

void tst_WndGeometry::rectanglesBetweenWindowAndScreen()
{
    QWidget widget;
    widget.setGeometry(200, 100, 300, 200);
    CWnd_X window;
    window.SubclassWindow(&widget);
    CRect rect(30, 40, 10, -20);
    window.ClientToScreen(rect);
    QCOMPARE(text(rect), QStringLiteral("230 140 210 80")); // each corner by itself
    window.ScreenToClient(rect);
    QCOMPARE(text(rect), QStringLiteral("30 40 10 -20"));
}

void tst_WndGeometry::nullIsLeftAlone()
{
    QWidget widget;
    CWnd_X window;
    window.SubclassWindow(&widget);
    window.ClientToScreen(static_cast<tagPOINT*>(nullptr));
    window.ClientToScreen(static_cast<tagRECT*>(nullptr));
    window.ScreenToClient(static_cast<tagPOINT*>(nullptr));
    window.ScreenToClient(static_cast<tagRECT*>(nullptr));
    window.GetClientRect(nullptr);
    QCOMPARE(window.GetWindowRect(nullptr), 0);
}

// ------------------------------------------------------------------------------------------------- WindowFromPoint

void tst_WndGeometry::windowAtAPoint()
{
    QWidget widget;
    widget.setGeometry(200, 100, 300, 200);
    QWidget group(&widget);
    group.setGeometry(10, 10, 100, 100);
    QPushButton button(&group);
    button.setGeometry(20, 20, 50, 30);
    QPushButton hidden(&group);
    hidden.setGeometry(20, 60, 50, 30);
    hidden.hide();
    CWnd_X window;
    CWnd_X buttonWindow;
    window.SubclassWindow(&widget);
    buttonWindow.SubclassWindow(&button);

    QCOMPARE(window.WindowFromPoint({200 + 30, 100 + 30}), &buttonWindow);
    QCOMPARE(window.WindowFromPoint({200 + 29, 100 + 30})->GetSafeHwnd(), &group);
    QCOMPARE(window.WindowFromPoint({200 + 35, 100 + 75})->GetSafeHwnd(), &group); // the button there is hidden
    QCOMPARE(window.WindowFromPoint({200 + 5, 100 + 5}), nullptr);
    QCOMPARE(window.WindowFromPoint({0, 0}), nullptr);
}

void tst_WndGeometry::viewportStandsForItsArea()
{
    QWidget widget;
    widget.setGeometry(200, 100, 300, 200);
    QScrollArea area(&widget);
    area.setGeometry(10, 10, 100, 100);
    auto* const content = new QLabel(QStringLiteral("content"));
    content->resize(20, 20);
    area.setWidget(content);
    CWnd_X window;
    window.SubclassWindow(&widget);
    QCOMPARE(window.WindowFromPoint({200 + 60, 100 + 60})->GetSafeHwnd(), &area);
    QCOMPARE(window.WindowFromPoint({200 + 15, 100 + 15})->GetSafeHwnd(), content);
}

XE_TEST(tst_WndGeometry)
#include "tst_wndgeometry.moc"
