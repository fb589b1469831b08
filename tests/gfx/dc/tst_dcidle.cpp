// Misuse: calls to a context without a device, and contexts and objects that go in any order.

#include "canvas.h"
#include "leavenothing.h"
#include "testclass.h"

#include <xeafxwin.h>

#include <QRegularExpression>

namespace {

QStringList complaints;

void takeComplaint(QtMsgType, const QMessageLogContext&, const QString& text) { complaints += text; }

// Keeps what Qt says of painters without a device; anything else is left in `complaints`.
class Listening
{
public:
    Listening() : m_old(qInstallMessageHandler(takeComplaint)) { complaints.clear(); }
    ~Listening() { qInstallMessageHandler(m_old); }
    Q_DISABLE_COPY_MOVE(Listening)

    static QStringList unexpected()
    {
        static const QRegularExpression known("^QPainter::(\\w+: Painter not active|restore: Unbalanced save/restore)");
        QStringList others;
        for (const QString& text : qAsConst(complaints)) {
            if (!known.match(text).hasMatch())
                others += text;
        }
        return others;
    }

private:
    QtMessageHandler m_old;
};

} // namespace

class tst_DcIdle : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        CDC_X::DeleteTempMap();
        CGdiObject_X::DeleteTempMap();
        QCOMPARE(LeaveNothing::leftovers(), QString());
    }

    void everyCall_data();
    void everyCall();
    void afterTheEnd();
    void objectsOfTheOldObject();
    void contextsInAnyOrder();
    void aHostThatLeaks();
    void manyLivePens();
};

void tst_DcIdle::everyCall_data()
{
    QTest::addColumn<int>("kind");

    QTest::newRow("default") << 0;
    QTest::newRow("temporary") << 1;
    QTest::newRow("on a null image") << 2;
    QTest::newRow("on a null window") << 3;
}

void tst_DcIdle::everyCall()
{
    QFETCH(int, kind);
    CDC_X plain;
    CDC_X onNull(static_cast<QImage*>(nullptr));
    CClientDC_X onNoWindow(nullptr);
    CDC_X* const contexts[] = {&plain, CDC_X::FromHandle(&plain), &onNull, &onNoWindow};
    CDC_X& dc = *contexts[kind];

    CPen_X pen(PS_SOLID, 1, RGB(255, 0, 0));
    CBrush_X brush(RGB(0, 0, 255));
    CRgn_X region;
    region.CreateRectRgn(0, 0, 5, 5);
    CPalette_X palette;
    QFont font;
    QWidget widget;
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&widget));
    CRect rect(0, 0, 10, 10);

    const Listening listening;
    dc.SetViewportOrg(1, 2);
    dc.GetViewportOrg();
    CPoint point(1, 2);
    CSize size(1, 2);
    dc.LPtoDP(&point);
    dc.DPtoLP(&point);
    dc.LPtoDP(rect);
    dc.DPtoLP(rect);
    dc.LPtoDP(&size);
    dc.DPtoLP(&size);
    QCOMPARE(point, CPoint(1, 2));
    QCOMPARE(rect, CRect(0, 0, 10, 10));
    dc.SetBkColor(RGB(1, 2, 3));
    dc.SetBkColor(1);
    dc.SetTextColor(RGB(1, 2, 3));
    QCOMPARE(dc.GetTextColor(), QColor(1, 2, 3));
    dc.SetTextColor(1);
    QCOMPARE(dc.SetBkMode(OPAQUE), 0);
    QCOMPARE(dc.GetBkMode(), 0);
    dc.SelectObject(reinterpret_cast<CFont_X*>(&font));
    dc.SelectObject(font);
    dc.SelectObject(QPen(Qt::red));
    dc.SelectObject(QBrush(Qt::red));
    CGdiObject_X* const oldPen = dc.SelectObject(&pen);
    CGdiObject_X* const oldBrush = dc.SelectObject(&brush);
    dc.SelectObject(oldPen);
    QCOMPARE(oldBrush->DeleteObject(), 1);
    QCOMPARE(dc.SelectObject(&region), 0);
    for (int index = -1; index < 10; ++index)
        dc.SelectStockObject(index);
    QCOMPARE(dc.SelectPalette(&palette, FALSE), &dc.m_palette);
    QCOMPARE(dc.MoveTo(1, 1), 1);
    QCOMPARE(dc.LineTo(2, 2), 1);
    QCOMPARE(dc.Rectangle(rect), 1);
    QCOMPARE(dc.Ellipse(rect), 1);
    QCOMPARE(dc.Ellipse(1, 2, 3, 4), 1);
    dc.FillSolidRect(rect, RGB(1, 2, 3));
    dc.Draw3dRect(rect, RGB(1, 2, 3), RGB(1, 2, 3));
    dc.FrameRect(rect, &brush);
    QCOMPARE(dc.SetPixel(1, 1, Qt::red), QColor(Qt::red));
    QCOMPARE(dc.DrawEdge(rect, EDGE_RAISED, BF_RECT), 1);
    for (const UINT operation : {BLACKNESS, WHITENESS, DSTINVERT, PATINVERT, PATCOPY})
        QCOMPARE(dc.PatBlt(1, 2, 3, 4, operation), 1);
    dc.InvertRect(rect);
    dc.GetOutputTextExtent(L"text");
    dc.GetOutputTextExtent(L"text", 2);
    dc.DrawText(L"text", rect, 0);
    dc.DrawText(L"text", 2, rect, 0);
    DrawTextA(&dc, L"text", 2, rect, 0);
    DrawTextW(&dc, L"text", 2, rect, 0);
    QCOMPARE(dc.SelectClipRgn(&region), 0);
    QCOMPARE(dc.SelectClipRgn(&region, RGN_COPY), 0);
    QCOMPARE(dc.IntersectClipRect(rect), 0);
    QCOMPARE(dc.ExcludeClipRect(rect), 0);
    QCOMPARE(dc.ExcludeUpdateRgn(&window), 0);
    QCOMPARE(dc.OffsetClipRgn(1, 2), 0);
    QCOMPARE(dc.FillRgn(&region, &brush), 1);
    QCOMPARE(dc.PaintRgn(&region), 1);
    QCOMPARE(dc.FrameRgn(&region, &brush, 1, 1), 1);
    QCOMPARE(dc.InvertRgn(&region), 0);
    QCOMPARE(dc.SaveDC(), 0);
    QCOMPARE(dc.RestoreDC(-1), 1);
    QCOMPARE(listening.unexpected(), QStringList());
    QVERIFY(!dc.isActive());
}

void tst_DcIdle::afterTheEnd()
{
    Canvas canvas(2, 1);
    CDC_X dc(&canvas.image);
    CPen_X pen(PS_SOLID, 1, RGB(255, 0, 0));
    CGdiObject_X* const old = dc.SelectObject(&pen);
    dc.end();
    const Listening listening;
    dc.SelectObject(old);
    dc.SelectObject(&pen);
    dc.LineTo(1, 0);
    dc.RestoreDC(-1);
    old->DeleteObject();
    QCOMPARE(listening.unexpected(), QStringList());
    QCOMPARE(canvas.view(), "..");
}

// What was selected before is deleted, as hosts do with the result of the second call.
void tst_DcIdle::objectsOfTheOldObject()
{
    Canvas canvas(3, 1);
    CDC_X dc(&canvas.image);
    auto* const pen = new CPen_X(PS_SOLID, 1, RGB(255, 0, 0));
    CGdiObject_X* const old = dc.SelectObject(pen);
    delete pen;
    dc.SelectObject(old);
    dc.LineTo(1, 0);
    QCOMPARE(dc.SelectObject(static_cast<CPen_X*>(nullptr))->DeleteObject(), 1);
    dc.LineTo(1, 0);
    dc.end();
    QCOMPARE(canvas.view(), "rr.");
}

void tst_DcIdle::contextsInAnyOrder()
{
    Canvas first(2, 1);
    Canvas second(2, 1);
    CPen_X pen(PS_SOLID, 1, RGB(255, 0, 0));
    auto dc = std::make_unique<CDC_X>(&first.image);
    CGdiObject_X* const old = dc->SelectObject(&pen);
    CDC_X dc2(&second.image);
    CGdiObject_X* const old2 = dc2.SelectObject(&pen);
    dc2.SelectObject(old);
    dc.reset();
    QCOMPARE(old->GetSafeHandle(), nullptr);
    QCOMPARE(old2->GetSafeHandle(), const_cast<QPen*>(&dc2.pen()));
    dc2.SelectObject(old);
    dc2.SelectObject(old2);
    QCOMPARE(dc2.pen().color(), QColor(Qt::red));
}

// It never hands back what it was given, and attaches contexts that it then only destroys.
void tst_DcIdle::aHostThatLeaks()
{
    for (int i = 1; i <= 1000; ++i) {
        Canvas canvas(4, 4);
        CDC_X dc(&canvas.image);
        dc.Attach(&canvas);
        CPen_X pen(PS_SOLID, 1, RGB(255, 0, 0));
        CBrush_X brush(RGB(0, 0, 255));
        dc.SaveDC();
        dc.SelectObject(&pen);
        dc.SaveDC();
        dc.SelectObject(&brush);
        dc.Rectangle(0, 0, 3, 3);
        QCOMPARE(canvas.image.pixel(1, 1), 0xFF0000FF);
        const Listening listening; // to the states that were not restored
        dc.end();
        for (const QString& text : listening.unexpected())
            QCOMPARE(text, QString("QPainter::end: Painter ended with 3 saved states"));
    }
}

void tst_DcIdle::manyLivePens()
{
    std::vector<std::unique_ptr<CPen_X>> pens;
    Canvas canvas(2, 1);
    CDC_X dc(&canvas.image);
    for (int i = 0; i < 10000; ++i) {
        pens.push_back(std::make_unique<CPen_X>(PS_SOLID, 1, RGB(i & 255, i >> 8, 0)));
        dc.SelectObject(pens.back().get());
    }
    QCOMPARE(dc.pen().color(), QColor(9999 & 255, 9999 >> 8, 0));
    for (const auto& pen : pens)
        QCOMPARE(CPen_X::FromHandle(pen->GetSafeHandle()), pen.get());
    pens.clear();
    QCOMPARE(dc.pen().color(), QColor(9999 & 255, 9999 >> 8, 0));
}

XE_TEST(tst_DcIdle)
#include "tst_dcidle.moc"
