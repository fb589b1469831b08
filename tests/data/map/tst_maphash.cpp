#include "openmap.h"
#include "testclass.h"

/// The hashes of numbers, pointers and texts, number by number, and the buckets that follow from them.
class tst_MapHash : public QObject
{
    Q_OBJECT

private slots:
    void numbers_data();
    void numbers();
    void words();
    void texts_data();
    void texts();
    void longTextsAreSampled();
    void sameHashDifferentKey();
    void nullTextRaises();
    void hostKeys();
    void bucketIsHashModuloTableSize_data() { mapClassRows(); }
    void bucketIsHashModuloTableSize();
};

void tst_MapHash::numbers_data()
{
    QTest::addColumn<qlonglong>("number");
    QTest::addColumn<unsigned>("hash");

    QTest::newRow("zero") << 0LL << 0U;
    QTest::newRow("one") << 1LL << 16807U;
    QTest::newRow("two") << 2LL << 33614U;
    QTest::newRow("last with quotient 0") << 127772LL << 2147464004U;
    QTest::newRow("first with quotient 1: negative, made positive") << 127773LL << 2147480811U;
    QTest::newRow("bit 31, not a sign") << 0x80000000LL << 16807U;
    QTest::newRow("all low bits") << 0xFFFFFFFFLL << 16807U;
    QTest::newRow("bit 32") << 0x100000000LL << 33614U;
    QTest::newRow("an address on the stack: stays negative, low 32 bits") << 0x7FFF12345678LL << 1807707134U;
    QTest::newRow("an address in a mapping") << 0x7F0000000000LL << 1092859810U;
    QTest::newRow("minus one") << -1LL << 2147466840U;
    QTest::newRow("a negative number with quotient -1") << -127773LL << 2836U;
    QTest::newRow("largest") << LLONG_MAX << 95346235U;
    QTest::newRow("smallest") << LLONG_MIN << 2052120605U;
}

void tst_MapHash::numbers()
{
    QFETCH(qlonglong, number);
    QFETCH(unsigned, hash);

    void* pointer = reinterpret_cast<void*>(number);
    QCOMPARE(CMapPtrToPtr_X().HashKey(pointer), hash);
    QCOMPARE(CMapPtrToWord_X().HashKey(pointer), hash);
    QCOMPARE(HashKey_X(pointer), hash);
    QCOMPARE(HashKey_X(number), hash);
}

void tst_MapHash::words()
{
    QCOMPARE(CMapWordToPtr_X().HashKey(0), 0U);
    QCOMPARE(CMapWordToPtr_X().HashKey(1), 16807U);
    QCOMPARE(CMapWordToPtr_X().HashKey(0xFFFF), 1101446745U);
    QCOMPARE(CMapWordToOb_X().HashKey(0xFFFF), 1101446745U);
}

void tst_MapHash::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<unsigned>("hash");

    QTest::newRow("empty") << "" << 0x811C9DC5U;
    QTest::newRow("one character") << "a" << 0x050C5D7EU;
    QTest::newRow("a word") << "foobar" << 0x31F0B262U;
    QTest::newRow("nine characters, all of them") << "123456789" << 0x24148816U;
    QTest::newRow("ten characters, each second one") << "0123456789" << 0xC17E957FU;
    QTest::newRow("those in between do not matter") << "0-2-4-6-8-" << 0xC17E957FU;
    QTest::newRow("twenty characters, each third one") << "01234567890123456789" << 0xC4D6F8A6U;
    QTest::newRow("a character above 127") << QString(QChar(0xE9)) << 0x050C5DF6U;
    QTest::newRow("a character of more than 16 bits") << QString::fromUcs4(U"\U0001F600") << 0x050DAB1FU;
    QTest::newRow("a hundred characters, each eleventh one") << QString(100, 'x') << 0x81B8A53DU;
}

void tst_MapHash::texts()
{
    QFETCH(QString, text);
    QFETCH(unsigned, hash);

    const CString_X key(text);
    QCOMPARE(CMapStringToPtr_X().HashKey(key), hash);
    QCOMPARE(CMapStringToOb_X().HashKey(key), hash);
    QCOMPARE(CMapStringToString_X().HashKey(key), hash);
    QCOMPARE(HashKey_X(key.GetString()), hash);
    QCOMPARE(HashKey_X<const CString_X&>(key), hash);
    QCOMPARE(CMapStringToPtr_X().HashKey(CString_X(key + std::wstring(L"\0tail", 5))), hash);
}

void tst_MapHash::longTextsAreSampled()
{
    const CMapStringToPtr_X map;
    for (int length = 0; length < 250; ++length) {
        const int step = length / 10 + 1;
        const CString_X text(L'x', length);
        for (int i = 0; i < length; ++i) {
            CString_X other = text;
            other.SetAt(i, L'y');
            QCOMPARE(map.HashKey(other) != map.HashKey(text), i % step == 0);
        }
    }
}

void tst_MapHash::sameHashDifferentKey()
{
    CMapStringToString_X map;
    map[L"0123456789"] = L"digits";
    CString_X value = L"unchanged";
    QCOMPARE(map.HashKey(L"0-2-4-6-8-"), map.HashKey(L"0123456789"));
    QVERIFY(!map.Lookup(L"0-2-4-6-8-", value));
    QCOMPARE(value, CString_X(L"unchanged"));
    map[L"0-2-4-6-8-"] = L"dashes";
    QCOMPARE(map.GetCount(), 2LL);
    QVERIFY(map.Lookup(L"0123456789", value));
    QCOMPARE(value, CString_X(L"digits"));
    QVERIFY(map.RemoveKey(L"0-2-4-6-8-"));
    QVERIFY(map.Lookup(L"0123456789", value));
}

namespace {

template <class Map>
void checkNullText()
{
    Map map;
    typename Map::Value value{};
    const wchar_t* text = L"x";
    const auto allRaise = [&] {
        return raises([&] { map.HashKey(nullptr); }) && raises([&] { map.Lookup(nullptr, value); })
               && raises([&] { map.LookupKey(nullptr, text); }) && raises([&] { map[nullptr]; })
               && raises([&] { map.SetAt(nullptr, value); });
    };
    QVERIFY(allRaise());
    QVERIFY(!map.RemoveKey(nullptr)); // not looked at without a table
    map.RemoveAll();
    map[L"a"] = value;
    QVERIFY(allRaise());
    QVERIFY(raises([&] { map.RemoveKey(nullptr); }));
    QCOMPARE(map.GetCount(), 1LL);
}

} // namespace

void tst_MapHash::nullTextRaises()
{
    checkNullText<CMapStringToPtr_X>();
    checkNullText<CMapStringToOb_X>();
    checkNullText<CMapStringToString_X>();
}

namespace {

struct Cell
{
    int row;
    int column;
    bool operator==(const Cell& other) const { return row == other.row && column == other.column; }
};

enum class Tool { Drill = 3 };

} // namespace

template <>
unsigned HashKey_X<const Cell&>(const Cell& cell)
{
    return unsigned(cell.row) << 16 | unsigned(cell.column);
}

void tst_MapHash::hostKeys()
{
    QCOMPARE(HashKey_X(3), 50421U);
    QCOMPARE(HashKey_X(3U), 50421U);
    QCOMPARE(HashKey_X(-1), 2147466840U);
    QCOMPARE(HashKey_X(0xFFFFFFFFU), 16807U);
    QCOMPARE(HashKey_X(Tool::Drill), 50421U);

    CMap_X<Cell, const Cell&, int, int> map;
    map[Cell{1, 2}] = 12;
    QCOMPARE(map.HashKey(Cell{1, 2}), 0x10002U);
    QVERIFY(map.PLookup(Cell{1, 2}));
    QVERIFY(!map.PLookup(Cell{2, 1}));
    QCOMPARE(map.PGetFirstAssoc()->key.column, 2);

    CMap_X<CString_X, const wchar_t*, int, int> texts;
    texts.SetAt(L"a", 7);
    QCOMPARE(texts.HashKey(L"a"), 0x050C5D7EU);
    QVERIFY(texts.RemoveKey(CString_X(L"a")));
}

void tst_MapHash::bucketIsHashModuloTableSize()
{
    withMap([](auto& map) {
        map.InitHashTable(7);
        for (int key = 1; key < 30; ++key) {
            set(map, key, 1);
            const unsigned bucket = map.HashKey(keyOf<typename std::decay_t<decltype(map)>::Key>(key)) % 7;
            QCOMPARE(numberOf(map.buckets[bucket]->key), key); // the newest is the first of its chain
        }
    });
}

XE_APPLESS_TEST(tst_MapHash)
#include "tst_maphash.moc"
