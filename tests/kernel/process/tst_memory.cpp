#include "testclass.h"

#include <xeprocess.h>

#include <cstring>

// The memory blocks: the global and the local functions are twins, and each row runs both.

namespace {

struct Family
{
    void* (*alloc)(UINT, size_t);
    void* (*realloc)(void*, size_t, UINT);
    void* (*free)(void*);
};

constexpr Family global = {GlobalAlloc_X, GlobalReAlloc_X, GlobalFree_X};
constexpr Family local = {LocalAlloc_X, LocalReAlloc_X, LocalFree_X};
constexpr size_t tooMuch = ~size_t(0) / 2;

QByteArray content(const void* block, int size) { return QByteArray(static_cast<const char*>(block), size); }

} // namespace

Q_DECLARE_METATYPE(Family)

// A sanitizer ends the program when there is no memory, unless it is told to behave like the C library.
extern "C" {
Q_DECL_EXPORT const char* __asan_default_options() { return "allocator_may_return_null=1"; }
Q_DECL_EXPORT const char* __tsan_default_options() { return "allocator_may_return_null=1"; }
}

class tst_Memory : public QObject
{
    Q_OBJECT

private slots:
    void blocksAreCleared_data() { families(); }
    void blocksAreCleared();
    void anEmptyBlock_data() { families(); }
    void anEmptyBlock();
    void noMemory_data() { families(); }
    void noMemory();
    void growing_data() { families(); }
    void growing();
    void growingFarPastTheOldBlock_data() { families(); }
    void growingFarPastTheOldBlock();
    void shrinking_data() { families(); }
    void shrinking();
    void reallocatingNothingAllocates_data() { families(); }
    void reallocatingNothingAllocates();
    void freeingNothing_data() { families(); }
    void freeingNothing();
    void theHandleIsTheAddress();

private:
    static void families()
    {
        QTest::addColumn<Family>("family");
        QTest::newRow("global") << global;
        QTest::newRow("local") << local;
    }
};

void tst_Memory::blocksAreCleared()
{
    QFETCH(Family, family);
    for (const UINT flags : {GMEM_FIXED, GMEM_MOVEABLE, GHND, LPTR, ~0U}) {
        void* const dirty = family.alloc(flags, 1000);
        QVERIFY(dirty);
        std::memset(dirty, 'x', 1000);
        QCOMPARE(family.free(dirty), nullptr);

        void* const block = family.alloc(flags, 1000);
        QCOMPARE(content(block, 1000), QByteArray(1000, '\0'));
        QCOMPARE(family.free(block), nullptr);
    }
}

void tst_Memory::anEmptyBlock()
{
    QFETCH(Family, family);
    void* const block = family.alloc(0, 0);
    QVERIFY(block);
    family.free(block);
}

void tst_Memory::noMemory()
{
    QFETCH(Family, family);
    QCOMPARE(family.alloc(0, tooMuch), nullptr);

    void* const block = family.alloc(0, 4);
    std::memcpy(block, "abc", 4);
    QCOMPARE(family.realloc(block, tooMuch, 0), nullptr);
    QCOMPARE(content(block, 4), QByteArray("abc", 4));
    QCOMPARE(family.realloc(nullptr, tooMuch, 0), nullptr);
    family.free(block);
}

void tst_Memory::growing()
{
    QFETCH(Family, family);
    void* const block = family.alloc(0, 100);
    std::memset(block, 'x', 100);
    void* const larger = family.realloc(block, 1000, 8194);
    QVERIFY(larger);
    QCOMPARE(content(larger, 100), QByteArray(100, 'x'));
    QCOMPARE(content(larger, 1000).mid(200), QByteArray(800, '\0'));
    family.free(larger);
}

void tst_Memory::growingFarPastTheOldBlock()
{
    // Reading as much as the new block holds would leave the old one's pages.
    QFETCH(Family, family);
    constexpr size_t large = size_t(64) << 20;
    void* const block = family.alloc(0, 16);
    std::memset(block, 'x', 16);
    void* const larger = family.realloc(block, large, 0);
    QVERIFY(larger);
    QCOMPARE(content(larger, 16), QByteArray(16, 'x'));
    QCOMPARE(static_cast<const char*>(larger)[large - 1], '\0');
    family.free(larger);
}

void tst_Memory::shrinking()
{
    QFETCH(Family, family);
    void* const block = family.alloc(0, 1000);
    std::memset(block, 'x', 1000);
    void* const smaller = family.realloc(block, 10, 0);
    QVERIFY(smaller);
    QCOMPARE(content(smaller, 10), QByteArray(10, 'x'));
    void* const none = family.realloc(smaller, 0, 0);
    QVERIFY(none);
    family.free(none);
}

void tst_Memory::reallocatingNothingAllocates()
{
    QFETCH(Family, family);
    void* const block = family.realloc(nullptr, 100, 0);
    QVERIFY(block);
    QCOMPARE(content(block, 100), QByteArray(100, '\0'));
    family.free(block);
}

void tst_Memory::freeingNothing()
{
    QFETCH(Family, family);
    QCOMPARE(family.free(nullptr), nullptr);
}

void tst_Memory::theHandleIsTheAddress()
{
    const HGLOBAL block = GlobalAlloc_X(GHND, 10);
    QCOMPARE(GlobalLock_X(block), block);
    QCOMPARE(GlobalHandle_X(block), block);
    QCOMPARE(GlobalUnlock_X(block), 1);
    QCOMPARE(GlobalUnlock_X(block), 1);
    GlobalFree_X(block);
    QCOMPARE(GlobalLock_X(nullptr), nullptr);
    QCOMPARE(GlobalHandle_X(nullptr), nullptr);
    QCOMPARE(GlobalUnlock_X(nullptr), 1);
}

XE_APPLESS_TEST(tst_Memory)
#include "tst_memory.moc"
