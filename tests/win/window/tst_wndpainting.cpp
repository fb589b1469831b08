// What is painted again, and when: the region of the paint event that follows.

#include "leavenothing.h"
#include "testclass.h"
#include "window/windowsteps.h"

#include <XeMFCEmu.h>

namespace {

// "10,20 5x6; ..." of the rectangles of a region, or "nothing".
QString regionText(const QRegion& region)
{
    QStringList rects;
    for (const QRect& rect : region) {
        rects += QStringLiteral("%1,%2 %3x%4").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
    }
    return rects.isEmpty() ? QStringLiteral("nothing") : rects.join(QStringLiteral("; "));
}

class Canvas : public QWidget
{
public:
    Canvas()
    {
        setAttribute(Qt::WA_OpaquePaintEvent); // lets scroll() move pixels
        resize(200, 100);
    }
    QRegion painted;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        painted += event->region();
        QPainter(this).fillRect(event->rect(), Qt::white);
    }
};

const tagRECT part = {10, 20, 30, 50};

struct Repaint
{
    const char* name;
    WindowSteps action;
    const char* painted;
};

const Repaint repaints[] = {
    {"nothing asked for", [](CWnd_X&) {}, "nothing"},
    {"Invalidate", [](CWnd_X& window) { window.Invalidate(); }, "0,0 200x100"},
    {"Invalidate without erasing", [](CWnd_X& window) { window.Invalidate(FALSE); }, "0,0 200x100"},
    {"UpdateWindow", [](CWnd_X& window) { window.UpdateWindow(); }, "0,0 200x100"},
    {"RedrawWindow", [](CWnd_X& window) { window.RedrawWindow(); }, "0,0 200x100"},
    // The right and the bottom edge belong to it.
    {"InvalidateRect", [](CWnd_X& window) { window.InvalidateRect(&part); }, "10,20 21x31"},
    {"InvalidateRect without erasing", [](CWnd_X& window) { window.InvalidateRect(&part, FALSE); }, "10,20 21x31"},
    {"InvalidateRect of one pixel", [](CWnd_X& window) { window.InvalidateRect(CRect(5, 6, 5, 6)); }, "5,6 1x1"},
    {"InvalidateRect of what is empty for Qt too", [](CWnd_X& window) { window.InvalidateRect(CRect(5, 6, 4, 5)); },
     "nothing"},
    {"InvalidateRect past the window", [](CWnd_X& window) { window.InvalidateRect(CRect(190, 90, 400, 400)); },
     "190,90 10x10"},
    {"InvalidateRect of null repaints nothing", [](CWnd_X& window) { window.InvalidateRect(nullptr, TRUE); },
     "nothing"},
    {"two rectangles",
     [](CWnd_X& window) {
         window.InvalidateRect(&part);
         window.InvalidateRect(CRect(100, 20, 109, 50));
     },
     "10,20 21x31; 100,20 10x31"},
    {"updates locked",
     [](CWnd_X& window) {
         window.LockWindowUpdate();
         window.Invalidate();
     },
     "nothing"},
    {"no redraw",
     [](CWnd_X& window) {
         window.SetRedraw(FALSE);
         window.InvalidateRect(&part);
     },
     "nothing"},
    {"unlocking repaints",
     [](CWnd_X& window) {
         window.LockWindowUpdate();
         window.UnlockWindowUpdate();
     },
     "0,0 200x100"},
    // What comes into sight is painted, the rest is moved.
    {"ScrollWindow to the right", [](CWnd_X& window) { window.ScrollWindow(15, 0); }, "0,0 15x100"},
    {"ScrollWindow to the left", [](CWnd_X& window) { window.ScrollWindow(-15, 0); }, "185,0 15x100"},
    {"ScrollWindow down", [](CWnd_X& window) { window.ScrollWindow(0, 15); }, "0,0 200x15"},
    {"ScrollWindow of a rectangle", [](CWnd_X& window) { window.ScrollWindow(5, 0, &part); }, "10,20 5x30"},
    {"ScrollWindow of a rectangle up", [](CWnd_X& window) { window.ScrollWindow(0, -5, &part); }, "10,45 20x5"},
    {"ScrollWindow by nothing", [](CWnd_X& window) { window.ScrollWindow(0, 0); }, "nothing"},
    {"ScrollWindow of an empty rectangle", [](CWnd_X& window) { window.ScrollWindow(5, 0, CRect(10, 20, 10, 20)); },
     "nothing"},
};

} // namespace

class tst_WndPainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void paintedAgain_data()
    {
        QTest::addColumn<WindowSteps>("action");
        QTest::addColumn<QString>("painted");
        for (const Repaint& row : repaints)
            QTest::newRow(row.name) << row.action << row.painted;
    }

    void paintedAgain()
    {
        QFETCH(WindowSteps, action);
        Canvas canvas;
        CWnd_X window;
        window.SubclassWindow(&canvas);
        canvas.show();
        QVERIFY(QTest::qWaitForWindowExposed(&canvas));
        QTRY_COMPARE(canvas.painted, QRegion(0, 0, 200, 100));
        QCoreApplication::processEvents();
        canvas.painted = {};

        action(window);
        QCOMPARE(regionText(canvas.painted), QStringLiteral("nothing")); // not at once
        QCoreApplication::processEvents();
        QTEST(regionText(canvas.painted), "painted");
    }

    // Children go along when the whole window scrolls, and stay with a rectangle.
    void scrollWindowMovesTheChildren()
    {
        Canvas canvas;
        QWidget child(&canvas);
        child.setGeometry(10, 10, 20, 20);
        CWnd_X window;
        window.SubclassWindow(&canvas);
        canvas.show();
        window.ScrollWindow(7, -3);
        QCOMPARE(child.pos(), QPoint(17, 7));
        window.ScrollWindow(7, -3, &part);
        QCOMPARE(child.pos(), QPoint(17, 7));
    }
};

XE_TEST(tst_WndPainting)
#include "tst_wndpainting.moc"
