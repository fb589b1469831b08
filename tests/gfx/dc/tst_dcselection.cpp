// What is selected into a device context, and what comes back.

#include "canvas.h"
#include "leavenothing.h"
#include "testclass.h"

#include <xeafxhandle.h>

namespace {

// A plain pen as CPen_X makes it: Qt tells a width of 1 that was given from the default one.
QPen plainPen(Qt::GlobalColor color) { return QPen(color, 1); }

} // namespace

class tst_DcSelection : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        CGdiObject_X::DeleteTempMap();
        QCOMPARE(LeaveNothing::leftovers(), QString());
    }

    void fonts();
    void fontByItsAddress();
    void qtPensAndBrushes();
    void penAndItsSlot();
    void brushAndItsSlot();
    void objectsWithoutHandle();
    void oldObjectHandedBack();
    void oldObjectThroughAPenPointer();
    void anyObjectByItsClass();
    void deletingWhatIsSelected();
    void deletingTheOldObject();
    void slotDiesWithTheContext();
    void slotDiesWithTheSavedState();
    void slotOfAnotherContext();
    void valueWhereASlotWas();
    void temporaryMapGoesFirst();
    void regions();

    void stockObjects_data();
    void stockObjects();
};

void tst_DcSelection::fonts()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    const QFont first("DejaVu Sans", 11);
    const QFont second("DejaVu Serif", 17);
    dc.SelectObject(first);
    const QFont old = dc.SelectObject(second);
    QCOMPARE(old.pointSize(), 11);
    QCOMPARE(dc.font().family(), QString("DejaVu Serif"));
    QCOMPARE(dc.SelectObject(old).pointSize(), 17);
    QCOMPARE(dc.font().pointSize(), 11);
}

void tst_DcSelection::fontByItsAddress()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    QFont font("DejaVu Sans", 19);
    const QFont before = dc.font();
    QCOMPARE(dc.SelectObject(reinterpret_cast<CFont_X*>(&font)), before);
    QCOMPARE(dc.font().pointSize(), 19);
    QCOMPARE(dc.SelectObject(static_cast<CFont_X*>(nullptr)).pointSize(), 19);
    QCOMPARE(dc.font().pointSize(), 19);
}

void tst_DcSelection::qtPensAndBrushes()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    QPen pen(Qt::red, 3, Qt::DotLine);
    QBrush brush(Qt::blue, Qt::CrossPattern);
    const QPen oldPen = dc.SelectObject(pen);
    const QBrush oldBrush = dc.SelectObject(brush);
    QCOMPARE(oldPen, QPen(Qt::black));
    QCOMPARE(oldBrush, QBrush());
    QCOMPARE(dc.pen(), pen);
    QCOMPARE(dc.brush(), brush);
    QCOMPARE(dc.SelectObject(oldPen), pen);
    QCOMPARE(dc.SelectObject(oldBrush), brush);
}

void tst_DcSelection::penAndItsSlot()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    CPen_X pen(PS_DASH, 2, RGB(255, 0, 0));
    CGdiObject_X* const old = dc.SelectObject(&pen);
    QCOMPARE(dc.pen(), QPen(Qt::red, 2, Qt::DashLine));
    QVERIFY(old);
    QCOMPARE(old->GetSafeHandle(), const_cast<QPen*>(&dc.pen()));
    QCOMPARE(CGdiObject_X::FromHandle(const_cast<QPen*>(&dc.pen())), old);
    QCOMPARE(old->GetClassName(), "CGdiObject_X");
}

void tst_DcSelection::brushAndItsSlot()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    CBrush_X brush(RGB(0, 0, 255));
    CGdiObject_X* const old = dc.SelectObject(&brush);
    QCOMPARE(dc.brush(), QBrush(Qt::blue));
    QVERIFY(old);
    QCOMPARE(old->GetSafeHandle(), const_cast<QBrush*>(&dc.brush()));
    QVERIFY(old != dc.SelectObject(static_cast<CPen_X*>(nullptr)));
}

void tst_DcSelection::objectsWithoutHandle()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.setPen(Qt::red);
    dc.setBrush(Qt::blue);
    CPen_X pen;
    CBrush_X brush;
    CGdiObject_X* const penSlot = dc.SelectObject(&pen);
    CGdiObject_X* const brushSlot = dc.SelectObject(&brush);
    QCOMPARE(penSlot->GetSafeHandle(), const_cast<QPen*>(&dc.pen()));
    QCOMPARE(brushSlot->GetSafeHandle(), const_cast<QBrush*>(&dc.brush()));
    QCOMPARE(dc.SelectObject(static_cast<CPen_X*>(nullptr)), penSlot);
    QCOMPARE(dc.SelectObject(static_cast<CBrush_X*>(nullptr)), brushSlot);
    QCOMPARE(dc.SelectObject(static_cast<CGdiObject_X*>(nullptr)), nullptr);
    QCOMPARE(dc.pen(), QPen(Qt::red));
    QCOMPARE(dc.brush(), QBrush(Qt::blue));
}

void tst_DcSelection::oldObjectHandedBack()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    CPen_X pen(PS_SOLID, 1, RGB(255, 0, 0));
    CPen_X other(PS_SOLID, 1, RGB(0, 0, 255));
    CGdiObject_X* const old = dc.SelectObject(&pen);
    dc.SelectObject(&other);
    QCOMPARE(dc.SelectObject(old), nullptr);
    QCOMPARE(dc.pen(), plainPen(Qt::blue)); // the one that is current
}

// As a ported call has it, after the cast that it needs.
void tst_DcSelection::oldObjectThroughAPenPointer()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    CPen_X pen(PS_SOLID, 1, RGB(255, 0, 0));
    auto* const old = reinterpret_cast<CPen_X*>(dc.SelectObject(&pen));
    dc.SelectObject(old);
    QCOMPARE(dc.pen(), plainPen(Qt::red));
    dc.SelectObject(reinterpret_cast<CBrush_X*>(old)); // the wrong kind
    QCOMPARE(dc.brush(), QBrush());
}

void tst_DcSelection::anyObjectByItsClass()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    CPen_X pen(PS_SOLID, 1, RGB(255, 0, 0));
    CBrush_X brush(RGB(0, 0, 255));
    CRgn_X region;
    region.CreateRectRgn(1, 1, 2, 2);
    CBitmap_X bitmap;
    bitmap.CreateCompatibleBitmap(&dc, 2, 2);
    QVERIFY(dc.SelectObject(static_cast<CGdiObject_X*>(&pen)));
    QCOMPARE(dc.pen(), plainPen(Qt::red));
    QVERIFY(dc.SelectObject(static_cast<CGdiObject_X*>(&brush)));
    QCOMPARE(dc.brush(), QBrush(Qt::blue));
    QCOMPARE(dc.SelectObject(static_cast<CGdiObject_X*>(&region)), nullptr);
    QCOMPARE(dc.clipRegion(), QRegion(1, 1, 2, 2));
    QCOMPARE(dc.SelectObject(static_cast<CGdiObject_X*>(&bitmap)), nullptr);
}

void tst_DcSelection::deletingWhatIsSelected()
{
    Canvas canvas(5, 1);
    CDC_X dc(&canvas.image);
    CPen_X pen(PS_SOLID, 1, RGB(255, 0, 0));
    dc.SelectObject(&pen);
    QCOMPARE(pen.DeleteObject(), 1);
    dc.MoveTo(0, 0);
    dc.LineTo(2, 0);
    dc.end();
    QCOMPARE(canvas.view(), "rrr..");
}

void tst_DcSelection::deletingTheOldObject()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    CPen_X pen(PS_SOLID, 1, RGB(255, 0, 0));
    CBrush_X brush(RGB(0, 0, 255));
    QCOMPARE(dc.SelectObject(&pen)->DeleteObject(), 1);
    QCOMPARE(dc.SelectObject(&brush)->DeleteObject(), 1);
    QCOMPARE(dc.pen(), plainPen(Qt::red));
    QCOMPARE(dc.brush(), QBrush(Qt::blue));
    CGdiObject_X* const slot = dc.SelectObject(&pen);
    QCOMPARE(slot->DeleteObject(), 1);
    QCOMPARE(slot->GetSafeHandle(), nullptr);
    QCOMPARE(slot->DeleteObject(), 0);
    dc.Rectangle(0, 0, 4, 4);
}

void tst_DcSelection::slotDiesWithTheContext()
{
    Canvas canvas;
    CPen_X pen(PS_SOLID, 1, RGB(255, 0, 0));
    CGdiObject_X* old = nullptr;
    {
        CDC_X dc(&canvas.image);
        old = dc.SelectObject(&pen);
    }
    QCOMPARE(old->GetSafeHandle(), nullptr);
    QCOMPARE(old->DeleteObject(), 0);
    CDC_X dc(&canvas.image);
    dc.SelectObject(old);
    QCOMPARE(dc.pen(), QPen(Qt::black));
}

void tst_DcSelection::slotDiesWithTheSavedState()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    CPen_X pen(PS_SOLID, 1, RGB(255, 0, 0));
    CBrush_X brush(RGB(0, 0, 255));
    CGdiObject_X* const outer = dc.SelectObject(&pen);
    dc.SaveDC();
    CGdiObject_X* const inner = dc.SelectObject(&pen);
    CGdiObject_X* const innerBrush = dc.SelectObject(&brush);
    QVERIFY(outer != inner);
    dc.RestoreDC(-1);
    QCOMPARE(inner->GetSafeHandle(), nullptr);
    QCOMPARE(innerBrush->GetSafeHandle(), nullptr);
    QCOMPARE(outer->GetSafeHandle(), const_cast<QPen*>(&dc.pen()));
    dc.SelectObject(inner);
    dc.SelectObject(outer);
    QCOMPARE(dc.pen(), plainPen(Qt::red));
}

void tst_DcSelection::slotOfAnotherContext()
{
    Canvas canvas;
    Canvas other;
    CDC_X dc(&canvas.image);
    CDC_X dc2(&other.image);
    CPen_X pen(PS_SOLID, 1, RGB(255, 0, 0));
    CGdiObject_X* const old = dc.SelectObject(&pen);
    dc2.SelectObject(reinterpret_cast<CPen_X*>(old));
    QCOMPARE(dc2.pen(), QPen(Qt::black));
}

// A painter's memory is used again for whatever comes.
void tst_DcSelection::valueWhereASlotWas()
{
    CPen_X pen(PS_SOLID, 1, RGB(255, 0, 0));
    for (int i = 0; i < 1000; ++i) {
        Canvas canvas;
        CDC_X dc(&canvas.image);
        dc.SelectObject(&pen);
        dc.save();
        dc.SelectObject(&pen);
        dc.restore(); // without RestoreDC()
        CPen_X next(PS_SOLID, i, RGB(0, 0, 255));
        dc.SelectObject(&next);
        QCOMPARE(dc.pen(), QPen(Qt::blue, i));
    }
}

void tst_DcSelection::temporaryMapGoesFirst()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    CPen_X pen(PS_SOLID, 1, RGB(255, 0, 0));
    dc.SelectObject(&pen);
    CGdiObject_X::DeleteTempMap();
    QCOMPARE(dc.pen(), plainPen(Qt::red));
    QVERIFY(dc.SelectObject(&pen));
    CGdiObject_X::DeleteTempMap();
}

void tst_DcSelection::regions()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    CRgn_X region;
    QCOMPARE(dc.SelectObject(&region), -1);
    QCOMPARE(dc.SelectObject(static_cast<CRgn_X*>(nullptr)), -1);
    QVERIFY(!dc.hasClipping());
    region.CreateRectRgn(1, 2, 3, 4);
    QCOMPARE(dc.SelectObject(&region), 0);
    QCOMPARE(dc.clipRegion(), QRegion(1, 2, 3, 3));
}

// ------------------------------------------------------------------------------------------------------ stock objects

void tst_DcSelection::stockObjects_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QBrush>("brush");
    QTest::addColumn<QPen>("pen");

    const QBrush noBrush(Qt::red);
    const QPen noPen(Qt::red);
    QTest::newRow("WHITE_BRUSH") << WHITE_BRUSH << QBrush(Qt::white) << noPen;
    QTest::newRow("LTGRAY_BRUSH") << LTGRAY_BRUSH << QBrush(Qt::lightGray) << noPen;
    QTest::newRow("GRAY_BRUSH") << GRAY_BRUSH << QBrush(Qt::gray) << noPen;
    QTest::newRow("DKGRAY_BRUSH") << DKGRAY_BRUSH << QBrush(Qt::darkGray) << noPen;
    QTest::newRow("BLACK_BRUSH") << BLACK_BRUSH << QBrush(Qt::black) << noPen;
    QTest::newRow("NULL_BRUSH does nothing") << NULL_BRUSH << noBrush << noPen;
    QTest::newRow("WHITE_PEN") << WHITE_PEN << noBrush << QPen(Qt::white);
    QTest::newRow("BLACK_PEN") << BLACK_PEN << noBrush << QPen(Qt::black);
    QTest::newRow("NULL_PEN does nothing") << NULL_PEN << noBrush << noPen;
    QTest::newRow("far beyond") << std::numeric_limits<int>::max() << noBrush << noPen;
    QTest::newRow("negative") << -1 << noBrush << noPen;
}

void tst_DcSelection::stockObjects()
{
    QFETCH(int, index);
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.setPen(Qt::red);
    dc.setBrush(Qt::red);
    QCOMPARE(dc.SelectStockObject(index), nullptr);
    QTEST(dc.brush(), "brush");
    QTEST(dc.pen(), "pen");
}

XE_TEST(tst_DcSelection)
#include "tst_dcselection.moc"
