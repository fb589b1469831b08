#include "archived.h"
#include "openmap.h"
#include "testclass.h"

/// Maps on an archive, byte by byte.
class tst_MapSerialize : public QObject
{
    Q_OBJECT

private slots:
    void emptyMaps();
    void words();
    void texts();
    void textPairs();
    void notStorable();
    void loadingAdds();
    void roundTrip();
    void streamThatEndsEarly();
};

void tst_MapSerialize::emptyMaps()
{
    CMapWordToOb_X words;
    CMapStringToOb_X texts;
    CMapStringToString_X pairs;
    for (CObject_X* map : std::initializer_list<CObject_X*>{&words, &texts, &pairs}) {
        QCOMPARE(stored(*map), hex("0000"));
        QCOMPARE(load(*map, hex("0000 07")), hex("07"));
    }
    QVERIFY(words.IsEmpty() && texts.IsEmpty() && pairs.IsEmpty());
}

// In a table of 10 the key 3 is in bucket 1, 2 in 4, and 1 and 11 in 7, the newer one first. Objects leave no trace.
void tst_MapSerialize::words()
{
    CMapWordToOb_X map;
    map.InitHashTable(10);
    for (const int key : {1, 11, 2, 3})
        map[static_cast<unsigned short>(key)] = &map;
    const QByteArray bytes = hex("0400 0300 0200 0b00 0100");
    QCOMPARE(stored(map), bytes);

    CMapWordToOb_X loaded;
    QCOMPARE(load(loaded, bytes + "rest"), QByteArray("rest"));
    QCOMPARE(loaded.GetCount(), 4LL);
    CObject_X* value = &map;
    QVERIFY(loaded.Lookup(11, value));
    QVERIFY(!value);
}

// In a table of 256 the key b is in bucket 0x7D, a in 0x7E.
void tst_MapSerialize::texts()
{
    CMapStringToOb_X map;
    map.InitHashTable(256);
    map[L"a"] = &map;
    map[L"b"] = &map;
    const QByteArray bytes = hex("0200 fffeff01 62000000 fffeff01 61000000");
    QCOMPARE(stored(map), bytes);

    CMapStringToOb_X loaded;
    QCOMPARE(load(loaded, bytes + "rest"), QByteArray("rest"));
    QCOMPARE(loaded.GetCount(), 2LL);
    CObject_X* value = &map;
    QVERIFY(loaded.Lookup(L"b", value));
    QVERIFY(!value);
}

void tst_MapSerialize::textPairs()
{
    CMapStringToString_X map;
    map.InitHashTable(256);
    map[L"a"] = L"";
    map[L"b"] = CString_X(L"x\0", 2);
    const QByteArray bytes = hex("0200 fffeff01 62000000 fffeff02 78000000 00000000 fffeff01 61000000 fffeff00");
    QCOMPARE(stored(map), bytes);

    CMapStringToString_X loaded;
    QCOMPARE(load(loaded, bytes + "rest"), QByteArray("rest"));
    QCOMPARE(loaded.GetCount(), 2LL);
    QCOMPARE(loaded[L"b"], CString_X(L"x\0", 2));
    QVERIFY(loaded.PLookup(L"a"));
}

void tst_MapSerialize::notStorable()
{
    CMapWordToPtr_X wordToPtr;
    CMapPtrToWord_X ptrToWord;
    CMapPtrToPtr_X ptrToPtr;
    CMapStringToPtr_X stringToPtr;
    wordToPtr[1] = ptrToPtr[this] = stringToPtr[L"a"] = this;
    ptrToWord[this] = 1;
    for (CObject_X* map : std::initializer_list<CObject_X*>{&wordToPtr, &ptrToWord, &ptrToPtr, &stringToPtr}) {
        QCOMPARE(stored(*map), QByteArray());
        QCOMPARE(load(*map, hex("0100")), hex("0100"));
    }
}

void tst_MapSerialize::loadingAdds()
{
    CMapStringToString_X map;
    set(map, 1, 10);
    set(map, 2, 20);
    load(map, hex("0200 fffeff01 32000000 fffeff01 37000000 fffeff01 34000000 fffeff01 38000000"));
    QCOMPARE(map.GetCount(), 3LL);
    QCOMPARE(valueAt(map, 1), 10);
    QCOMPARE(valueAt(map, 2), 7);
    QCOMPARE(valueAt(map, 4), 8);
}

void tst_MapSerialize::roundTrip()
{
    CMapStringToString_X map;
    CMapWordToOb_X words;
    for (int key = 0; key < 1000; ++key) {
        set(map, key, key + 1);
        set(words, key, 1);
    }
    CMapStringToString_X loaded;
    loaded.InitHashTable(97);
    load(loaded, stored(map));
    QCOMPARE(loaded.GetCount(), 1000LL);
    for (int key = 0; key < 1000; ++key)
        QCOMPARE(valueAt(loaded, key), key + 1);
    CMapWordToOb_X loadedWords;
    load(loadedWords, stored(words));
    QCOMPARE(loadedWords.GetCount(), 1000LL);
}

void tst_MapSerialize::streamThatEndsEarly()
{
    CMapStringToString_X pairs;
    load(pairs, hex("0500 fffeff01 31000000 fffeff01 37000000"));
    QCOMPARE(shown(pairs), QString("1=7"));
    pairs.RemoveAll();
    load(pairs, hex("ffff ffffffff fffeff01 31000000")); // a key whose value is missing
    QCOMPARE(shown(pairs), QString("1=0"));
    CMapWordToOb_X words;
    load(words, hex("ffff ffffffff 0700 0800"));
    QCOMPARE(words.GetCount(), 2LL);
    CMapStringToOb_X texts;
    load(texts, hex("ffff"));
    QVERIFY(texts.IsEmpty());
}

XE_APPLESS_TEST(tst_MapSerialize)
#include "tst_mapserialize.moc"
