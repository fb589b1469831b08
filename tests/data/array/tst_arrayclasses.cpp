#include "openarray.h"
#include "testclass.h"

#include <QSignalSpy>

#include <memory>

/// The seven array classes as classes: run-time records, ownership, and the example of the header.
class tst_ArrayClasses : public QObject
{
    Q_OBJECT

private slots:
    void runtimeClass_data() { arrayClassRows(); }
    void runtimeClass();
    void creation_data();
    void creation();
    void objectsAreNotOwned();
    void apiExample();
};

void tst_ArrayClasses::runtimeClass()
{
    withArray([](auto& array) {
        CRuntimeClass_X* const record = array.GetRuntimeClass();
        QCOMPARE(record->GetClassName(), QTest::currentDataTag());
        QCOMPARE(array.GetClassName(), QTest::currentDataTag());
        QCOMPARE(record->GetMetaObject()->superClass(), &CObject_X::staticMetaObject);
        QCOMPARE(record->GetImpMetaObject(), &QObject::staticMetaObject);
        QVERIFY(array.IsKindOf(RUNTIME_CLASS_X(CObject_X)));
        QVERIFY(array.IsKindOf(QTest::currentDataTag()));
        QCOMPARE(record->GetObjectSize(), int(sizeof array));
    });
}

void tst_ArrayClasses::creation_data()
{
    QTest::addColumn<int>("arrayClass");
    QTest::addColumn<bool>("creatable");
    int arrayClass = 0;
    for (const bool creatable : {true, true, true, false, false, true, true}) {
        QTest::newRow(arrayClassNames[arrayClass]) << arrayClass << creatable;
        ++arrayClass;
    }
}

void tst_ArrayClasses::creation()
{
    QFETCH(bool, creatable);
    withArray([&](auto& array) {
        const std::unique_ptr<CObject_X> created(array.GetRuntimeClass()->CreateObject());
        QCOMPARE(created != nullptr, creatable);
        if (created)
            QCOMPARE(created->GetRuntimeClass(), array.GetRuntimeClass());
    });
}

void tst_ArrayClasses::objectsAreNotOwned()
{
    CObject_X object;
    QSignalSpy gone(&object, &QObject::destroyed);
    {
        CObArray_X array;
        array.Add(&object);
        array.Add(&object);
        QCOMPARE(array[1], &object);
        array.RemoveAt(0);
        array.RemoveAll();
        array.Add(&object);
    }
    QCOMPARE(gone.count(), 0);
}

void tst_ArrayClasses::apiExample()
{
    CDWordArray_X codes;
    codes.Add(17);
    codes.SetAtGrow(3, 42); // 17, 0, 0, 42
    QCOMPARE(codes.GetSize(), 4LL);
    QCOMPARE(codes[1], 0U);
    codes.RemoveAt(1, 2); // 17, 42
    QCOMPARE(codes.GetSize(), 2LL);
    QCOMPARE(codes[0], 17U);
    QCOMPARE(codes[1], 42U);
}

XE_APPLESS_TEST(tst_ArrayClasses)
#include "tst_arrayclasses.moc"
