// GDI objects: their handles, the handle map, and when a value is freed.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

namespace {

// Null objects are asked on purpose, by hosts and here.
__attribute__((no_sanitize("undefined"))) void* handleOf(const CGdiObject_X* object) { return object->GetSafeHandle(); }

// Tells whether a picture's bytes are still there: they go when the last QImage over them is destroyed.
class WatchedPicture
{
public:
    // A new picture on the heap.
    void* make()
    {
        isAlive = true;
        return new QImage(
            bytes, 1, 1, QImage::Format_ARGB32, [](void* flag) { *static_cast<bool*>(flag) = false; }, &isAlive);
    }

    bool isAlive = false;

private:
    uchar bytes[4] = {};
};

CObject_X* permanentOf(void* handle) { return afxMapHGDIOBJ_X(TRUE)->LookupPermanent(handle); }

} // namespace

class tst_GdiObject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void classes_data();
    void classes();
    void attach();
    void attachNull();
    void detach();
    void deleteObject();
    void theDestructorFrees();
    void aPlainObjectFreesMemoryAlone();
    void aSecondAttachFreesNothing();
    void attachOfTheSameHandle();
    void theHostWritesTheHandle();
    void nullObjects();
    void theStub();

    void sharedValueLivesUntilTheLastDeletes();
    void sharedValueLivesUntilTheLastDies();
    void detachGivesUpAShare();
    void theMapNamesTheLastHolder();

    void temporaryObjects();
    void aTemporaryDoesNotOwn();
    void deletingATemporaryFrees();
    void deletingATemporaryOfAHeldValue();
    void attachToATemporary();

    void painterSlot();
    void painterSlotWithoutAWrapper();

    void tenThousandObjects();
};

void tst_GdiObject::cleanup()
{
    CGdiObject_X::DeleteTempMap();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

// ---------------------------------------------------------------------------------------------------- handle and value

void tst_GdiObject::classes_data()
{
    QTest::addColumn<void*>("record");
    QTest::addColumn<QString>("name");
    const auto row = [](CRuntimeClass_X* record) {
        QTest::newRow(record->GetClassName()) << static_cast<void*>(record) << QString(record->GetClassName());
    };
    row(RUNTIME_CLASS_X(CGdiObject_X));
    row(RUNTIME_CLASS_X(CPen_X));
    row(RUNTIME_CLASS_X(CBrush_X));
    row(RUNTIME_CLASS_X(CBitmap_X));
    row(RUNTIME_CLASS_X(CPalette_X));
    row(RUNTIME_CLASS_X(CRgn_X));
}

void tst_GdiObject::classes()
{
    QFETCH(void*, record);
    const std::unique_ptr<CObject_X> object(static_cast<CRuntimeClass_X*>(record)->CreateObject());
    QVERIFY(object);
    QCOMPARE(static_cast<void*>(object->GetRuntimeClass()), record);
    QTEST(QString(object->GetClassName()), "name");
    QVERIFY(object->IsKindOf(RUNTIME_CLASS_X(CGdiObject_X)));
    auto* const gdiObject = static_cast<CGdiObject_X*>(object.get());
    QCOMPARE(gdiObject->GetSafeHandle(), nullptr);
    QCOMPARE(static_cast<void*>(*gdiObject), nullptr);
    QVERIFY(!gdiObject->DeleteObject());
}

void tst_GdiObject::attach()
{
    auto* const value = new QPen;
    CPen_X pen;
    QCOMPARE(pen.Attach(value), TRUE);
    QCOMPARE(pen.m_hObject, value);
    QCOMPARE(pen.GetSafeHandle(), value);
    QCOMPARE(static_cast<void*>(pen), value);
    QCOMPARE(CGdiObject_X::FromHandle(value), &pen);
    QCOMPARE(CPen_X::FromHandle(value), &pen);
    QCOMPARE(permanentOf(value), &pen);
}

void tst_GdiObject::attachNull()
{
    CPen_X pen(PS_SOLID, 1, 0);
    void* const value = pen.GetSafeHandle();
    QCOMPARE(pen.Attach(nullptr), FALSE);
    QCOMPARE(pen.GetSafeHandle(), value);
}

void tst_GdiObject::detach()
{
    WatchedPicture picture;
    CBitmap_X bitmap;
    QCOMPARE(bitmap.Detach(), nullptr);
    void* const value = picture.make();
    bitmap.Attach(value);
    QCOMPARE(bitmap.Detach(), value);
    QCOMPARE(bitmap.GetSafeHandle(), nullptr);
    QCOMPARE(permanentOf(value), nullptr);
    QVERIFY(picture.isAlive);
    delete static_cast<QImage*>(value);
}

void tst_GdiObject::deleteObject()
{
    WatchedPicture picture;
    CBitmap_X bitmap;
    void* const value = picture.make();
    bitmap.Attach(value);
    CGdiObject_X& base = bitmap;
    QCOMPARE(base.DeleteObject(), TRUE);
    QVERIFY(!picture.isAlive); // the value's destructor has run
    QCOMPARE(bitmap.GetSafeHandle(), nullptr);
    QCOMPARE(permanentOf(value), nullptr);
    QCOMPARE(base.DeleteObject(), FALSE);
}

void tst_GdiObject::theDestructorFrees()
{
    WatchedPicture picture;
    void* const value = picture.make();
    {
        CBitmap_X bitmap;
        bitmap.Attach(value);
        QVERIFY(picture.isAlive);
    }
    QVERIFY(!picture.isAlive);
    QCOMPARE(permanentOf(value), nullptr);
}

void tst_GdiObject::aPlainObjectFreesMemoryAlone()
{
    CGdiObject_X object;
    object.Attach(::operator new(16)); // a sanitizer would tell if it were left
    QCOMPARE(object.DeleteObject(), TRUE);
    CGdiObject_X dies;
    dies.Attach(::operator new(16));
}

void tst_GdiObject::aSecondAttachFreesNothing()
{
    WatchedPicture first;
    WatchedPicture second;
    CBitmap_X bitmap;
    void* const old = first.make();
    bitmap.Attach(old);
    QCOMPARE(bitmap.Attach(second.make()), TRUE);
    QVERIFY(first.isAlive);
    QCOMPARE(permanentOf(old), nullptr);
    QCOMPARE(permanentOf(bitmap), &bitmap);
    delete static_cast<QImage*>(old);
}

void tst_GdiObject::attachOfTheSameHandle()
{
    WatchedPicture picture;
    CBitmap_X bitmap;
    void* const value = picture.make();
    bitmap.Attach(value);
    QCOMPARE(bitmap.Attach(value), TRUE);
    QCOMPARE(CGdiObject_X::FromHandle(value), &bitmap);
    bitmap.DeleteObject();
    QVERIFY(!picture.isAlive);
}

void tst_GdiObject::theHostWritesTheHandle()
{
    WatchedPicture first;
    WatchedPicture second;
    CBitmap_X bitmap;
    void* const old = first.make();
    bitmap.Attach(old);
    bitmap.m_hObject = second.make();
    QCOMPARE(bitmap.DeleteObject(), TRUE);
    QVERIFY(!second.isAlive);
    QVERIFY(first.isAlive);
    delete static_cast<QImage*>(old);
}

void tst_GdiObject::nullObjects()
{
    QCOMPARE(handleOf(nullptr), nullptr);
    QCOMPARE(CGdiObject_X::FromHandle(nullptr), nullptr);
    QCOMPARE(CPen_X::FromHandle(nullptr), nullptr);
    QCOMPARE(CBrush_X::FromHandle(nullptr), nullptr);
    QCOMPARE(CBitmap_X::FromHandle(nullptr), nullptr);
    QCOMPARE(CPalette_X::FromHandle(nullptr), nullptr);
    QCOMPARE(CRgn_X::FromHandle(nullptr), nullptr);
}

void tst_GdiObject::theStub()
{
    CPen_X pen(PS_SOLID, 1, 0);
    tagLOGPEN record = {7, {7, 7}, 7};
    QCOMPARE(pen.GetObject(sizeof record, &record), 0);
    QCOMPARE(record.lopnStyle, 7u);
    QCOMPARE(pen.GetObject(0, nullptr), 0);
}

// ----------------------------------------------------------------------------------------------------- several holders

void tst_GdiObject::sharedValueLivesUntilTheLastDeletes()
{
    WatchedPicture picture;
    CBitmap_X first;
    CBitmap_X second;
    first.Attach(picture.make());
    second.Attach(first);
    QCOMPARE(first.GetSafeHandle(), second.GetSafeHandle());
    QCOMPARE(first.DeleteObject(), TRUE);
    QVERIFY(picture.isAlive);
    QCOMPARE(first.GetSafeHandle(), nullptr);
    QCOMPARE(second.DeleteObject(), TRUE);
    QVERIFY(!picture.isAlive);
}

void tst_GdiObject::sharedValueLivesUntilTheLastDies()
{
    WatchedPicture picture;
    {
        CBitmap_X first;
        first.Attach(picture.make());
        {
            CBitmap_X second;
            second.Attach(first);
            CBitmap_X third;
            third.Attach(first);
        }
        QVERIFY(picture.isAlive);
    }
    QVERIFY(!picture.isAlive);
}

void tst_GdiObject::detachGivesUpAShare()
{
    WatchedPicture picture;
    CBitmap_X first;
    first.Attach(picture.make());
    CBitmap_X second;
    second.Attach(first);
    QCOMPARE(second.Detach(), first.GetSafeHandle());
    QVERIFY(picture.isAlive);
    first.DeleteObject();
    QVERIFY(!picture.isAlive);
}

void tst_GdiObject::theMapNamesTheLastHolder()
{
    CPen_X first(PS_SOLID, 1, 0);
    void* const value = first;
    CPen_X second;
    second.Attach(value);
    QCOMPARE(permanentOf(value), &second);
    first.Detach(); // another holder's entry stays
    QCOMPARE(permanentOf(value), &second);
}

// ----------------------------------------------------------------------------------------------------------- temporary

void tst_GdiObject::temporaryObjects()
{
    QPen pen;
    CGdiObject_X* const wrapper = CPen_X::FromHandle(&pen);
    QVERIFY(wrapper);
    QCOMPARE(wrapper->GetRuntimeClass(), RUNTIME_CLASS_X(CGdiObject_X)); // whatever class was asked
    QCOMPARE(wrapper->GetSafeHandle(), &pen);
    QCOMPARE(CBrush_X::FromHandle(&pen), wrapper);
    QCOMPARE(CBitmap_X::FromHandle(&pen), wrapper);
    QCOMPARE(CPalette_X::FromHandle(&pen), wrapper);
    QCOMPARE(CRgn_X::FromHandle(&pen), wrapper);
    QCOMPARE(permanentOf(&pen), nullptr);
    QPen other;
    QVERIFY(CGdiObject_X::FromHandle(&other) != wrapper);
}

void tst_GdiObject::aTemporaryDoesNotOwn()
{
    const QPen pen(Qt::red);
    CGdiObject_X::FromHandle(const_cast<QPen*>(&pen));
    CGdiObject_X::DeleteTempMap();
    QCOMPARE(pen.color(), QColor(Qt::red));
    QCOMPARE(afxMapHGDIOBJ_X(TRUE)->LookupTemporary(const_cast<QPen*>(&pen)), nullptr);
}

void tst_GdiObject::deletingATemporaryFrees()
{
    CGdiObject_X* const wrapper = CGdiObject_X::FromHandle(::operator new(16));
    QCOMPARE(wrapper->DeleteObject(), TRUE);
    QCOMPARE(wrapper->GetSafeHandle(), nullptr);
    QCOMPARE(wrapper->DeleteObject(), FALSE);
}

void tst_GdiObject::deletingATemporaryOfAHeldValue()
{
    WatchedPicture picture;
    void* const value = picture.make();
    CGdiObject_X* const wrapper = CGdiObject_X::FromHandle(value);
    CBitmap_X bitmap;
    bitmap.Attach(value);
    QCOMPARE(CGdiObject_X::FromHandle(value), &bitmap);
    QCOMPARE(wrapper->DeleteObject(), TRUE);
    QCOMPARE(wrapper->GetSafeHandle(), nullptr);
    QVERIFY(picture.isAlive);
    QCOMPARE(CGdiObject_X::FromHandle(value), &bitmap);
}

void tst_GdiObject::attachToATemporary()
{
    QPen pen;
    auto* const value = new QPen;
    CGdiObject_X* const wrapper = CGdiObject_X::FromHandle(&pen);
    QCOMPARE(wrapper->Attach(value), TRUE);
    QCOMPARE(CGdiObject_X::FromHandle(value), wrapper);
    CGdiObject_X::DeleteTempMap();
    QCOMPARE(permanentOf(value), nullptr);
    CPen_X holder;
    holder.Attach(value);
}

// ------------------------------------------------------------------------------------------------------- painters' own

void tst_GdiObject::painterSlot()
{
    QImage image(1, 1, QImage::Format_ARGB32);
    CPen_X red(PS_SOLID, 1, 0x0000FFu);
    CGdiObject_X* wrapper = nullptr;
    {
        CDC_X dc(&image);
        wrapper = dc.SelectObject(&red);
        QCOMPARE(wrapper->GetSafeHandle(), const_cast<QPen*>(&dc.pen()));
        QCOMPARE(wrapper->DeleteObject(), TRUE); // frees nothing
        QCOMPARE(wrapper->GetSafeHandle(), nullptr);
        QCOMPARE(dc.pen().color(), QColor(Qt::red));
        QCOMPARE(wrapper->DeleteObject(), FALSE);
        QCOMPARE(dc.SelectObject(&red), wrapper);
        QCOMPARE(wrapper->GetSafeHandle(), const_cast<QPen*>(&dc.pen()));
    }
    QCOMPARE(wrapper->GetSafeHandle(), nullptr);
    QVERIFY(red.GetSafeHandle());
}

void tst_GdiObject::painterSlotWithoutAWrapper()
{
    QImage image(1, 1, QImage::Format_ARGB32);
    CPen_X red(PS_SOLID, 1, 0x0000FFu);
    CDC_X dc(&image);
    dc.SelectObject(&red);
    CGdiObject_X::DeleteTempMap(); // what the context hands out goes before it
}

// ---------------------------------------------------------------------------------------------------------------- many

void tst_GdiObject::tenThousandObjects()
{
    std::vector<std::unique_ptr<CPen_X>> pens;
    for (int i = 0; i < 10000; ++i)
        pens.push_back(std::make_unique<CPen_X>(PS_SOLID, i, 0));
    for (const auto& pen : pens)
        QCOMPARE(CGdiObject_X::FromHandle(*pen), pen.get());
    for (int i = 0; i < 10000; i += 2)
        pens[static_cast<std::size_t>(i)]->DeleteObject();
    for (int i = 1; i < 10000; i += 2) {
        tagLOGPEN record;
        QVERIFY(pens[static_cast<std::size_t>(i)]->GetLogPen(&record));
        QCOMPARE(record.lopnWidth.x, i);
    }
}

XE_TEST(tst_GdiObject)
#include "tst_gdiobject.moc"
