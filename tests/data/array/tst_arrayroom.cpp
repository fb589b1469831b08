#include "openarray.h"
#include "testclass.h"

#include <climits>
#include <new>

namespace {

template <class Function>
bool runsOutOfMemory(Function function)
{
    try {
        function();
    } catch (const std::bad_alloc&) {
        return true;
    }
    return false;
}

} // namespace

/// The block of an array: how large it is, when it is allocated and when it goes.
class tst_ArrayRoom : public QObject
{
    Q_OBJECT

private slots:
    void aNewArray_data() { arrayClassRows(); }
    void aNewArray();
    void theFieldsFollowTheObject_data() { arrayClassRows(); }
    void theFieldsFollowTheObject();
    void theFirstBlockIsExact_data() { arrayClassRows(); }
    void theFirstBlockIsExact();
    void growthByOne_data();
    void growthByOne();
    void growthFromEmpty_data() { arrayClassRows(); }
    void growthFromEmpty();
    void theStepFollowsTheSize_data() { arrayClassRows(); }
    void theStepFollowsTheSize();
    void growthBeyondTheStep_data() { arrayClassRows(); }
    void growthBeyondTheStep();
    void theStepIsTakenUpFromZeroUpward_data() { arrayClassRows(); }
    void theStepIsTakenUpFromZeroUpward();
    void smallerSizesKeepTheBlock_data() { arrayClassRows(); }
    void smallerSizesKeepTheBlock();
    void slotsComeIntoUseEmpty_data() { arrayClassRows(); }
    void slotsComeIntoUseEmpty();
    void sizeZeroFreesTheBlock_data() { arrayClassRows(); }
    void sizeZeroFreesTheBlock();
    void removingEachElementKeepsTheBlock_data() { arrayClassRows(); }
    void removingEachElementKeepsTheBlock();
    void freeExtra_data() { arrayClassRows(); }
    void freeExtra();
    void aNegativeSize_data() { arrayClassRows(); }
    void aNegativeSize();
    void aStepThatWraps_data() { arrayClassRows(); }
    void aStepThatWraps();
    void noMemory_data();
    void noMemory();
};

void tst_ArrayRoom::aNewArray()
{
    withArray([](auto& array) {
        QCOMPARE(array.room(), QString("0 of 0, step 0"));
        QVERIFY(array.IsEmpty());
        QCOMPARE(array.GetSize(), 0LL);
        QCOMPARE(array.GetUpperBound(), -1LL);
        QVERIFY(!array.GetData());
        QVERIFY(!std::as_const(array).GetData());
        array.RemoveAll();
        array.FreeExtra();
        QCOMPARE(array.room(), QString("0 of 0, step 0"));
    });
}

void tst_ArrayRoom::theFieldsFollowTheObject()
{
    withArray([](auto& array) {
        const auto offset = [&](const void* field) {
            return static_cast<const char*>(field) - reinterpret_cast<const char*>(&array);
        };
        const auto first = static_cast<std::ptrdiff_t>(sizeof(CObject_X));
        QCOMPARE(offset(&array.data), first);
        QCOMPARE(offset(&array.size), first + 8);
        QCOMPARE(offset(&array.capacity), first + 16);
        QCOMPARE(offset(&array.growStep), first + 24);
        QCOMPARE(sizeof array, sizeof(CObject_X) + 32);
    });
}

void tst_ArrayRoom::theFirstBlockIsExact()
{
    withArray([](auto& array) {
        array.SetSize(5, 100);
        QCOMPARE(array.room(), QString("5 of 5, step 100"));
        QCOMPARE(shown(array), QString("0 0 0 0 0"));
        array.SetSize(6);
        QCOMPARE(array.room(), QString("6 of 105, step 100"));
    });
}

void tst_ArrayRoom::growthByOne_data()
{
    QTest::addColumn<int>("arrayClass");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("step");
    const std::pair<int, int> rows[] = {{1, 4},       {3, 4},       {31, 4},      {32, 4},      {39, 4},
                                        {40, 5},      {47, 5},      {48, 6},      {8191, 1023}, {8192, 1024},
                                        {8199, 1024}, {8200, 1024}, {16400, 1024}};
    for (const auto& [size, step] : rows)
        rowsForEachClass(qPrintable(QStringLiteral("from %1").arg(size)),
                         [size = size, step = step](QTestData& row) { row << size << step; });
}

void tst_ArrayRoom::growthByOne()
{
    QFETCH(int, size);
    QFETCH(int, step);
    withArray([&](auto& array) {
        array.SetSize(size);
        array.SetSize(size + 1);
        QCOMPARE(array.room(), QStringLiteral("%1 of %2, step 0").arg(size + 1).arg(size + step));
    });
}

void tst_ArrayRoom::growthFromEmpty()
{
    withArray([](auto& array) {
        for (const int room : {1, 5, 9, 13, 17, 21, 25, 29, 33, 37, 41, 46, 51, 57, 64, 72, 81}) {
            array.Add({});
            QCOMPARE(array.capacity, static_cast<long long>(room));
            while (array.size < array.capacity)
                array.Add({});
            QCOMPARE(array.capacity, static_cast<long long>(room));
        }
    });
}

void tst_ArrayRoom::theStepFollowsTheSize()
{
    withArray([](auto& array) {
        array.SetSize(80);
        array.SetSize(8);
        array.SetSize(81);
        QCOMPARE(array.room(), QString("81 of 84, step 0"));
    });
}

void tst_ArrayRoom::growthBeyondTheStep()
{
    withArray([](auto& array) {
        array.SetSize(5, 10);
        array.SetSize(15);
        QCOMPARE(array.room(), QString("15 of 15, step 10"));
        array.SetSize(1000);
        QCOMPARE(array.room(), QString("1000 of 1000, step 10"));
        array.SetSize(1009);
        QCOMPARE(array.room(), QString("1009 of 1010, step 10"));
    });
}

void tst_ArrayRoom::theStepIsTakenUpFromZeroUpward()
{
    withArray([](auto& array) {
        array.SetSize(1, 7);
        array.SetSize(1, -1);
        QCOMPARE(array.growStep, 7LL);
        array.SetSize(1, LLONG_MIN);
        QCOMPARE(array.growStep, 7LL);
        array.SetSize(1);
        QCOMPARE(array.growStep, 7LL);
        array.SetSize(2, 20);
        QCOMPARE(array.room(), QString("2 of 21, step 20"));
        array.SetSize(22, 0);
        QCOMPARE(array.room(), QString("22 of 25, step 0"));
    });
}

void tst_ArrayRoom::smallerSizesKeepTheBlock()
{
    withArray([](auto& array) {
        fill(array, {1, 2, 3, 4, 5});
        const auto* const block = array.GetData();
        array.SetSize(2);
        QCOMPARE(array.room(), QString("2 of 5, step 0"));
        QCOMPARE(shown(array), QString("1 2"));
        QCOMPARE(array.GetData(), block);
    });
}

void tst_ArrayRoom::slotsComeIntoUseEmpty()
{
    withArray([](auto& array) {
        fill(array, {1, 2, 3, 4, 5});
        array.SetSize(2);
        array.SetSize(5);
        QCOMPARE(shown(array), QString("1 2 0 0 0"));
        array.RemoveAt(0);
        array.SetSize(7);
        QCOMPARE(shown(array), QString("2 0 0 0 0 0 0"));
    });
}

void tst_ArrayRoom::sizeZeroFreesTheBlock()
{
    withArray([](auto& array) {
        array.SetSize(5, 9);
        array.SetSize(0);
        QCOMPARE(array.room(), QString("0 of 0, step 9"));
        QVERIFY(!array.GetData());
        array.SetSize(5);
        array.RemoveAll();
        QCOMPARE(array.room(), QString("0 of 0, step 9"));
        array.SetSize(5);
        array.SetSize(0, 3);
        QCOMPARE(array.room(), QString("0 of 0, step 3"));
    });
}

void tst_ArrayRoom::removingEachElementKeepsTheBlock()
{
    withArray([](auto& array) {
        fill(array, {1, 2});
        array.RemoveAt(0, 2);
        QCOMPARE(array.room(), QString("0 of 2, step 0"));
        QVERIFY(array.GetData());
        array.SetSize(3);
        QCOMPARE(array.room(), QString("3 of 6, step 0"));
    });
}

void tst_ArrayRoom::freeExtra()
{
    withArray([](auto& array) {
        fill(array, {1, 2, 3});
        array.SetSize(3, 50);
        array.SetAtGrow(3, {});
        QCOMPARE(array.room(), QString("4 of 53, step 50"));
        array.FreeExtra();
        QCOMPARE(array.room(), QString("4 of 4, step 50"));
        QCOMPARE(shown(array), QString("1 2 3 0"));

        const auto* const block = array.GetData();
        array.FreeExtra();
        QCOMPARE(array.GetData(), block);

        array.RemoveAt(0, 4);
        array.FreeExtra();
        QCOMPARE(array.room(), QString("0 of 0, step 50"));
    });
}

void tst_ArrayRoom::aNegativeSize()
{
    withArray([](auto& array) {
        fill(array, {1, 2, 3});
        for (const long long size : {-1LL, LLONG_MIN})
            QCOMPARE(changed(array, [&] { array.SetSize(size, 6); }), QString("raises: 1 2 3"));
        QCOMPARE(array.room(), QString("3 of 3, step 0"));
    });
}

void tst_ArrayRoom::aStepThatWraps()
{
    withArray([](auto& array) {
        fill(array, {1, 2, 3});
        QCOMPARE(changed(array, [&] { array.SetSize(4, LLONG_MAX); }), QString("raises: 1 2 3"));
        QCOMPARE(array.room(), QString("3 of 3, step 0"));
        QCOMPARE(changed(array, [&] { array.SetSize(3, LLONG_MAX); }), QString("1 2 3"));
        QCOMPARE(changed(array, [&] { array.Add({}); }), QString("raises: 1 2 3"));
        QCOMPARE(changed(array, [&] { array.InsertAt(0, elementOf<std::decay_t<decltype(array[0])>>(7)); }),
                 QString("raises: 1 2 3"));
    });
}

void tst_ArrayRoom::noMemory_data()
{
    arrayClassRows();
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("the sanitizers end a program that asks for so much");
#endif
}

void tst_ArrayRoom::noMemory()
{
    volatile long long unseen = 1LL << 62; // by the compiler, which would warn
    const long long huge = unseen;
    withArray([huge](auto& array) {
        for (const long long size : {huge, LLONG_MAX}) {
            QVERIFY(runsOutOfMemory([&] { array.SetSize(size, 5); }));
            QCOMPARE(array.room(), QString("0 of 0, step 0"));
        }
        fill(array, {1, 2, 3});
        const auto* const block = array.GetData();
        const auto value = elementOf<std::decay_t<decltype(array[0])>>(7);
        QVERIFY(runsOutOfMemory([&] { array.SetSize(huge, 5); }));
        QVERIFY(runsOutOfMemory([&] { array.SetAtGrow(huge, value); }));
        QVERIFY(runsOutOfMemory([&] { array.InsertAt(1, value, huge); }));
        QVERIFY(runsOutOfMemory([&] { array.InsertAt(huge, value, 1); }));
        QVERIFY(runsOutOfMemory([&] { array.SetSize(4, huge); }));
        QCOMPARE(array.room(), QString("3 of 3, step 0"));
        QCOMPARE(shown(array), QString("1 2 3"));
        QCOMPARE(array.GetData(), block);
    });
}

XE_APPLESS_TEST(tst_ArrayRoom)
#include "tst_arrayroom.moc"
