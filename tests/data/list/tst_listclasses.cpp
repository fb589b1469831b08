#include "openlist.h"
#include "testclass.h"

/// What tells the three lists apart, and how they keep their nodes.
class tst_ListClasses : public QObject
{
    Q_OBJECT

private slots:
    void apiExamples();
    void runTimeClasses();
    void createObject();
    void fieldsInOrder_data() { listClassRows(); }
    void fieldsInOrder();
    void nodesComeLowestFirst_data() { listClassRows(); }
    void nodesComeLowestFirst();
    void lastElementFreesAllBlocks_data() { listClassRows(); }
    void lastElementFreesAllBlocks();
    void oneElementKeepsAllBlocks_data() { listClassRows(); }
    void oneElementKeepsAllBlocks();
    void removedNodeIsTakenFirst_data() { listClassRows(); }
    void removedNodeIsTakenFirst();
    void badBlockSizeRaises_data();
    void badBlockSizeRaises();
    void objectsAreNotOwned();
    void listsOfListsOfObjects();
    void textForms();
    void textsCompareToTheirEnd();
    void textsKeepEmbeddedZeros();
};

void tst_ListClasses::apiExamples()
{
    QStringList shownTexts;
    const auto show = [&](const CString_X& text) { shownTexts += XeQString(text); };

    CStringList_X parts;
    parts.AddTail(L"bolt");
    parts.AddHead(L"nut");
    for (POSITION position = parts.GetHeadPosition(); position;)
        show(parts.GetNext(position)); // nut, bolt

    QCOMPARE(shownTexts.join(", "), QString("nut, bolt"));
}

void tst_ListClasses::runTimeClasses()
{
    CPtrList_X pointers;
    CObList_X objects;
    CStringList_X texts;
    QCOMPARE(pointers.GetRuntimeClass(), RUNTIME_CLASS_X(CPtrList_X));
    QCOMPARE(objects.GetClassName(), "CObList_X");
    QVERIFY(texts.IsKindOf(RUNTIME_CLASS_X(CObject_X)));
    QVERIFY(!texts.IsKindOf(RUNTIME_CLASS_X(CObList_X)));
}

void tst_ListClasses::createObject()
{
    QVERIFY(!RUNTIME_CLASS_X(CPtrList_X)->CreateObject());
    const std::unique_ptr<CObject_X> objects(RUNTIME_CLASS_X(CObList_X)->CreateObject());
    const std::unique_ptr<CObject_X> texts(RUNTIME_CLASS_X(CStringList_X)->CreateObject());
    QVERIFY(qobject_cast<CObList_X*>(objects.get()));
    auto* list = qobject_cast<CStringList_X*>(texts.get());
    QVERIFY(list);
    QCOMPARE(list->*(&OpenList<CStringList_X>::blockSize), 10LL);
}

void tst_ListClasses::fieldsInOrder()
{
    withList([](auto& list) {
        const auto distance = [](const auto& from, const auto& to) {
            return int(reinterpret_cast<const char*>(&to) - reinterpret_cast<const char*>(&from));
        };
        fill(list, "a");
        QCOMPARE(distance(list.head, list.tail), 8);
        QCOMPARE(distance(list.head, list.count), 16);
        QCOMPARE(distance(list.head, list.freeList), 24);
        QCOMPARE(distance(list.head, list.blocks), 32);
        QCOMPARE(distance(list.head, list.blockSize), 40);
        QCOMPARE(distance(*list.head, list.head->next), 0);
        QCOMPARE(distance(*list.head, list.head->prev), 8);
        QCOMPARE(distance(*list.head, list.head->value), 16);
    });
}

void tst_ListClasses::nodesComeLowestFirst()
{
    withList([](auto& list) {
        fill(list, "abcdefghij");
        auto* first = list.head;
        QCOMPARE(static_cast<void*>(first), list.blocks->data());
        for (int i = 0; i < 10; ++i)
            QCOMPARE(list.FindIndex(i), reinterpret_cast<POSITION>(first + i));
        QCOMPARE(list.blockCount(), 1);
        list.AddTail(list.GetHead());
        QCOMPARE(list.blockCount(), 2);
        QCOMPARE(static_cast<void*>(list.tail), list.blocks->data());
    });
}

void tst_ListClasses::lastElementFreesAllBlocks()
{
    withList([](auto& list) {
        for (int way = 0; way < 3; ++way) {
            fill(list, "abcdefghijKLM");
            QCOMPARE(list.blockCount(), 2);
            while (list.GetCount() > 1)
                list.RemoveHead();
            QCOMPARE(list.blockCount(), 2);
            if (way == 0)
                list.RemoveHead();
            else if (way == 1)
                list.RemoveTail();
            else
                list.RemoveAt(list.GetHeadPosition());
            QCOMPARE(list.blockCount(), 0);
            QVERIFY(!list.freeList);
            QVERIFY(!list.head && !list.tail);
        }
        list.AddTail(elementOf<typename std::decay_t<decltype(list)>::Value>('x'));
        QCOMPARE(list.blockCount(), 1);
    });
}

void tst_ListClasses::oneElementKeepsAllBlocks()
{
    withList([](auto& list) {
        fill(list, "abcdefghijklmnopqrstuvwxyz");
        QCOMPARE(list.blockCount(), 3);
        while (list.GetCount() > 1)
            list.RemoveTail();
        QCOMPARE(list.blockCount(), 3);
        list.RemoveAll();
        QCOMPARE(list.blockCount(), 0);
    });
}

void tst_ListClasses::removedNodeIsTakenFirst()
{
    withList([](auto& list) {
        fill(list, "abc");
        const POSITION second = list.FindIndex(1);
        list.RemoveAt(second);
        list.RemoveAt(list.GetHeadPosition());
        const POSITION first = list.AddTail(list.GetHead());
        QVERIFY(first != second);
        QCOMPARE(list.AddTail(list.GetHead()), second);
    });
}

void tst_ListClasses::badBlockSizeRaises_data()
{
    QTest::addColumn<qlonglong>("blockSize");
    QTest::newRow("none") << 0LL;
    QTest::newRow("negative") << -1LL;
    QTest::newRow("least") << LLONG_MIN;
    QTest::newRow("more than memory can have") << LLONG_MAX;
}

void tst_ListClasses::badBlockSizeRaises()
{
    QFETCH(qlonglong, blockSize);

    OpenList<CStringList_X> list(blockSize);
    QCOMPARE(list.blockSize, blockSize);
    QVERIFY(raises([&] { list.AddTail(L"a"); }));
    QVERIFY(raises([&] { list.AddHead(L"a"); }));
    QCOMPARE(list.GetCount(), 0LL);
    QVERIFY(!list.head && !list.blocks);
}

void tst_ListClasses::objectsAreNotOwned()
{
    const QPointer<CObject_X> object(new CObject_X);
    {
        CObList_X list;
        list.AddTail(object);
        list.AddTail(object);
        list.RemoveHead();
        list.RemoveAll();
        list.AddTail(object);
    }
    QVERIFY(object);
    delete object;
}

// A list of objects is an object as well: given as what it is it stands for its elements.
void tst_ListClasses::listsOfListsOfObjects()
{
    struct OwnList : CObList_X
    {
    } own;
    CObject_X object;
    CObList_X other;
    other.AddTail(&object);
    own.AddTail(&other);
    own.AddHead(&own);
    QCOMPARE(own.GetCount(), 2LL);
    QCOMPARE(own.GetHead(), &object);
    own.AddTail(static_cast<CObject_X*>(&other));
    QCOMPARE(own.GetCount(), 3LL);
    QCOMPARE(own.GetTail(), &other);
}

void tst_ListClasses::textForms()
{
    CStringList_X list;
    const CString_X object = L"object";
    const wchar_t* none = nullptr;
    const POSITION first = list.AddTail(L"pointer");
    const POSITION last = list.AddTail(object);
    list.AddHead(L"h");
    list.AddHead(object);
    list.InsertBefore(first, L"before");
    list.InsertAfter(first, L"behind");
    list.InsertBefore(last, object);
    list.InsertAfter(last, object);
    list.SetAt(first, L"new pointer");
    list.SetAt(last, none);
    list.InsertBefore(nullptr, none);
    list.InsertAfter(nullptr, L"end");
    QStringList texts;
    for (POSITION position = list.GetHeadPosition(); position;)
        texts += XeQString(list.GetNext(position));
    QCOMPARE(texts.join('|'), QString("|object|h|before|new pointer|behind|object||object|end"));
    QVERIFY(raises([&] { list.SetAt(nullptr, L"x"); }));
    QVERIFY(raises([&] { list.SetAt(nullptr, object); }));
}

void tst_ListClasses::textsCompareToTheirEnd()
{
    CStringList_X list;
    list.AddTail(L"drill");
    list.AddTail(L"Drill");
    list.AddTail(L"");
    QCOMPARE(list.Find(L"Drill"), list.FindIndex(1));
    QVERIFY(!list.Find(L"dril"));
    QVERIFY(!list.Find(L"drills"));
    QCOMPARE(list.Find(L""), list.GetTailPosition());
    QCOMPARE(list.Find(nullptr), list.GetTailPosition());
}

void tst_ListClasses::textsKeepEmbeddedZeros()
{
    CStringList_X list;
    list.AddTail(CString_X(L"a\0b", 3));
    QCOMPARE(list.GetHead().GetLength(), 3);
    QVERIFY(!list.Find(L"a"));
    QCOMPARE(list.RemoveHead().GetLength(), 3);
}

XE_APPLESS_TEST(tst_ListClasses)
#include "tst_listclasses.moc"
