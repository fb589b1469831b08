// Where a device context paints, and its handles.

#include "canvas.h"
#include "leavenothing.h"
#include "testclass.h"

#include <xeafxhandle.h>
#include <xeafxstat.h>
#include <xeafxwin.h>

namespace {

void* handleOf(int number) { return reinterpret_cast<void*>(static_cast<quintptr>(number)); }

// A call through a null pointer is what host code does; the sanitizer is not asked about it.
__attribute__((no_sanitize("undefined"))) void* safeHandle(const CDC_X* dc) { return dc->GetSafeHdc(); }

// Counts the calls of the virtuals.
class CountingDC : public CDC_X
{
public:
    using CDC_X::CDC_X;

    void SetAttribDC(void* handle) override
    {
        ++set;
        CDC_X::SetAttribDC(handle);
    }
    void ReleaseAttribDC() override
    {
        ++released;
        CDC_X::ReleaseAttribDC();
    }

    int set = 0;
    int released = 0;
};

// The place of a virtual function in the virtual table.
template <class Function>
quintptr placeOf(Function function)
{
    quintptr place = 0;
    memcpy(&place, &function, sizeof place);
    return place;
}

} // namespace

class tst_DcLife : public QObject
{
    Q_OBJECT

private slots:
    void init() { CDC_X::DeleteTempMap(); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void paintsOnAnImage();
    void withoutDevice_data();
    void withoutDevice();
    void widgetOutsideItsPaintEvent();
    void layout();
    void orderOfTheVirtuals();
    void dynamicCreation();
    void aPainterOfItsOwn();

    void attach();
    void attachNull();
    void attachAgain();
    void twoContextsWithOneHandle();
    void detachWithoutHandle();
    void theDestructorLeavesTheMap();
    void temporaryContext();
    void temporaryContextDetaches();
    void nullObjectHasNoHandle();
    void attributeHandle();
    void manyHandles();

    void freeFunctions();
    void deletesAPainter();
};

void tst_DcLife::paintsOnAnImage()
{
    Canvas canvas(2, 1);
    {
        CDC_X dc(&canvas.image);
        QVERIFY(dc.isActive());
        QCOMPARE(dc.device(), &canvas.image);
        QVERIFY(canvas.image.paintingActive());
        QCOMPARE(dc.m_ptCurrent, CPoint(0, 0));
        QCOMPARE(dc.m_crText, 0xFFFFFFFFU);
        QCOMPARE(dc.m_hDC, nullptr);
        QCOMPARE(dc.m_hAttribDC, nullptr);
        QCOMPARE(dc.GetSafeHdc(), nullptr);
        dc.fillRect(0, 0, 1, 1, Qt::red);
    }
    QVERIFY(!canvas.image.paintingActive());
    QCOMPARE(canvas.view(), "r.");
}

void tst_DcLife::withoutDevice_data()
{
    QTest::addColumn<CDC_X*>("dc");
    QTest::addColumn<int>("entries");

    CWnd_X empty;
    QTest::newRow("default") << new CDC_X << 0;
    QTest::newRow("null image") << new CDC_X(static_cast<QImage*>(nullptr)) << 256;
    QTest::newRow("null widget") << new CDC_X(static_cast<QWidget*>(nullptr)) << 256;
    QTest::newRow("null window") << static_cast<CDC_X*>(new CClientDC_X(nullptr)) << 256;
    QTest::newRow("window without a widget") << static_cast<CDC_X*>(new CClientDC_X(&empty)) << 256;
}

void tst_DcLife::withoutDevice()
{
    QFETCH(CDC_X*, dc);
    const std::unique_ptr<CDC_X> owner(dc);
    QVERIFY(!dc->isActive());
    QCOMPARE(dc->device(), nullptr);
    QCOMPARE(dc->m_ptCurrent, CPoint(0, 0));
    QCOMPARE(dc->m_crText, 0xFFFFFFFFU);
    QCOMPARE(dc->m_hDC, nullptr);
    QCOMPARE(dc->m_hAttribDC, nullptr);
    QTEST(dc->m_palette.GetEntryCount(), "entries");
}

void tst_DcLife::widgetOutsideItsPaintEvent()
{
    QWidget widget;
    QTest::ignoreMessage(QtWarningMsg, "QWidget::paintEngine: Should no longer be called");
    QTest::ignoreMessage(QtWarningMsg, "QPainter::begin: Paint device returned engine == 0, type: 1");
    CDC_X dc(&widget);
    QVERIFY(!dc.isActive());
    QCOMPARE(dc.m_palette.GetEntryCount(), 256);
}

void tst_DcLife::layout()
{
    CDC_X dc;
    QCOMPARE(static_cast<void*>(static_cast<CObject_X*>(&dc)), static_cast<void*>(&dc));
    QCOMPARE(&dc.m_hDC + 1, &dc.m_hAttribDC);
    QVERIFY(static_cast<void*>(&dc.m_ptCurrent) < static_cast<void*>(&dc.m_hDC));
    QVERIFY(static_cast<void*>(&dc.m_hAttribDC) < static_cast<void*>(&dc.m_palette));
    QVERIFY(static_cast<void*>(&dc.m_palette) < static_cast<void*>(&dc.m_crText));
}

void tst_DcLife::orderOfTheVirtuals()
{
    const quintptr first = placeOf(&CDC_X::SetAttribDC);
    QCOMPARE(placeOf(&CDC_X::ReleaseAttribDC), first + sizeof(void*));
    QCOMPARE(placeOf(&CDC_X::SelectStockObject), first + 2 * sizeof(void*));
    QCOMPARE(placeOf(&CDC_X::SaveDC), first + 3 * sizeof(void*));
    QCOMPARE(placeOf(&CDC_X::RestoreDC), first + 4 * sizeof(void*));
    QCOMPARE(placeOf(&CObject_X::Dump) + sizeof(void*), first);
}

void tst_DcLife::dynamicCreation()
{
    const std::unique_ptr<CObject_X> object(RUNTIME_CLASS_X(CDC_X)->CreateObject());
    QCOMPARE(object->GetClassName(), "CDC_X");
    QVERIFY(object->IsKindOf(RUNTIME_CLASS_X(CObject_X)));
    QCOMPARE(CDC_X::s_classInfo.GetObjectSize(), int(sizeof(CDC_X)));
    CClientDC_X client(nullptr);
    QCOMPARE(client.GetRuntimeClass(), &CDC_X::s_classInfo);
    QCOMPARE(client.GetClassName(), "CClientDC_X");
}

// What a QPainter can do, a context can do.
void tst_DcLife::aPainterOfItsOwn()
{
    Canvas source(2, 2);
    source.image.fill(Qt::blue);
    Canvas canvas(4, 3);
    CDC_X dc(&canvas.image);
    dc.drawImage(1, 1, source.image);
    dc.end();
    QCOMPARE(canvas.view(), lines({"....", ".bb.", ".bb."}));
}

// ----------------------------------------------------------------------------------------------------------- handles

void tst_DcLife::attach()
{
    CountingDC dc;
    QCOMPARE(dc.Attach(handleOf(5)), 1);
    QCOMPARE(dc.m_hDC, handleOf(5));
    QCOMPARE(dc.m_hAttribDC, handleOf(5));
    QCOMPARE(dc.GetSafeHdc(), handleOf(5));
    QCOMPARE(dc.set, 1);
    QCOMPARE(CDC_X::FromHandle(handleOf(5)), &dc);

    QCOMPARE(dc.Detach(), handleOf(5));
    QCOMPARE(dc.released, 1);
    QCOMPARE(dc.m_hDC, nullptr);
    QCOMPARE(dc.m_hAttribDC, nullptr);
    QVERIFY(!afxMapHDC_X()->LookupPermanent(handleOf(5)));
}

void tst_DcLife::attachNull()
{
    CountingDC dc;
    QCOMPARE(dc.Attach(handleOf(5)), 1);
    QCOMPARE(dc.Attach(nullptr), 0);
    QCOMPARE(dc.m_hDC, handleOf(5));
    QCOMPARE(dc.set, 1);
}

void tst_DcLife::attachAgain()
{
    CDC_X dc;
    dc.Attach(handleOf(5));
    QCOMPARE(dc.Attach(handleOf(6)), 1);
    QCOMPARE(CDC_X::FromHandle(handleOf(6)), &dc);
    QVERIFY(!afxMapHDC_X()->LookupPermanent(handleOf(5)));
    QCOMPARE(dc.Attach(handleOf(6)), 1);
    QCOMPARE(CDC_X::FromHandle(handleOf(6)), &dc);
}

void tst_DcLife::twoContextsWithOneHandle()
{
    CDC_X last;
    {
        CDC_X first;
        first.Attach(handleOf(5));
        last.Attach(handleOf(5));
        QCOMPARE(first.Detach(), handleOf(5));
        QCOMPARE(CDC_X::FromHandle(handleOf(5)), &last);
        first.Attach(handleOf(5));
        last.Attach(handleOf(5));
    }
    QCOMPARE(CDC_X::FromHandle(handleOf(5)), &last);
}

void tst_DcLife::detachWithoutHandle()
{
    CountingDC dc;
    dc.m_hAttribDC = handleOf(7);
    QCOMPARE(dc.Detach(), nullptr);
    QCOMPARE(dc.released, 1);
    QCOMPARE(dc.m_hAttribDC, nullptr);
}

void tst_DcLife::theDestructorLeavesTheMap()
{
    {
        CDC_X dc;
        dc.Attach(handleOf(5));
    }
    QVERIFY(!afxMapHDC_X()->LookupPermanent(handleOf(5)));
    CDC_X* const temporary = CDC_X::FromHandle(handleOf(5));
    QCOMPARE(temporary, CDC_X::FromHandle(handleOf(5)));
}

void tst_DcLife::temporaryContext()
{
    QCOMPARE(CDC_X::FromHandle(nullptr), nullptr);
    CDC_X* const dc = CDC_X::FromHandle(handleOf(5));
    QVERIFY(dc);
    QVERIFY(!dc->isActive());
    QCOMPARE(dc->m_hDC, handleOf(5));
    QCOMPARE(dc->m_hAttribDC, handleOf(5));
    QCOMPARE(dc->GetRuntimeClass(), &CDC_X::s_classInfo);
    QCOMPARE(dc->MoveTo(3, 4), 1);
    QCOMPARE(dc->m_ptCurrent, CPoint(3, 4));
    QCOMPARE(CDC_X::FromHandle(handleOf(5)), dc);
    QVERIFY(CDC_X::FromHandle(handleOf(6)) != dc);
    CDC_X::DeleteTempMap();
    QVERIFY(!afxMapHDC_X()->LookupTemporary(handleOf(5)));
}

void tst_DcLife::temporaryContextDetaches()
{
    CDC_X* const temporary = CDC_X::FromHandle(handleOf(5));
    CDC_X dc;
    dc.Attach(handleOf(5));
    QCOMPARE(temporary->Detach(), handleOf(5));
    QCOMPARE(CDC_X::FromHandle(handleOf(5)), &dc);
}

void tst_DcLife::nullObjectHasNoHandle()
{
    CDC_X dc;
    dc.m_hDC = handleOf(5);
    QCOMPARE(safeHandle(&dc), handleOf(5));
    QCOMPARE(safeHandle(nullptr), nullptr);
    dc.m_hDC = nullptr;
}

void tst_DcLife::attributeHandle()
{
    CDC_X dc;
    dc.SetAttribDC(handleOf(7));
    QCOMPARE(dc.m_hAttribDC, handleOf(7));
    QCOMPARE(dc.GetSafeHdc(), nullptr);
    dc.ReleaseAttribDC();
    QCOMPARE(dc.m_hAttribDC, nullptr);
}

void tst_DcLife::manyHandles()
{
    std::vector<std::unique_ptr<CDC_X>> all;
    for (int i = 1; i <= 10000; ++i) {
        all.push_back(std::make_unique<CDC_X>());
        all.back()->Attach(handleOf(i));
    }
    for (int i = 1; i <= 10000; ++i)
        QCOMPARE(CDC_X::FromHandle(handleOf(i)), all[std::size_t(i - 1)].get());
    all.clear();
    for (int i = 1; i <= 10000; ++i)
        QVERIFY(!afxMapHDC_X()->LookupPermanent(handleOf(i)));
}

// ----------------------------------------------------------------------------------------------------- free functions

void tst_DcLife::freeFunctions()
{
    QWidget widget;
    QCOMPARE(GetDC_X(&widget), nullptr);
    QCOMPARE(GetDC_X(nullptr), nullptr);
    QCOMPARE(ReleaseDC_X(&widget, handleOf(5)), 0);
    for (int index = 0; index < 128; ++index)
        QCOMPARE(GetDeviceCaps_X(handleOf(5), index), 0);
    QCOMPARE(DeleteDC_X(nullptr), 1);
}

void tst_DcLife::deletesAPainter()
{
    Canvas canvas;
    QCOMPARE(DeleteDC_X(new QPainter(&canvas.image)), 1);
    QVERIFY(!canvas.image.paintingActive());
}

XE_TEST(tst_DcLife)
#include "tst_dclife.moc"
