#pragma once

#include <xeafxwin.h>

#include <QTest>

/// MoveWindow of a top-level window: the size is that of the frame, and a second call changes nothing.
class MoveWindowCheck
{
public:
    static void neverShown()
    {
        QWidget widget;
        CWnd_X window;
        window.SubclassWindow(&widget);
        for (int i = 0; i < 2; ++i) {
            window.MoveWindow(200, 120, 400, 300);
            QCOMPARE(widget.frameGeometry(), QRect(200, 120, 400, 300)); // there is no frame yet
            QCOMPARE(widget.geometry(), QRect(200, 120, 400, 300));
        }
    }

    static void shown()
    {
        QWidget widget;
        CWnd_X window;
        window.SubclassWindow(&widget);
        widget.resize(150, 100);
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        QTRY_VERIFY(widget.frameGeometry().height() > widget.height());
        const QSize frame = widget.frameGeometry().size() - widget.size();
        for (int i = 0; i < 2; ++i) {
            window.MoveWindow(200, 120, 400, 300);
            QTRY_COMPARE(widget.frameGeometry(), QRect(200, 120, 400, 300));
            QCOMPARE(widget.size(), QSize(400, 300) - frame);
        }
        window.MoveWindow(CRect(220, 130, 520, 380));
        QTRY_COMPARE(widget.frameGeometry(), QRect(220, 130, 300, 250));
        window.MoveWindow(240, 140, -1, -1);
        QTRY_COMPARE(widget.frameGeometry(), QRect(240, 140, 300, 250));
        CRect rect;
        window.GetWindowRect(&rect);
        QVERIFY(rect == CRect(240, 140, 540, 390));
    }

    static void shownAgain()
    {
        QWidget widget;
        CWnd_X window;
        window.SubclassWindow(&widget);
        window.MoveWindow(200, 120, 400, 300);
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        QTRY_VERIFY(widget.frameGeometry().height() > widget.height());
        window.MoveWindow(200, 120, 400, 300);
        QTRY_COMPARE(widget.frameGeometry(), QRect(200, 120, 400, 300));
        widget.hide();
        window.MoveWindow(200, 120, 400, 300);
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        QTRY_COMPARE(widget.frameGeometry(), QRect(200, 120, 400, 300));
    }
};
