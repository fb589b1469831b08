#include "openlist.h"
#include "testclass.h"

#include "xeafxplex.h"

#include <cstring>

/// Chains of raw blocks.
class tst_Plex : public QObject
{
    Q_OBJECT

private slots:
    void newestFirst();
    void dataFollowsTheLink();
    void badSizesRaise_data();
    void badSizesRaise();
    void freeNodesComeLowestFirst();
    void returnedNodeComesFirst();
};

void tst_Plex::newestFirst()
{
    CPlex_X* head = nullptr;
    CPlex_X* first = CPlex_X::Create(head, 3, 16);
    QCOMPARE(head, first);
    QVERIFY(!first->pNext);
    CPlex_X* second = CPlex_X::Create(head, 1, 1);
    QCOMPARE(head, second);
    QCOMPARE(second->pNext, first);
    QVERIFY(!first->pNext);
    head->FreeDataChain();
}

void tst_Plex::dataFollowsTheLink()
{
    CPlex_X* head = nullptr;
    CPlex_X* block = CPlex_X::Create(head, 3, 16);
    QCOMPARE(sizeof(CPlex_X), sizeof(void*));
    QCOMPARE(static_cast<char*>(block->data()) - reinterpret_cast<char*>(block), std::ptrdiff_t(sizeof(void*)));
    std::memset(block->data(), 0xFF, 48); // the whole room is there, and the link is not part of it
    QVERIFY(!block->pNext);
    xe::detail::freeBlocks(head);
    QVERIFY(!head);
    xe::detail::freeBlocks(head);
}

void tst_Plex::badSizesRaise_data()
{
    QTest::addColumn<quint64>("max");
    QTest::addColumn<quint64>("element");

    QTest::newRow("no elements") << quint64(0) << quint64(8);
    QTest::newRow("elements without a size") << quint64(8) << quint64(0);
    QTest::newRow("the negative number of elements") << quint64(-1) << quint64(1);
    QTest::newRow("a product that wraps to 0") << (quint64(1) << 32) << (quint64(1) << 32);
    QTest::newRow("a product that wraps to little") << (quint64(1) << 63) + 1 << quint64(2);
    QTest::newRow("one byte more than fits with the link") << quint64(PTRDIFF_MAX) - 7 << quint64(1);
}

void tst_Plex::badSizesRaise()
{
    QFETCH(quint64, max);
    QFETCH(quint64, element);

    CPlex_X* head = nullptr;
    QVERIFY(raises([&] { CPlex_X::Create(head, max, element); }));
    QVERIFY(!head);
    CPlex_X* block = CPlex_X::Create(head, 1, 8);
    QVERIFY(raises([&] { CPlex_X::Create(head, max, element); }));
    QCOMPARE(head, block);
    head->FreeDataChain();
}

namespace {

struct Node
{
    Node* next;
    int number;
};

} // namespace

void tst_Plex::freeNodesComeLowestFirst()
{
    CPlex_X* blocks = nullptr;
    Node* freeList = nullptr;
    Node* first = xe::detail::takeNode(freeList, blocks, 3, nullptr, 7);
    QCOMPARE(static_cast<void*>(first), blocks->data());
    QCOMPARE(first->number, 7);
    QCOMPARE(xe::detail::takeNode(freeList, blocks, 3, nullptr, 8), first + 1);
    QCOMPARE(xe::detail::takeNode(freeList, blocks, 3, nullptr, 9), first + 2);
    QVERIFY(!freeList);
    QVERIFY(!blocks->pNext);

    Node* inNewBlock = xe::detail::takeNode(freeList, blocks, 1, nullptr, 10);
    QCOMPARE(static_cast<void*>(inNewBlock), blocks->data());
    QVERIFY(blocks->pNext);
    blocks->FreeDataChain();
}

void tst_Plex::returnedNodeComesFirst()
{
    CPlex_X* blocks = nullptr;
    Node* freeList = nullptr;
    Node* first = xe::detail::takeNode(freeList, blocks, 3, nullptr, 1);
    Node* second = xe::detail::takeNode(freeList, blocks, 3, nullptr, 2);
    xe::detail::giveNodeBack(freeList, first);
    xe::detail::giveNodeBack(freeList, second);
    QCOMPARE(xe::detail::takeNode(freeList, blocks, 3, nullptr, 3), second);
    QCOMPARE(xe::detail::takeNode(freeList, blocks, 3, nullptr, 4), first);
    QCOMPARE(xe::detail::takeNode(freeList, blocks, 3, nullptr, 5), first + 2);
    blocks->FreeDataChain();
}

XE_APPLESS_TEST(tst_Plex)
#include "tst_plex.moc"
