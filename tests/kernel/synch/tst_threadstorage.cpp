#include "synchsupport.h"
#include "testclass.h"

// Thread storage, the last error and the numbers of thread and process.

class tst_ThreadStorage : public QObject
{
    Q_OBJECT

private slots:
    void valueOfEachThread();
    void unknownKeys_data();
    void unknownKeys();
    void keysRunOut();
    void lastErrorIsErrno();
    void lastErrorOfEachThread();
    void numbers();
};

void tst_ThreadStorage::valueOfEachThread()
{
    const DWORD key = TlsAlloc_X();
    QVERIFY(key != TLS_OUT_OF_INDEXES);
    QCOMPARE(TlsGetValue_X(key), nullptr);
    int mine = 0;
    QCOMPARE(TlsSetValue_X(key, &mine), 0);
    QCOMPARE(TlsGetValue_X(key), static_cast<void*>(&mine));

    int others = 0;
    void* before = &others;
    void* after = nullptr;
    std::thread([&] {
        before = TlsGetValue_X(key);
        TlsSetValue_X(key, &others);
        after = TlsGetValue_X(key);
    }).join();
    QCOMPARE(before, nullptr);
    QCOMPARE(after, static_cast<void*>(&others));
    QCOMPARE(TlsGetValue_X(key), static_cast<void*>(&mine));

    QCOMPARE(TlsSetValue_X(key, nullptr), 0);
    QCOMPARE(TlsGetValue_X(key), nullptr);
    QCOMPARE(TlsFree_X(key), 1);
    QCOMPARE(TlsFree_X(key), 0);
}

void tst_ThreadStorage::unknownKeys_data()
{
    QTest::addColumn<DWORD>("key");
    QTest::newRow("none") << TLS_OUT_OF_INDEXES;
    QTest::newRow("beyond the last") << DWORD(PTHREAD_KEYS_MAX);
    QTest::newRow("as a negative number") << 0x80000000U;
}

void tst_ThreadStorage::unknownKeys()
{
    QFETCH(DWORD, key);
    int value = 0;
    QCOMPARE(TlsSetValue_X(key, &value), EINVAL);
    QCOMPARE(TlsGetValue_X(key), nullptr);
    QCOMPARE(TlsFree_X(key), 0);
}

void tst_ThreadStorage::keysRunOut()
{
    std::vector<DWORD> keys;
    for (DWORD key = TlsAlloc_X(); key != TLS_OUT_OF_INDEXES; key = TlsAlloc_X())
        keys.push_back(key);
    QVERIFY(keys.size() <= PTHREAD_KEYS_MAX);
    QCOMPARE(TlsAlloc_X(), TLS_OUT_OF_INDEXES);
    for (const DWORD key : keys)
        QCOMPARE(TlsFree_X(key), 1);
}

void tst_ThreadStorage::lastErrorIsErrno()
{
    SetLastError(183);
    QCOMPARE(GetLastError(), 183U);
    SetLastError(5);
    QCOMPARE(errno, 5);
    errno = ENOENT;
    QCOMPARE(GetLastError(), 2U);
    SetLastError(0xFFFFFFFF);
    QCOMPARE(GetLastError(), 0xFFFFFFFFU);
    SetLastError(0);
    QCOMPARE(GetLastError(), 0U);
}

void tst_ThreadStorage::lastErrorOfEachThread()
{
    SetLastError(183);
    DWORD fresh = 1;
    DWORD own = 0;
    std::thread([&] {
        fresh = GetLastError();
        SetLastError(6);
        own = GetLastError();
    }).join();
    QCOMPARE(fresh, 0U);
    QCOMPARE(own, 6U);
    SetLastError(183);
    std::thread([] { SetLastError(6); }).join();
    QCOMPARE(GetLastError(), 183U);
}

void tst_ThreadStorage::numbers()
{
    QVERIFY((std::is_same_v<decltype(GetCurrentThreadId()), std::uint64_t>));
    QCOMPARE(GetCurrentThreadId(), std::uint64_t(pthread_self()));
    std::uint64_t other = 0;
    std::thread([&] { other = GetCurrentThreadId(); }).join();
    QVERIFY(other != 0 && other != GetCurrentThreadId());
    QCOMPARE(GetCurrentProcessId(), DWORD(getpid()));
}

XE_APPLESS_TEST(tst_ThreadStorage)
#include "tst_threadstorage.moc"
