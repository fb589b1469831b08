#include "openmap.h"
#include "testclass.h"

/// The operations of all maps.
class tst_Map : public QObject
{
    Q_OBJECT

private slots:
    void checkSanityCanFail();
    void newMap_data() { mapClassRows(); }
    void newMap();
    void setAndLookup_data() { mapClassRows(); }
    void setAndLookup();
    void indexAddsAnEmptyValue_data() { mapClassRows(); }
    void indexAddsAnEmptyValue();
    void removeKey_data() { mapClassRows(); }
    void removeKey();
    void removeAll_data() { mapClassRows(); }
    void removeAll();
    void walkOfOne_data() { mapClassRows(); }
    void walkOfOne();
    void walkOrder_data();
    void walkOrder();
    void walkFromNowhere_data() { mapClassRows(); }
    void walkFromNowhere();
    void walkWithoutTable_data() { mapClassRows(); }
    void walkWithoutTable();
    void removeWhileWalking_data() { mapClassRows(); }
    void removeWhileWalking();
    void wordsTakeAllNumbers();
};

void tst_Map::checkSanityCanFail()
{
    OpenMap<CMapStringToPtr_X> map;
    set(map, 1, 10);
    set(map, 2, 20);
    QCOMPARE(map.checkSanity(), QString());
    ++map.count;
    QCOMPARE(map.checkSanity(), QString("2 associations, but a count of 3"));
    --map.count;
    map.bucketCount = 16;
    QVERIFY(map.checkSanity().startsWith("a key in the wrong bucket"));
    map.bucketCount = 17;
    auto*& first = *std::find_if(map.buckets, map.buckets + 17, [](auto* assoc) { return assoc; });
    ++first->hash;
    QVERIFY(map.checkSanity().startsWith("a key in the wrong bucket"));
    --first->hash;
    map.blockSize = 11;
    QCOMPARE(map.checkSanity(), QString("2 associations and 8 free in 1 blocks"));
    map.blockSize = 10;
    QCOMPARE(map.checkSanity(), QString());
}

void tst_Map::newMap()
{
    withMap([](auto& map) {
        QCOMPARE(map.GetCount(), 0LL);
        QCOMPARE(map.GetSize(), 0LL);
        QVERIFY(map.IsEmpty());
        QCOMPARE(map.GetHashTableSize(), 17U);
        QVERIFY(!map.GetStartPosition());
        QCOMPARE(valueAt(map, 1), -1);
        QVERIFY(!::removeKey(map, 1));
        map.RemoveAll();
        QVERIFY(!map.buckets); // looking makes no table
        QVERIFY(!map.blocks);
    });
}

void tst_Map::setAndLookup()
{
    withMap([](auto& map) {
        for (int key = 0; key < 100; ++key)
            set(map, key, key + 1000);
        set(map, 50, 7);
        QCOMPARE(map.GetCount(), 100LL);
        QCOMPARE(map.GetSize(), 100LL);
        QVERIFY(!map.IsEmpty());
        for (int key = 0; key < 100; ++key)
            QCOMPARE(valueAt(map, key), key == 50 ? 7 : key + 1000);
        QCOMPARE(valueAt(map, 100), -1);
        QCOMPARE(map.blockCount(), 10);
    });
}

void tst_Map::indexAddsAnEmptyValue()
{
    withMap([](auto& map) {
        using Map = std::decay_t<decltype(map)>;
        const auto key = keyOf<typename Map::Key>(3);
        QVERIFY(map[key] == typename Map::Value());
        QCOMPARE(map.GetCount(), 1LL);
        QVERIFY(map.buckets);
        map[key] = keyOf<typename Map::Value>(4);
        QCOMPARE(shown(map), QString("3=4"));
        set(map, 5, 6);
        ::removeKey(map, 5);
        QVERIFY(map[keyOf<typename Map::Key>(5)] == typename Map::Value()); // the old node has the new value
    });
}

void tst_Map::removeKey()
{
    withMap([](auto& map) {
        map.InitHashTable(1); // all in one chain: head, middle and end of it
        for (int key = 1; key <= 5; ++key)
            set(map, key, key);
        QVERIFY(!::removeKey(map, 6));
        QVERIFY(::removeKey(map, 5));
        QVERIFY(::removeKey(map, 3));
        QVERIFY(::removeKey(map, 1));
        QVERIFY(!::removeKey(map, 3));
        QCOMPARE(shown(map), QString("4=4 2=2"));
        QCOMPARE(map.GetCount(), 2LL);
        QVERIFY(map.buckets);
        QVERIFY(::removeKey(map, 4));
        QVERIFY(::removeKey(map, 2));
        QVERIFY(map.IsEmpty());
        QVERIFY(!map.buckets && !map.blocks && !map.freeList);
        QCOMPARE(map.GetHashTableSize(), 1U);
        set(map, 7, 8);
        QCOMPARE(shown(map), QString("7=8"));
    });
}

void tst_Map::removeAll()
{
    withMap([](auto& map) {
        map.InitHashTable(5);
        for (int key = 1; key <= 25; ++key)
            set(map, key, key);
        QCOMPARE(map.blockCount(), 3);
        map.RemoveAll();
        QVERIFY(map.IsEmpty());
        QVERIFY(!map.buckets && !map.blocks && !map.freeList);
        QCOMPARE(map.GetHashTableSize(), 5U);
        QVERIFY(!map.GetStartPosition());
        QCOMPARE(valueAt(map, 1), -1);
        set(map, 1, 2);
        QCOMPARE(shown(map), QString("1=2"));
    });
}

void tst_Map::walkOfOne()
{
    withMap([](auto& map) {
        set(map, 3, 4);
        POSITION position = map.GetStartPosition();
        QCOMPARE(quintptr(position), ~quintptr(0));
        auto key = keyOf<typename std::decay_t<decltype(map)>::Key>(0);
        auto value = keyOf<typename std::decay_t<decltype(map)>::Value>(0);
        map.GetNextAssoc(position, key, value);
        QCOMPARE(numberOf(key), 3);
        QCOMPARE(numberOf(value), 4);
        QVERIFY(!position);
    });
}

// In a table of 10 the keys 1 to 9 are in the buckets 7, 4, 1, 8, 5, 2, 9, 6, 3 as 16807 ends in 7;
// 11 and 21 are with 1.
void tst_Map::walkOrder_data()
{
    QTest::addColumn<int>("mapClass");
    QTest::addColumn<unsigned>("tableSize");
    QTest::addColumn<QList<int>>("added");
    QTest::addColumn<QString>("walked");

    const auto numbers = {0, 1, 2, 3, 7};
    for (const int mapClass : numbers) {
        const auto row = [=](const char* name) -> QTestData& {
            return QTest::addRow("%s: %s", mapClassNames[mapClass], name) << mapClass;
        };
        row("bucket by bucket") << 10U << QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 9}
                                << "3=3 6=6 9=9 2=2 5=5 8=8 1=1 4=4 7=7";
        row("in whatever order they came") << 10U << QList<int>{9, 4, 2, 1, 3} << "3=3 9=9 2=2 1=1 4=4";
        row("the newest of a bucket first") << 10U << QList<int>{1, 11, 2, 21} << "2=2 21=21 11=11 1=1";
        row("setting again moves nothing") << 10U << QList<int>{1, 11, 21, 1} << "21=21 11=11 1=1";
        row("all in one bucket") << 1U << QList<int>{3, 1, 2} << "2=2 1=1 3=3";
        row("the last bucket alone") << 10U << QList<int>{7} << "7=7";
    }
    // FNV-1 of one digit is 0x050C5D00 | (0x1F ^ digit): 0x2E for 1, 0x2D for 2, 0x2B for 4, 0x2A for 5
    for (const int mapClass : {4, 5, 6})
        QTest::addRow("%s: one-digit texts", mapClassNames[mapClass])
            << mapClass << 256U << QList<int>{1, 2, 4, 5} << "5=5 4=4 2=2 1=1";
}

void tst_Map::walkOrder()
{
    withMap([](auto& map) {
        QFETCH(unsigned, tableSize);
        QFETCH(QList<int>, added);
        QFETCH(QString, walked);
        map.InitHashTable(tableSize);
        for (const int number : added)
            set(map, number, number);
        QCOMPARE(shown(map), walked);
    });
}

void tst_Map::walkFromNowhere()
{
    withMap([](auto& map) {
        for (int count = 0; count < 2; ++count) {
            auto key = keyOf<typename std::decay_t<decltype(map)>::Key>(11);
            auto value = keyOf<typename std::decay_t<decltype(map)>::Value>(12);
            POSITION position = nullptr;
            map.GetNextAssoc(position, key, value);
            QVERIFY(!position);
            QCOMPARE(numberOf(key), 11);
            QCOMPARE(numberOf(value), 12);
            set(map, 1, 2);
        }
    });
}

// A walk that starts in a map without a table ends at once; only CMapStringToPtr_X leaves the position as it is.
void tst_Map::walkWithoutTable()
{
    withMap([](auto& map) {
        auto key = keyOf<typename std::decay_t<decltype(map)>::Key>(11);
        auto value = keyOf<typename std::decay_t<decltype(map)>::Value>(12);
        const auto start = reinterpret_cast<POSITION>(~quintptr(0));
        POSITION position = start;
        map.GetNextAssoc(position, key, value);
        QCOMPARE(position, qobject_cast<CMapStringToPtr_X*>(&map) ? start : nullptr);
        QCOMPARE(numberOf(key), 11);
        QCOMPARE(numberOf(value), 12);

        map.InitHashTable(17); // a table with nothing in it
        position = start;
        map.GetNextAssoc(position, key, value);
        QVERIFY(!position);
        QCOMPARE(numberOf(key), 11);
    });
}

void tst_Map::removeWhileWalking()
{
    withMap([](auto& map) {
        for (int key = 0; key < 100; ++key)
            set(map, key, key);
        typename std::decay_t<decltype(map)>::Key key{};
        typename std::decay_t<decltype(map)>::Value value{};
        int walked = 0;
        for (POSITION position = map.GetStartPosition(); position; ++walked) {
            map.GetNextAssoc(position, key, value);
            if (numberOf(value) % 2)
                QVERIFY(map.RemoveKey(key));
        }
        QCOMPARE(walked, 100);
        QCOMPARE(map.GetCount(), 50LL);
    });
}

void tst_Map::wordsTakeAllNumbers()
{
    OpenMap<CMapWordToPtr_X> map(100);
    map.InitHashTable(1009);
    for (int key = 0; key <= 0xFFFF; ++key)
        set(map, key, key);
    QCOMPARE(map.GetCount(), 65536LL);
    for (int key = 0; key <= 0xFFFF; ++key)
        QCOMPARE(valueAt(map, key), key);
    QCOMPARE(map.checkSanity(), QString());
}

XE_APPLESS_TEST(tst_Map)
#include "tst_map.moc"
