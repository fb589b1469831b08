#include "openlist.h"
#include "testclass.h"

#include "archived.h"

/// Lists on an archive, byte by byte.
class tst_ListSerialize : public QObject
{
    Q_OBJECT

private slots:
    void texts();
    void emptyLists();
    void objects();
    void notStorable();
    void loadingAdds();
    void longCount();
    void streamThatEndsEarly();
    void countWithoutData();
};

void tst_ListSerialize::texts()
{
    OpenList<CStringList_X> list;
    list.AddTail(L"ab");
    list.AddTail(L"");
    list.AddTail(CString_X(L"\0\U0001F600", 2));
    const QByteArray bytes = hex("0300 fffeff02 61000000 62000000 fffeff00 fffeff02 00000000 00f60100");
    QCOMPARE(stored(list), bytes);

    CStringList_X loaded;
    QCOMPARE(load(loaded, bytes + "rest"), QByteArray("rest"));
    QCOMPARE(loaded.GetCount(), 3LL);
    QCOMPARE(loaded.GetHead(), CString_X(L"ab"));
    QCOMPARE(loaded.GetTail(), CString_X(L"\0\U0001F600", 2));
}

void tst_ListSerialize::emptyLists()
{
    CObList_X objects;
    CStringList_X texts;
    QCOMPARE(stored(objects), hex("0000"));
    QCOMPARE(stored(texts), hex("0000"));
    QCOMPARE(load(objects, hex("0000 07")), hex("07"));
    QCOMPARE(load(texts, hex("0000 07")), hex("07"));
    QVERIFY(objects.IsEmpty() && texts.IsEmpty());
}

void tst_ListSerialize::objects()
{
    CObject_X object;
    CObList_X list;
    list.AddTail(&object);
    list.AddTail(&object);
    QCOMPARE(stored(list), hex("0200"));

    CObList_X loaded;
    QCOMPARE(load(loaded, hex("0200 07")), hex("07"));
    QCOMPARE(shown(loaded), QString("--"));
}

void tst_ListSerialize::notStorable()
{
    CPtrList_X list;
    list.AddTail(this);
    QCOMPARE(stored(list), QByteArray());
    QCOMPARE(load(list, hex("0100")), hex("0100"));
    QCOMPARE(list.GetCount(), 1LL);
}

void tst_ListSerialize::loadingAdds()
{
    OpenList<CStringList_X> texts;
    fill(texts, "ab");
    load(texts, hex("0100 fffeff01 63000000"));
    QCOMPARE(shown(texts), QString("abc"));

    OpenList<CObList_X> objects;
    fill(objects, "ab");
    load(objects, hex("0100"));
    QCOMPARE(shown(objects), QString("ab-"));
}

void tst_ListSerialize::longCount()
{
    CStringList_X list;
    for (int i = 0; i < 65535; ++i)
        list.AddTail(L"");
    const QByteArray bytes = stored(list);
    QCOMPARE(bytes.left(10), hex("ffff ffff0000 fffeff00"));
    QCOMPARE(bytes.size(), 6 + 65535 * 4);
    CStringList_X loaded;
    QCOMPARE(load(loaded, bytes), QByteArray());
    QCOMPARE(loaded.GetCount(), 65535LL);
}

void tst_ListSerialize::streamThatEndsEarly()
{
    OpenList<CStringList_X> list;
    load(list, hex("0500 fffeff01 61000000 fffeff01 62000000"));
    QCOMPARE(shown(list), QString("ab"));
    list.RemoveAll();
    load(list, hex("0500 fffeff01 61000000 fffeff05 62000000")); // the last text is cut off, and lost
    QCOMPARE(shown(list), QString("a-"));
    list.RemoveAll();
    load(list, hex("ff"));
    QVERIFY(list.IsEmpty());
}

void tst_ListSerialize::countWithoutData()
{
    CStringList_X texts;
    load(texts, hex("ffff ffffffff"));
    QCOMPARE(texts.GetCount(), 0LL);
    load(texts, hex("ffff ffffffff fffeffff ffff ffffffff ffffffffffffffff"));
    QVERIFY(texts.GetCount() <= 1);

    CObList_X objects;
    load(objects, hex("ffff 00001000"));
    QCOMPARE(objects.GetCount(), 1048576LL);
    objects.RemoveAll();
    load(objects, hex("ffff ffffffff"));
    QCOMPARE(objects.GetCount(), 1048576LL);
}

XE_APPLESS_TEST(tst_ListSerialize)
#include "tst_listserialize.moc"
