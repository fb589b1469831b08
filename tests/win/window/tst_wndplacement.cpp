// Top-level windows under a window manager: where they are put, and what is found at a place of the screen.

#include "leavenothing.h"
#include "placement.h"
#include "testclass.h"

#include <QLabel>
#include <QScreen>

class tst_WndPlacement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void moveNeverShown() { MoveWindowCheck::neverShown(); }
    void moveShown() { MoveWindowCheck::shown(); }
    void moveShownAgain() { MoveWindowCheck::shownAgain(); }

    void centredOnTheScreen()
    {
        QWidget widget;
        CWnd_X window;
        window.SubclassWindow(&widget);
        widget.setGeometry(300, 200, 301, 201);
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        QTRY_VERIFY(widget.frameGeometry().height() > widget.height());
        window.CenterWindow();
        const QRect screen = widget.screen()->geometry();
        const QSize frame = widget.frameGeometry().size();
        QTRY_COMPARE(widget.frameGeometry().topLeft(),
                     QPoint((screen.left() + screen.right()) / 2 - (frame.width() - 1) / 2,
                            (screen.top() + screen.bottom()) / 2 - (frame.height() - 1) / 2));
    }

    void aPlaceOnTheScreenIsInTheWindow()
    {
        QWidget widget;
        QLabel label(&widget);
        label.setGeometry(50, 40, 30, 20);
        CWnd_X window;
        window.SubclassWindow(&widget);
        widget.setGeometry(300, 200, 301, 201);
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        CPoint point(50, 40);
        window.ClientToScreen(&point);
        QCOMPARE(QPoint(point.x, point.y), label.mapToGlobal({0, 0}));
        QCOMPARE(window.WindowFromPoint(point)->GetSafeHwnd(), static_cast<QWidget*>(&label));
        QCOMPARE(window.WindowFromPoint(point - CSize(1, 0)), nullptr);
    }
};

XE_TEST(tst_WndPlacement)
#include "tst_wndplacement.moc"
