// The pool of items of one size.

#include "testclass.h"

#include <xeafxfixalloc.h>
#include <xeafxplex.h>

#include <cstdint>
#include <cstring>
#include <set>

class tst_FixAlloc : public QObject
{
    Q_OBJECT

private slots:
    void sizeAndDistance_data();
    void sizeAndDistance();
    void theLowestAddressComesFirst();
    void theLastFreedComesFirst();
    void aBlockHoldsItsCount_data();
    void aBlockHoldsItsCount();
    void freeOfNull();
    void freeAll();
    void itemsDoNotOverlap();
};

void tst_FixAlloc::sizeAndDistance_data()
{
    QTest::addColumn<unsigned>("size");
    QTest::addColumn<unsigned>("distance");
    QTest::newRow("nothing") << 0U << 8U;
    QTest::newRow("less than a link") << 7U << 8U;
    QTest::newRow("a link") << 8U << 8U;
    QTest::newRow("no multiple of a link") << 12U << 12U; // nor are addresses
    QTest::newRow("an odd size") << 13U << 13U;
    QTest::newRow("more") << 24U << 24U;
}

void tst_FixAlloc::sizeAndDistance()
{
    QFETCH(unsigned, size);
    CFixedAllocNoSync_X pool(size, 4);
    QTEST(pool.GetAllocSize(), "distance");
    auto* const first = static_cast<char*>(pool.Alloc());
    auto* const second = static_cast<char*>(pool.Alloc());
    QTEST(static_cast<unsigned>(second - first), "distance");
}

void tst_FixAlloc::theLowestAddressComesFirst()
{
    CFixedAllocNoSync_X pool(16, 8);
    auto* before = static_cast<char*>(pool.Alloc());
    for (int i = 1; i < 8; ++i) {
        auto* const item = static_cast<char*>(pool.Alloc());
        QCOMPARE(item - before, std::ptrdiff_t(16));
        before = item;
    }
}

void tst_FixAlloc::theLastFreedComesFirst()
{
    CFixedAllocNoSync_X pool(16, 8);
    void* const a = pool.Alloc();
    void* const b = pool.Alloc();
    pool.Free(a);
    pool.Free(b);
    QCOMPARE(pool.Alloc(), b);
    QCOMPARE(pool.Alloc(), a);
}

void tst_FixAlloc::aBlockHoldsItsCount_data()
{
    QTest::addColumn<unsigned>("asked");
    QTest::addColumn<int>("count");
    QTest::newRow("0 becomes 64") << 0U << 64;
    QTest::newRow("1 becomes 64") << 1U << 64;
    QTest::newRow("2 stays") << 2U << 2;
    QTest::newRow("100 stays") << 100U << 100;
}

void tst_FixAlloc::aBlockHoldsItsCount()
{
    QFETCH(unsigned, asked);
    QFETCH(int, count);
    CFixedAllocNoSync_X pool(16, asked);
    auto* const first = static_cast<char*>(pool.Alloc());
    for (int i = 1; i < count; ++i)
        QCOMPARE(static_cast<char*>(pool.Alloc()) - first, std::ptrdiff_t(16 * i));
    QVERIFY(static_cast<char*>(pool.Alloc()) - first != std::ptrdiff_t(16 * count)); // another block, with its link
}

void tst_FixAlloc::freeOfNull()
{
    CFixedAllocNoSync_X pool(16, 8);
    void* const item = pool.Alloc();
    pool.Free(nullptr);
    QVERIFY(pool.Alloc() != nullptr);
    pool.Free(item);
    QCOMPARE(pool.Alloc(), item);
}

void tst_FixAlloc::freeAll()
{
    CFixedAllocNoSync_X pool(16, 2);
    for (int i = 0; i < 5; ++i)
        pool.Alloc();
    pool.FreeAll();
    pool.FreeAll();
    auto* const first = static_cast<char*>(pool.Alloc());
    QCOMPARE(static_cast<char*>(pool.Alloc()) - first, std::ptrdiff_t(16));
}

void tst_FixAlloc::itemsDoNotOverlap()
{
    CFixedAllocNoSync_X pool(40, 3);
    std::set<char*> items;
    for (int i = 0; i < 1000; ++i) {
        auto* const item = static_cast<char*>(pool.Alloc());
        QVERIFY(items.insert(item).second);
        QCOMPARE(reinterpret_cast<std::uintptr_t>(item) % 8, std::uintptr_t(0));
        std::memset(item, i, 40);
        if (i % 3 == 0) {
            items.erase(item);
            pool.Free(item);
        }
    }
    const char* end = nullptr;
    for (const char* item : items) {
        QVERIFY(item >= end);
        end = item + 40;
    }
}

XE_APPLESS_TEST(tst_FixAlloc)
#include "tst_fixalloc.moc"
