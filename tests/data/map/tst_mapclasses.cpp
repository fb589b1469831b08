#include "openmap.h"
#include "testclass.h"

/// What tells the maps apart, and how they keep tables and associations.
class tst_MapClasses : public QObject
{
    Q_OBJECT

private slots:
    void runTimeClasses();
    void createObject();
    void fieldsInOrder_data() { mapClassRows(); }
    void fieldsInOrder();
    void associationsInOrder();
    void blockSizes_data();
    void blockSizes();
    void tableSizes_data();
    void tableSizes();
    void tableIsMadeWhenNeeded_data() { mapClassRows(); }
    void tableIsMadeWhenNeeded();
    void tableOfAnUsedMap_data() { mapClassRows(); }
    void tableOfAnUsedMap();
    void noBuckets();
    void noBlockSize();
    void associationsComeLowestFirst_data() { mapClassRows(); }
    void associationsComeLowestFirst();
    void removedAssociationIsTakenFirst_data() { mapClassRows(); }
    void removedAssociationIsTakenFirst();
    void objectsAreNotOwned();
    void typeLibraryCache();
};

void tst_MapClasses::runTimeClasses()
{
    QCOMPARE(CMapWordToPtr_X().GetRuntimeClass(), RUNTIME_CLASS_X(CMapWordToPtr_X));
    QCOMPARE(CMapPtrToWord_X().GetRuntimeClass(), RUNTIME_CLASS_X(CMapPtrToWord_X));
    QCOMPARE(CMapPtrToPtr_X().GetRuntimeClass(), RUNTIME_CLASS_X(CMapPtrToPtr_X));
    QCOMPARE(CMapWordToOb_X().GetRuntimeClass(), RUNTIME_CLASS_X(CMapWordToOb_X));
    QCOMPARE(CMapStringToPtr_X().GetRuntimeClass(), RUNTIME_CLASS_X(CMapStringToPtr_X));
    QCOMPARE(CMapStringToOb_X().GetRuntimeClass(), RUNTIME_CLASS_X(CMapStringToOb_X));
    QCOMPARE(CMapStringToString_X().GetRuntimeClass(), RUNTIME_CLASS_X(CMapStringToString_X));
    QVERIFY(CMapStringToOb_X().IsKindOf(RUNTIME_CLASS_X(CObject_X)));
    QVERIFY(!CMapStringToOb_X().IsKindOf(RUNTIME_CLASS_X(CMapStringToPtr_X)));
}

namespace {

template <class Map>
long long blockSizeOfCreated()
{
    const std::unique_ptr<CObject_X> object(RUNTIME_CLASS_X(Map)->CreateObject());
    auto* map = qobject_cast<Map*>(object.get());
    return map ? map->*(&OpenMap<Map>::blockSize) : 0;
}

} // namespace

void tst_MapClasses::createObject()
{
    QCOMPARE(blockSizeOfCreated<CMapWordToOb_X>(), 10LL);
    QCOMPARE(blockSizeOfCreated<CMapStringToOb_X>(), 10LL);
    QCOMPARE(blockSizeOfCreated<CMapStringToString_X>(), 10LL);
    QVERIFY(!RUNTIME_CLASS_X(CMapWordToPtr_X)->CreateObject());
    QVERIFY(!RUNTIME_CLASS_X(CMapPtrToWord_X)->CreateObject());
    QVERIFY(!RUNTIME_CLASS_X(CMapPtrToPtr_X)->CreateObject());
    QVERIFY(!RUNTIME_CLASS_X(CMapStringToPtr_X)->CreateObject());
}

namespace {

template <class From, class To>
int distance(const From& from, const To& to)
{
    return int(reinterpret_cast<const char*>(&to) - reinterpret_cast<const char*>(&from));
}

/// The names of an association's fields in the order of their addresses.
template <class Map>
QString fieldOrder()
{
    OpenMap<Map> map;
    set(map, 1, 2);
    auto* assoc = *std::find_if(map.buckets, map.buckets + 17, [](auto* chain) { return chain; });
    QMap<int, QString> names = {{distance(*assoc, assoc->next), "next"},
                                {distance(*assoc, assoc->key), "key"},
                                {distance(*assoc, assoc->value), "value"}};
    if constexpr (OpenMap<Map>::Assoc::storesHash)
        names.insert(distance(*assoc, assoc->hash), "hash");
    return QStringList(names.values()).join(' ');
}

} // namespace

void tst_MapClasses::fieldsInOrder()
{
    withMap([](auto& map) {
        QCOMPARE(distance(map.buckets, map.bucketCount), 8);
        QCOMPARE(distance(map.buckets, map.count), 16);
        QCOMPARE(distance(map.buckets, map.freeList), 24);
        QCOMPARE(distance(map.buckets, map.blocks), 32);
        QCOMPARE(distance(map.buckets, map.blockSize), 40);
    });
}

void tst_MapClasses::associationsInOrder()
{
    QCOMPARE(fieldOrder<CMapWordToPtr_X>(), QString("next value key"));
    QCOMPARE(fieldOrder<CMapPtrToWord_X>(), QString("next key value"));
    QCOMPARE(fieldOrder<CMapPtrToPtr_X>(), QString("next key value"));
    QCOMPARE(fieldOrder<CMapWordToOb_X>(), QString("next value key"));
    QCOMPARE(fieldOrder<CMapStringToPtr_X>(), QString("next hash key value"));
    QCOMPARE(fieldOrder<CMapStringToOb_X>(), QString("next hash key value"));
    QCOMPARE(fieldOrder<CMapStringToString_X>(), QString("key value next hash"));
}

void tst_MapClasses::blockSizes_data()
{
    QTest::addColumn<int>("mapClass");
    QTest::addColumn<qlonglong>("given");
    QTest::addColumn<qlonglong>("expected");
    for (int mapClass = 0; mapClass < int(std::size(mapClassNames)); ++mapClass) {
        const bool asGiven = mapClassNames[mapClass] == std::string("CMapStringToPtr_X");
        const auto rows = {std::make_pair(4LL, 4LL),
                           {1LL, 1LL},
                           {0LL, asGiven ? 0LL : 10LL},
                           {-1LL, asGiven ? -1LL : 10LL},
                           {LLONG_MIN, asGiven ? LLONG_MIN : 10LL}};
        for (const auto& row : rows)
            QTest::addRow("%s: %lld", mapClassNames[mapClass], row.first) << mapClass << row.first << row.second;
    }
}

void tst_MapClasses::blockSizes()
{
    withMap([](auto& map) {
        QFETCH(qlonglong, given);
        QFETCH(qlonglong, expected);
        const std::decay_t<decltype(map)> other(given);
        QCOMPARE(other.blockSize, expected);
        QCOMPARE(map.blockSize, 10LL);
    });
}

void tst_MapClasses::tableSizes_data()
{
    QTest::addColumn<int>("mapClass");
    QTest::addColumn<unsigned>("given");
    QTest::addColumn<unsigned>("expected");
    for (int mapClass = 0; mapClass < int(std::size(mapClassNames)); ++mapClass) {
        const bool asGiven = mapClassNames[mapClass] == std::string("CMapStringToPtr_X");
        QTest::addRow("%s: none", mapClassNames[mapClass]) << mapClass << 0U << (asGiven ? 0U : 17U);
        for (const unsigned size : {1U, 2U, 17U, 1000U, 65537U})
            QTest::addRow("%s: %u", mapClassNames[mapClass], size) << mapClass << size << size;
    }
}

void tst_MapClasses::tableSizes()
{
    withMap([](auto& map) {
        QFETCH(unsigned, given);
        QFETCH(unsigned, expected);
        map.InitHashTable(given, 0);
        QCOMPARE(map.GetHashTableSize(), expected);
        QVERIFY(!map.buckets);
        map.InitHashTable(given);
        QCOMPARE(map.GetHashTableSize(), expected);
        QCOMPARE(map.buckets != nullptr, expected > 0);
        QVERIFY(std::all_of(map.buckets, map.buckets + expected, [](auto* chain) { return !chain; }));
        map.InitHashTable(31, 1);
        for (int key = 0; key < 100; ++key)
            set(map, key, key);
        QCOMPARE(map.GetHashTableSize(), 31U); // whatever the number of keys
    });
}

void tst_MapClasses::tableIsMadeWhenNeeded()
{
    withMap([](auto& map) {
        map.InitHashTable(5, 0);
        QCOMPARE(valueAt(map, 1), -1);
        QVERIFY(!map.buckets);
        set(map, 1, 2);
        QVERIFY(map.buckets);
        QCOMPARE(map.GetHashTableSize(), 5U);
        QCOMPARE(map.checkSanity(), QString());
    });
}

// The old keys are lost, though they count until all are removed.
void tst_MapClasses::tableOfAnUsedMap()
{
    withMap([](auto& map) {
        set(map, 3, 30); // with a text outside the string
        set(map, 4, 40);
        map.InitHashTable(5);
        QCOMPARE(map.GetCount(), 2LL);
        QCOMPARE(valueAt(map, 3), -1);
        QVERIFY(!::removeKey(map, 4));
        auto key = keyOf<typename std::decay_t<decltype(map)>::Key>(11);
        auto value = keyOf<typename std::decay_t<decltype(map)>::Value>(12);
        POSITION position = map.GetStartPosition();
        map.GetNextAssoc(position, key, value);
        QVERIFY(!position);
        QCOMPARE(numberOf(key), 11);
        set(map, 3, 31);
        QCOMPARE(map.GetCount(), 3LL);
        QCOMPARE(shown(map), QString("3=31"));
        map.RemoveAll();
        QCOMPARE(map.GetCount(), 0LL);
        QCOMPARE(map.blockCount(), 0);
    });
}

void tst_MapClasses::noBuckets()
{
    OpenMap<CMapStringToPtr_X> map;
    map.InitHashTable(0);
    QCOMPARE(valueAt(map, 1), -1);
    QVERIFY(!map.RemoveKey(L"1"));
    QVERIFY(raises([&] { map[L"1"]; }));
    QVERIFY(raises([&] { map.SetAt(L"1", nullptr); }));
    QVERIFY(map.IsEmpty());
    map.InitHashTable(3);
    set(map, 1, 2);
    QCOMPARE(valueAt(map, 1), 2);
}

void tst_MapClasses::noBlockSize()
{
    for (const long long size : {0LL, -1LL, LLONG_MIN, LLONG_MAX}) {
        OpenMap<CMapStringToPtr_X> map(size);
        QVERIFY(raises([&] { map[L"1"]; }));
        QCOMPARE(map.GetCount(), 0LL);
        QVERIFY(!map.blocks);
        QCOMPARE(valueAt(map, 1), -1);
    }
}

void tst_MapClasses::associationsComeLowestFirst()
{
    withMap([](auto& map) {
        using Assoc = typename std::decay_t<decltype(map)>::Assoc;
        map.InitHashTable(1);
        for (int key = 0; key < 12; ++key) {
            set(map, key, key);
            const auto* block = static_cast<Assoc*>(map.blocks->data());
            QCOMPARE(map.buckets[0], const_cast<Assoc*>(block + key % 10));
        }
        QCOMPARE(map.blockCount(), 2);
    });
}

void tst_MapClasses::removedAssociationIsTakenFirst()
{
    withMap([](auto& map) {
        map.InitHashTable(1);
        set(map, 1, 1);
        auto* first = map.buckets[0];
        set(map, 2, 2);
        ::removeKey(map, 1);
        set(map, 3, 3);
        QCOMPARE(map.buckets[0], first);
    });
}

void tst_MapClasses::objectsAreNotOwned()
{
    const QPointer<CObject_X> object(new CObject_X);
    {
        CMapWordToOb_X numbers;
        CMapStringToOb_X texts;
        numbers[1] = object;
        numbers[2] = object;
        numbers.RemoveKey(1);
        numbers.RemoveAll();
        texts[L"a"] = object;
        texts[L"b"] = object;
        texts.RemoveKey(L"a");
        numbers[3] = object;
    }
    QVERIFY(object);
    delete object;
}

void tst_MapClasses::typeLibraryCache()
{
    CTypeLibCacheMap_X cache;
    cache[this] = &cache;
    QCOMPARE(cache.GetValueAt(this), static_cast<void*>(&cache));
    QVERIFY(cache.IsKindOf(RUNTIME_CLASS_X(CMapPtrToPtr_X)));
}

XE_APPLESS_TEST(tst_MapClasses)
#include "tst_mapclasses.moc"
