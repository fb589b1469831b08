#include "openarray.h"
#include "testclass.h"

#include <climits>

namespace {

template <class Array>
using ElementOf = typename std::decay_t<Array>::Element;

/// Adds for each class a row whose columns behind the class are a position, a count and the outcome.
void rangeRow(const char* aspect, long long index, long long count, const char* expected)
{
    rowsForEachClass(aspect, [&](QTestData& row) { row << index << count << QString(expected); });
}

void rangeColumns()
{
    QTest::addColumn<int>("arrayClass");
    QTest::addColumn<qlonglong>("index");
    QTest::addColumn<qlonglong>("count");
    QTest::addColumn<QString>("expected");
}

} // namespace

/// Reading, writing, insertion and removal of elements.
class tst_ArrayElements : public QObject
{
    Q_OBJECT

private slots:
    void access_data() { arrayClassRows(); }
    void access();
    void indicesOutside_data() { arrayClassRows(); }
    void indicesOutside();
    void setAtGrow_data() { arrayClassRows(); }
    void setAtGrow();
    void add_data() { arrayClassRows(); }
    void add();
    void insert_data();
    void insert();
    void insertFarBehindTheEnd_data() { arrayClassRows(); }
    void insertFarBehindTheEnd();
    void insertEmpty_data() { arrayClassRows(); }
    void insertEmpty();
    void insertArray_data() { arrayClassRows(); }
    void insertArray();
    void insertItself_data();
    void insertItself();
    void remove_data();
    void remove();
    void append_data() { arrayClassRows(); }
    void append();
    void copy_data() { arrayClassRows(); }
    void copy();
    void anElementOfItsOwn_data() { arrayClassRows(); }
    void anElementOfItsOwn();
};

void tst_ArrayElements::access()
{
    withArray([](auto& array) {
        using Element = ElementOf<decltype(array)>;
        const auto& constant = array;
        fill(array, {1, 2, 3});
        QCOMPARE(numberOf(array.GetAt(2)), 3);
        QCOMPARE(numberOf(constant[0]), 1);
        QCOMPARE(array.GetUpperBound(), 2LL);
        QVERIFY(!array.IsEmpty());

        array.SetAt(0, elementOf<Element>(4));
        array[1] = elementOf<Element>(5);
        array.ElementAt(2) = elementOf<Element>(6);
        QCOMPARE(shown(array), QString("4 5 6"));
        QCOMPARE(&array[1], array.GetData() + 1);
        QCOMPARE(constant.GetData(), array.GetData());
        static_assert(
            std::is_same_v<decltype(constant[0]), Element> && std::is_same_v<decltype(array.GetAt(0)), Element>);
    });
}

void tst_ArrayElements::indicesOutside()
{
    withArray([](auto& array) {
        using Element = ElementOf<decltype(array)>;
        const auto& constant = array;
        QVERIFY(raises([&] { array.GetAt(0); }));
        fill(array, {1, 2, 3});
        array.SetSize(2);
        for (const long long index : {-1LL, 2LL, 3LL, LLONG_MAX, LLONG_MIN}) {
            QVERIFY(raises([&] { array.GetAt(index); }));
            QVERIFY(raises([&] { array.SetAt(index, elementOf<Element>(7)); }));
            QVERIFY(raises([&] { array.ElementAt(index); }));
            QVERIFY(raises([&] { array[index]; }));
            QVERIFY(raises([&] { constant[index]; }));
        }
        QCOMPARE(shown(array), QString("1 2"));
    });
}

void tst_ArrayElements::setAtGrow()
{
    withArray([](auto& array) {
        const auto setAt = [&](long long index) {
            return changed(array, [&] { array.SetAtGrow(index, elementOf<ElementOf<decltype(array)>>(9)); });
        };
        QCOMPARE(setAt(10), QString("0 0 0 0 0 0 0 0 0 0 9"));
        QCOMPARE(array.room(), QString("11 of 11, step 0"));
        fill(array, {1, 2, 3});
        QCOMPARE(setAt(1), QString("1 9 3"));
        QCOMPARE(setAt(3), QString("1 9 3 9"));
        QCOMPARE(setAt(6), QString("1 9 3 9 0 0 9"));
        QCOMPARE(array.room(), QString("7 of 7, step 0"));
        for (const long long index : {-1LL, LLONG_MIN, LLONG_MAX})
            QCOMPARE(setAt(index), QString("raises: 1 9 3 9 0 0 9"));
    });
}

void tst_ArrayElements::add()
{
    withArray([](auto& array) {
        for (int i = 0; i < 3; ++i)
            QCOMPARE(array.Add(elementOf<ElementOf<decltype(array)>>(i + 5)), static_cast<long long>(i));
        QCOMPARE(shown(array), QString("5 6 7"));
        array.RemoveAt(0, 2);
        QCOMPARE(array.Add(elementOf<ElementOf<decltype(array)>>(8)), 1LL);
        QCOMPARE(shown(array), QString("7 8"));
    });
}

void tst_ArrayElements::insert_data()
{
    rangeColumns();
    rangeRow("at the front", 0, 1, "9 1 2 3 4 5");
    rangeRow("in the middle", 2, 2, "1 2 9 9 3 4 5");
    rangeRow("more than stand behind", 3, 4, "1 2 3 9 9 9 9 4 5");
    rangeRow("as many as stand behind", 3, 2, "1 2 3 9 9 4 5");
    rangeRow("at the end", 5, 2, "1 2 3 4 5 9 9");
    rangeRow("behind the end", 7, 2, "1 2 3 4 5 0 0 9 9");
    rangeRow("a negative index", -1, 1, "raises: 1 2 3 4 5");
    rangeRow("the least index", LLONG_MIN, 1, "raises: 1 2 3 4 5");
    rangeRow("none", 2, 0, "raises: 1 2 3 4 5");
    rangeRow("none behind the end", 7, 0, "raises: 1 2 3 4 5");
    rangeRow("a negative count", 2, -1, "raises: 1 2 3 4 5");
    rangeRow("a count that wraps", 2, LLONG_MAX, "raises: 1 2 3 4 5");
    rangeRow("a count that wraps behind the end", 7, LLONG_MAX - 6, "raises: 1 2 3 4 5");
    rangeRow("the largest index", LLONG_MAX, 1, "raises: 1 2 3 4 5");
}

void tst_ArrayElements::insert()
{
    QFETCH(qlonglong, index);
    QFETCH(qlonglong, count);
    QFETCH(QString, expected);
    withArray([&](auto& array) {
        const auto nine = elementOf<ElementOf<decltype(array)>>(9);
        for (const long long room : {0, 100}) { // without and with room for them in the block
            fill(array, {1, 2, 3, 4, 5});
            array.SetSize(5 + room);
            array.SetSize(5);
            QCOMPARE(changed(array, [&] { array.InsertAt(index, nine, count); }), expected);
        }
        if (count == 1) {
            fill(array, {1, 2, 3, 4, 5});
            QCOMPARE(changed(array, [&] { array.InsertAt(index, nine); }), expected);
        }
    });
}

void tst_ArrayElements::insertFarBehindTheEnd()
{
    withArray([](auto& array) {
        fill(array, {1, 2, 3, 4, 5});
        array.InsertAt(20, elementOf<ElementOf<decltype(array)>>(9), 2);
        QCOMPARE(array.GetSize(), 22LL);
        QCOMPARE(shown(array), QString("1 2 3 4 5 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 9 9"));
    });
}

void tst_ArrayElements::insertEmpty()
{
    withArray([](auto& array) {
        for (const long long room : {0, 100}) {
            fill(array, {1, 2, 3, 4, 5});
            array.SetSize(5 + room);
            array.SetSize(5);
            QCOMPARE(changed(array, [&] { array.InsertEmpty(2, 2); }), QString("1 2 0 0 3 4 5"));
            QCOMPARE(changed(array, [&] { array.InsertEmpty(5, 4); }), QString("1 2 0 0 3 0 0 0 0 4 5"));
        }
    });
}

void tst_ArrayElements::insertArray()
{
    withArray([](auto& array) {
        std::decay_t<decltype(array)> source;
        const auto insertAt = [&](long long index) {
            fill(array, {1, 2, 3});
            return changed(array, [&] { array.InsertAt(index, &source); });
        };
        QCOMPARE(insertAt(0), QString("1 2 3"));
        QCOMPARE(insertAt(7), QString("1 2 3"));
        QCOMPARE(insertAt(-1), QString("raises: 1 2 3"));

        fill(source, {7, 8});
        QCOMPARE(insertAt(0), QString("7 8 1 2 3"));
        QCOMPARE(insertAt(2), QString("1 2 7 8 3"));
        QCOMPARE(insertAt(3), QString("1 2 3 7 8"));
        QCOMPARE(insertAt(5), QString("1 2 3 0 0 7 8"));
        QCOMPARE(insertAt(-1), QString("raises: 1 2 3"));
        QCOMPARE(insertAt(LLONG_MAX), QString("raises: 1 2 3"));
        QCOMPARE(shown(source), QString("7 8"));

        decltype(&source) none = nullptr;
        QCOMPARE(changed(array, [&] { array.InsertAt(0, none); }), QString("raises: 1 2 3"));
    });
}

void tst_ArrayElements::insertItself_data()
{
    rangeColumns();
    rangeRow("at the front: the first element stands where all are read", 0, 0, "1 1 1 1 2 3");
    rangeRow("in the middle: what was inserted is read again", 1, 0, "1 1 1 1 2 3");
    rangeRow("in the middle: two elements are read as they were", 2, 0, "1 2 1 2 1 3");
    rangeRow("at the end: a copy of the whole", 3, 0, "1 2 3 1 2 3");
    rangeRow("behind the end", 4, 0, "1 2 3 0 1 2 3");
}

void tst_ArrayElements::insertItself()
{
    QFETCH(qlonglong, index);
    QFETCH(QString, expected);
    withArray([&](auto& array) {
        fill(array, {1, 2, 3});
        QCOMPARE(changed(array, [&] { array.InsertAt(index, &array); }), expected);
    });
}

void tst_ArrayElements::remove_data()
{
    rangeColumns();
    rangeRow("at the front", 0, 1, "2 3 4 5");
    rangeRow("in the middle", 1, 3, "1 5");
    rangeRow("at the end", 3, 2, "1 2 3");
    rangeRow("all", 0, 5, "");
    rangeRow("none", 2, 0, "1 2 3 4 5");
    rangeRow("none at the end", 5, 0, "1 2 3 4 5");
    rangeRow("none behind the end", 6, 0, "raises: 1 2 3 4 5");
    rangeRow("one at the end", 5, 1, "raises: 1 2 3 4 5");
    rangeRow("one too many", 2, 4, "raises: 1 2 3 4 5");
    rangeRow("a negative index", -1, 1, "raises: 1 2 3 4 5");
    rangeRow("a negative count", 2, -1, "raises: 1 2 3 4 5");
    rangeRow("the largest count", 2, LLONG_MAX, "raises: 1 2 3 4 5");
    rangeRow("the largest index", LLONG_MAX, 1, "raises: 1 2 3 4 5");
    rangeRow("the largest of both", LLONG_MAX, LLONG_MAX, "raises: 1 2 3 4 5");
}

void tst_ArrayElements::remove()
{
    QFETCH(qlonglong, index);
    QFETCH(qlonglong, count);
    QFETCH(QString, expected);
    withArray([&](auto& array) {
        fill(array, {1, 2, 3, 4, 5});
        QCOMPARE(changed(array, [&] { array.RemoveAt(index, count); }), expected);
        QCOMPARE(array.capacity, 5LL);
        if (count == 1) {
            fill(array, {1, 2, 3, 4, 5});
            QCOMPARE(changed(array, [&] { array.RemoveAt(index); }), expected);
        }
    });
}

void tst_ArrayElements::append()
{
    withArray([](auto& array) {
        std::decay_t<decltype(array)> source;
        fill(source, {7, 8});
        QCOMPARE(array.Append(source), 0LL);
        QCOMPARE(array.room(), QString("2 of 2, step 0"));
        QCOMPARE(array.Append(source), 2LL);
        QCOMPARE(shown(array), QString("7 8 7 8"));
        QCOMPARE(array.room(), QString("4 of 6, step 0"));
        QCOMPARE(shown(source), QString("7 8"));
        QCOMPARE(changed(array, [&] { array.Append(array); }), QString("raises: 7 8 7 8"));

        source.RemoveAll();
        QCOMPARE(array.Append(source), 4LL);
        QCOMPARE(shown(array), QString("7 8 7 8"));
        array.RemoveAt(0, 4);
        QCOMPARE(array.Append(source), 0LL);
        QCOMPARE(array.room(), QString("0 of 0, step 0"));
    });
}

void tst_ArrayElements::copy()
{
    withArray([](auto& array) {
        std::decay_t<decltype(array)> source;
        fill(source, {7, 8});
        source.SetSize(2, 30);
        fill(array, {1, 2, 3});
        array.SetSize(3, 5);

        array.Copy(source);
        QCOMPARE(shown(array), QString("7 8"));
        QCOMPARE(array.room(), QString("2 of 3, step 5"));
        array.Copy(array);
        QCOMPARE(shown(array), QString("7 8"));
        source.SetAt(0, elementOf<ElementOf<decltype(array)>>(6));
        QCOMPARE(shown(array), QString("7 8"));

        source.RemoveAll();
        array.Copy(source);
        QCOMPARE(array.room(), QString("0 of 0, step 5"));
    });
}

void tst_ArrayElements::anElementOfItsOwn()
{
    withArray([](auto& array) {
        fill(array, {1, 2, 3});
        QCOMPARE(changed(array, [&] { array.Add(array.ElementAt(0)); }), QString("1 2 3 1"));
        array.FreeExtra();
        QCOMPARE(changed(array, [&] { array.SetAtGrow(5, array.ElementAt(2)); }), QString("1 2 3 1 0 3"));
        fill(array, {1, 2, 3});
        QCOMPARE(changed(array, [&] { array.InsertAt(0, array.ElementAt(2), 2); }), QString("3 3 1 2 3"));
        QCOMPARE(changed(array, [&] { array.InsertAt(1, array.ElementAt(4)); }), QString("3 3 3 1 2 3"));
        QCOMPARE(changed(array, [&] { array.SetAt(0, array.ElementAt(0)); }), QString("3 3 3 1 2 3"));
        QCOMPARE(changed(array, [&] { array.SetAt(3, array.ElementAt(4)); }), QString("3 3 3 2 2 3"));
    });
}

XE_APPLESS_TEST(tst_ArrayElements)
#include "tst_arrayelements.moc"
