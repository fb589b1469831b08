// WM_PAINT on a real screen: a window paints through a device context, and so does a child of it in a corner.

#include "canvas.h"
#include "leavenothing.h"
#include "testclass.h"

#include <QScreen>

#include <xeafxwin.h>

namespace {

// Paints itself in four colours through a device context.
class PaintingWnd : public CWnd_X
{
    Q_OBJECT

public:
    int paints = 0;
    bool isActive = false;
    CRect converted;
    CPoint current;

    void OnPaint()
    {
        ++paints;
        CClientDC_X dc(this);
        isActive = dc.isActive();
        current = dc.m_ptCurrent;
        CRect client;
        GetClientRect(client);
        dc.FillSolidRect(client, RGB(255, 0, 0));
        dc.FillSolidRect(1, 1, 4, 4, RGB(0, 255, 0));
        CPen_X pen(PS_SOLID, 1, RGB(0, 0, 255));
        CGdiObject_X* const old = dc.SelectObject(&pen);
        dc.MoveTo(0, 10);
        dc.LineTo(9, 10);
        dc.SelectObject(old);
        CRgn_X region;
        region.CreateRectRgn(20, 0, 29, 9);
        dc.SelectClipRgn(&region);
        CBrush_X brush(RGB(0, 0, 0));
        dc.SelectObject(&brush);
        dc.setPen(Qt::NoPen);
        dc.Rectangle(client);
        dc.SelectClipRgn(&region, Qt::NoClip);
        converted = CRect(1, 1, 4, 4);
        dc.InvertRect(converted); // (1, 1) to (4, 4)
    }

    DECLARE_MESSAGE_MAP_X()
};

BEGIN_MESSAGE_MAP_X(PaintingWnd, CWnd_X)
    ON_WM_PAINT_X()
END_MESSAGE_MAP_X()

constexpr QRgb magenta = 0xFFFF00FF;
constexpr QRgb red = 0xFFFF0000;
constexpr QRgb blue = 0xFF0000FF;
constexpr QRgb black = 0xFF000000;

// What the screen shows at a place of a widget.
QRgb shown(const QWidget& widget, QPoint place)
{
    const QPoint at = widget.mapToGlobal(place);
    return widget.screen()->grabWindow(0, at.x(), at.y(), 1, 1).toImage().pixel(0, 0);
}

// What is wrong with what a widget shows; empty if nothing is.
QString wrongPixels(const QWidget& widget)
{
    const std::pair<QPoint, QRgb> expected[] = {
        {{0, 0}, red},   {{1, 1}, magenta}, {{4, 4}, magenta}, {{5, 5}, red},    {{0, 10}, blue},
        {{9, 10}, blue}, {{10, 10}, red},   {{19, 0}, red},    {{20, 0}, black}, {{29, 9}, black},
        {{30, 9}, red},  {{29, 10}, red},   {{39, 29}, red},
    };
    QString wrong;
    for (const auto& [place, color] : expected) {
        if (const QRgb found = shown(widget, place); found != color)
            wrong += QString("(%1, %2) is %3; ").arg(place.x()).arg(place.y()).arg(found, 8, 16);
    }
    return wrong;
}

} // namespace

class tst_DcWidget : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void aWindow();
    void aChildAtAnOffset();
    void eachPaintBeginsAfresh();
    void inAnotherWindowsPaint();
};

void tst_DcWidget::aWindow()
{
    QWidget widget(nullptr, Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    widget.setGeometry(60, 50, 40, 30);
    PaintingWnd window;
    QVERIFY(window.SubclassWindow(&widget));
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QTRY_COMPARE(wrongPixels(widget), QString());
    QVERIFY(window.isActive);
    QVERIFY(window.paints > 0);
    QCOMPARE(window.converted, CRect(1, 1, 4, 4));
}

// Device coordinates are those of the window that the child is in.
void tst_DcWidget::aChildAtAnOffset()
{
    QWidget parent(nullptr, Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    parent.setGeometry(60, 50, 100, 80);
    QWidget child(&parent);
    child.setGeometry(30, 20, 40, 30);
    PaintingWnd window;
    QVERIFY(window.SubclassWindow(&child));
    parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&parent));
    QTRY_COMPARE(wrongPixels(child), QString());
    QCOMPARE(window.converted, CRect(31, 21, 34, 24));
    QVERIFY(shown(parent, {29, 25}) != red);
    QVERIFY(shown(parent, {70, 25}) != red);
}

void tst_DcWidget::eachPaintBeginsAfresh()
{
    QWidget widget(nullptr, Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    widget.setGeometry(60, 50, 40, 30);
    PaintingWnd window;
    QVERIFY(window.SubclassWindow(&widget));
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QTRY_VERIFY(window.paints > 0);
    const int before = window.paints;
    window.Invalidate();
    QTRY_VERIFY(window.paints > before);
    QCOMPARE(window.current, CPoint(0, 0));
    QTRY_COMPARE(wrongPixels(widget), QString());
}

// Qt lets a widget be painted by itself alone.
void tst_DcWidget::inAnotherWindowsPaint()
{
    QWidget other;
    QWidget widget(nullptr, Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    PaintingWnd window;
    QVERIFY(window.SubclassWindow(&widget));
    CWnd_X otherWindow;
    QVERIFY(otherWindow.SubclassWindow(&other));
    QTest::ignoreMessage(QtWarningMsg, "QWidget::paintEngine: Should no longer be called");
    QTest::ignoreMessage(QtWarningMsg, "QPainter::begin: Paint device returned engine == 0, type: 1");
    CClientDC_X dc(&otherWindow);
    QVERIFY(!dc.isActive());
    dc.FillSolidRect(0, 0, 5, 5, Qt::red);
}

XE_TEST(tst_DcWidget)
#include "tst_dcwidget.moc"
