#include "openmap.h"
#include "testclass.h"

#include "xeatltypes.h"

/// What single maps have besides: values by key, stored keys, pairs.
class tst_MapExtras : public QObject
{
    Q_OBJECT

private slots:
    void apiExamples();
    void getValueAt();
    void storedKey();
    void laterKeyInTheBucket();
    void laterKeyOfEqualText();
    void pairs();
    void walkByPairs();
    void hostMapPairs();
    void textsAreCopied();
    void keysEndAtTheFirstZero();
    void ownTextsAsArguments();
};

void tst_MapExtras::apiExamples()
{
    int drill = 0;
    void* used = nullptr;
    const auto use = [&](void* tool) { used = tool; };

    CMapStringToPtr_X tools;
    tools.InitHashTable(211); // before the first insertion: a table never grows
    tools.SetAt(L"drill", &drill);
    void* tool = nullptr;
    if (tools.Lookup(L"drill", tool))
        use(tool);
    QCOMPARE(used, static_cast<void*>(&drill));

    CMap_X<unsigned, unsigned, CPoint, CPoint&> corners;
    corners[17] = CPoint(3, 4);
    QCOMPARE(corners.PLookup(17)->value, CPoint(3, 4));
}

void tst_MapExtras::getValueAt()
{
    CMapPtrToPtr_X map;
    int value = 0;
    QVERIFY(!map.GetValueAt(this));
    map[this] = &value;
    QCOMPARE(map.GetValueAt(this), static_cast<void*>(&value));
    QVERIFY(!map.GetValueAt(&value));
    map[nullptr] = &map;
    QCOMPARE(map.GetValueAt(nullptr), static_cast<void*>(&map));
    QCOMPARE(map.GetCount(), 2LL);
}

namespace {

template <class Map>
void checkStoredKey()
{
    Map map;
    const std::wstring sought = L"drill";
    const wchar_t* found = L"unchanged";
    QVERIFY(!map.LookupKey(sought.c_str(), found));
    map[L"drill"];
    map[L"saw"];
    QVERIFY(!map.LookupKey(L"hammer", found));
    QCOMPARE(CString_X(found), CString_X(L"unchanged"));
    QVERIFY(map.LookupKey(sought.c_str(), found));
    QCOMPARE(CString_X(found), CString_X(L"drill"));
    QVERIFY(found != sought.c_str());
    const wchar_t* again = nullptr;
    QVERIFY(map.LookupKey(found, again));
    QCOMPARE(again, found);
    QCOMPARE(map.GetCount(), 2LL);
}

} // namespace

void tst_MapExtras::storedKey()
{
    checkStoredKey<CMapStringToOb_X>();
    checkStoredKey<CMapStringToString_X>();
}

void tst_MapExtras::laterKeyInTheBucket()
{
    CMapStringToPtr_X map;
    const wchar_t* found = L"a";
    QVERIFY(!map.LookupKey(L"a", found));
    map.InitHashTable(1);
    map[L"a"];
    QVERIFY(!map.LookupKey(L"a", found)); // though it is there
    map[L"b"];
    map[L"c"]; // the chain is c, b, a
    const struct
    {
        const wchar_t* key;
        const wchar_t* text;
        bool follows;
    } rows[] = {{L"c", L"b", true},  {L"c", L"a", true},    {L"b", L"a", true},  {L"c", L"c", false},
                {L"b", L"c", false}, {L"a", L"a", false},   {L"a", L"b", false}, {L"c", L"x", false},
                {L"x", L"a", false}, {L"c", nullptr, false}};
    for (const auto& row : rows) {
        found = row.text;
        QCOMPARE(map.LookupKey(row.key, found), row.follows);
        QCOMPARE(found, row.text);
    }
}

void tst_MapExtras::laterKeyOfEqualText()
{
    CMapStringToPtr_X map;
    map.InitHashTable(1);
    map[L""];
    map[L"a"];
    const wchar_t* none = nullptr; // stands for the empty text
    QVERIFY(map.LookupKey(L"a", none));
    QVERIFY(!none);
}

void tst_MapExtras::pairs()
{
    CMapStringToString_X map;
    const auto& constant = map;
    QVERIFY(!map.PLookup(L"bolt"));
    QVERIFY(raises([&] { map.PLookup(nullptr); }));
    map[L"bolt"] = L"M6";
    CMapStringToString_X::CPair_X* pair = map.PLookup(L"bolt");
    QVERIFY(pair);
    QCOMPARE(pair->key, CString_X(L"bolt"));
    pair->value = L"M8";
    QCOMPARE(map[L"bolt"], CString_X(L"M8"));
    QCOMPARE(constant.PLookup(L"bolt"), static_cast<const CMapStringToString_X::CPair_X*>(pair));
    QVERIFY(!constant.PLookup(L"nut"));
}

void tst_MapExtras::walkByPairs()
{
    CMapStringToString_X map;
    const auto& constant = map;
    QVERIFY(!map.PGetFirstAssoc());
    QVERIFY(!constant.PGetFirstAssoc());
    QVERIFY(!map.PGetNextAssoc(nullptr));
    map.InitHashTable(5);
    QVERIFY(!map.PGetFirstAssoc());
    for (int key = 0; key < 40; ++key)
        set(map, key, key);

    QStringList byPairs;
    for (auto* pair = map.PGetFirstAssoc(); pair; pair = map.PGetNextAssoc(pair))
        byPairs += QStringLiteral("%1=%2").arg(numberOf(pair->key)).arg(numberOf(pair->value));
    QCOMPARE(byPairs.join(' '), shown(map));
    int count = 0;
    for (auto* pair = constant.PGetFirstAssoc(); pair; pair = constant.PGetNextAssoc(pair))
        ++count;
    QCOMPARE(count, 40);
    map.RemoveAll();
    QVERIFY(!map.PGetFirstAssoc());
}

void tst_MapExtras::hostMapPairs()
{
    CMap_X<unsigned, unsigned, QPoint, QPoint&> map;
    QPoint point(3, 4);
    map.SetAt(17, point);
    QCOMPARE(map[17], QPoint(3, 4));
    QCOMPARE(map[18], QPoint());
    QVERIFY(map.PLookup(17));
    map.PLookup(17)->value = QPoint(5, 6);
    QPoint found;
    QVERIFY(map.Lookup(17, found));
    QCOMPARE(found, QPoint(5, 6));
    unsigned sum = 0;
    for (auto* pair = map.PGetFirstAssoc(); pair; pair = map.PGetNextAssoc(pair))
        sum += pair->key;
    QCOMPARE(sum, 35U);
}

void tst_MapExtras::textsAreCopied()
{
    CMapStringToString_X map;
    std::wstring key = L"a key that is too long for a string's own buffer";
    CString_X value = L"a value that is too long for a string's own buffer";
    map.SetAt(key.c_str(), value);
    map.SetAt(L"none", nullptr);
    key[0] = L'x';
    value.SetAt(0, L'x');
    QCOMPARE(map[L"a key that is too long for a string's own buffer"],
             CString_X(L"a value that is too long for a string's own buffer"));
    QVERIFY(map[L"none"].IsEmpty());
    value.Empty();
    QVERIFY(map.Lookup(L"a key that is too long for a string's own buffer", value));
    QCOMPARE(value.GetLength(), 50);
}

void tst_MapExtras::keysEndAtTheFirstZero()
{
    CMapStringToString_X map;
    map[CString_X(L"a\0b", 3)] = CString_X(L"c\0d", 3);
    QCOMPARE(map.PGetFirstAssoc()->key.GetLength(), 1);
    QCOMPARE(map[L"a"].GetLength(), 3);
    map.SetAt(L"e", CString_X(L"c\0d", 3));
    QCOMPARE(map[L"e"].GetLength(), 3);
}

void tst_MapExtras::ownTextsAsArguments()
{
    CMapStringToString_X map;
    map[L"a text outside the string"] = L"another text outside the string";
    map[L"b"];
    map.SetAt(map[L"a text outside the string"], map.PLookup(L"a text outside the string")->key);
    QCOMPARE(map[L"another text outside the string"], CString_X(L"a text outside the string"));
    QVERIFY(map.RemoveKey(map.PLookup(L"a text outside the string")->key));
    QCOMPARE(map.GetCount(), 2LL);
}

XE_APPLESS_TEST(tst_MapExtras)
#include "tst_mapextras.moc"
