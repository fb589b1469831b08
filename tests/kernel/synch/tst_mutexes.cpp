#include "synchsupport.h"
#include "testclass.h"

using Create = HANDLE (*)();
Q_DECLARE_METATYPE(Create)

class tst_Mutexes : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(leftInSystem(), QString()); }

    void firstOwner_data();
    void firstOwner();
    void waitAndRelease();
    void notRecursive_data();
    void notRecursive();
    void waitsForAnotherThread_data();
    void waitsForAnotherThread();
    void releaseOfAFreeMutex();
    void releaseForAnotherThread();
    void failedUnlock();
    void withoutLock_data();
    void withoutLock();
    void closeWithAWaiterInside();
};

void tst_Mutexes::firstOwner_data()
{
    QTest::addColumn<Create>("create");
    QTest::addColumn<bool>("owned");
    const auto row = [](const char* title, Create create, bool owned) { QTest::newRow(title) << create << owned; };
    row(
        "nobody", [] { return CreateMutex(nullptr, FALSE, nullptr); }, false);
    row(
        "the creator", [] { return CreateMutex(nullptr, TRUE, nullptr); }, true);
    row(
        "the creator, for any number but 0", [] { return CreateMutex(nullptr, -2, nullptr); }, true);
    row(
        "nobody without flags", [] { return CreateMutexEx(nullptr, L"a", 0, 0); }, false);
    row(
        "the creator with the flag", [] { return CreateMutexEx(nullptr, L"b", 1, 0); }, true);
    row(
        "the creator with any flag", [] { return CreateMutexEx(nullptr, L"c", 0x80000000, 0); }, true);
}

void tst_Mutexes::firstOwner()
{
    QFETCH(Create, create);
    QFETCH(bool, owned);
    const HANDLE mutex = create();
    auto& fields = record(mutex).asMutex;
    QCOMPARE(record(mutex).type, 1U);
    QCOMPARE(fields.mutex, &fields.mutexStorage);
    QCOMPARE(fields.ownerThread, owned ? pthread_self() : pthread_t());
    QCOMPARE(pthread_mutex_trylock(fields.mutex), owned ? EBUSY : 0);
    pthread_mutex_unlock(fields.mutex);
    fields.ownerThread = 0;
    QCOMPARE(XeCloseHandle(mutex), 1);
}

void tst_Mutexes::waitAndRelease()
{
    const HANDLE mutex = CreateMutex(nullptr, FALSE, nullptr);
    for (const DWORD milliseconds : {0U, 10U, INFINITE}) {
        QCOMPARE(waited(mutex, milliseconds), QStringLiteral("object, 77"));
        QCOMPARE(record(mutex).asMutex.ownerThread, pthread_self());
        QCOMPARE(ReleaseMutex(mutex), 1);
        QCOMPARE(record(mutex).asMutex.ownerThread, pthread_t());
    }
    QVERIFY(XeCloseHandle(mutex));
    QVERIFY(g_mapXeHandle.isEmpty());
}

// The outcome is read from the last error, which the wait leaves as it was.
void tst_Mutexes::notRecursive_data()
{
    QTest::addColumn<DWORD>("milliseconds");
    QTest::addColumn<DWORD>("error");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("no error") << 10U << 0U << "failed, 0";
    QTest::newRow("at once") << 0U << 0U << "failed, 0";
    QTest::newRow("an interruption before") << 10U << 4U << "failed, 4";
    QTest::newRow("number 36 before") << 10U << 36U << "abandoned, 36";
    QTest::newRow("a limit that was over before") << 10U << 110U << "timeout, 110";
}

void tst_Mutexes::notRecursive()
{
    QFETCH(DWORD, milliseconds);
    QFETCH(DWORD, error);
    QFETCH(QString, outcome);
    const HANDLE mutex = CreateMutex(nullptr, TRUE, L"name");
    QCOMPARE(waited(mutex, milliseconds, error), outcome);
    QCOMPARE(record(mutex).asMutex.ownerThread, pthread_self());
    QCOMPARE(ReleaseMutex(mutex), 1);
    QVERIFY(XeCloseHandle(mutex));
}

void tst_Mutexes::waitsForAnotherThread_data()
{
    QTest::addColumn<DWORD>("milliseconds");
    QTest::newRow("for ever") << INFINITE;
    QTest::newRow("limited") << 60000U;
}

void tst_Mutexes::waitsForAnotherThread()
{
    QFETCH(DWORD, milliseconds);
    const HANDLE mutex = CreateMutex(nullptr, TRUE, nullptr);
    QString outcome;
    std::thread other([&] {
        outcome = waited(mutex, milliseconds);
        ReleaseMutex(mutex);
    });
    untilInside(mutex, 1);
    QCOMPARE(ReleaseMutex(mutex), 1);
    other.join();
    QCOMPARE(outcome, QStringLiteral("object, 77"));
    QVERIFY(XeCloseHandle(mutex));
}

void tst_Mutexes::releaseOfAFreeMutex()
{
    const HANDLE mutex = CreateMutex(nullptr, FALSE, nullptr);
    QCOMPARE(ReleaseMutex(mutex), 1);
    QCOMPARE(ReleaseMutex(mutex), 1);
    QCOMPARE(WaitForSingleObject(mutex, 0), WAIT_OBJECT_0);
    QCOMPARE(pthread_mutex_trylock(record(mutex).asMutex.mutex), EBUSY);
    QCOMPARE(ReleaseMutex(mutex), 1);
    QVERIFY(XeCloseHandle(mutex));
    QVERIFY(g_mapXeHandle.isEmpty());
}

void tst_Mutexes::releaseForAnotherThread()
{
    if (underThreadSanitizer)
        QSKIP("the sanitizer takes the unlock by another thread for an error");
    const HANDLE mutex = CreateMutex(nullptr, TRUE, nullptr);
    std::thread([&] { ReleaseMutex(mutex); }).join();
    QCOMPARE(record(mutex).asMutex.ownerThread, pthread_t());
    QCOMPARE(WaitForSingleObject(mutex, 0), WAIT_OBJECT_0);
    QCOMPARE(ReleaseMutex(mutex), 1);
    QVERIFY(XeCloseHandle(mutex));
}

void tst_Mutexes::failedUnlock()
{
    if (underThreadSanitizer)
        QSKIP("the sanitizer takes the unlock of a destroyed mutex for an error");
    const HANDLE mutex = CreateMutex(nullptr, FALSE, nullptr);
    auto& fields = record(mutex).asMutex;
    pthread_mutex_destroy(fields.mutex);
    fields.ownerThread = pthread_self();
    QCOMPARE(ReleaseMutex(mutex), 0);
    QCOMPARE(fields.ownerThread, pthread_self());
    pthread_mutex_init(fields.mutex, nullptr);
    fields.ownerThread = 0;
    QVERIFY(XeCloseHandle(mutex));
}

void tst_Mutexes::withoutLock_data()
{
    QTest::addColumn<DWORD>("error");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("no error") << 0U << "failed, 0";
    QTest::newRow("number 36 before") << 36U << "abandoned, 36";
    QTest::newRow("a limit that was over before") << 110U << "timeout, 110";
}

void tst_Mutexes::withoutLock()
{
    QFETCH(DWORD, error);
    QFETCH(QString, outcome);
    const HANDLE mutex = CreateMutex(nullptr, FALSE, nullptr);
    auto* const lock = std::exchange(record(mutex).asMutex.mutex, nullptr);
    QCOMPARE(waited(mutex, INFINITE, error), outcome);
    QCOMPARE(waited(mutex, 10, error), outcome);
    QCOMPARE(ReleaseMutex(mutex), 0);
    record(mutex).asMutex.mutex = lock;
    QVERIFY(XeCloseHandle(mutex));
}

void tst_Mutexes::closeWithAWaiterInside()
{
    const HANDLE mutex = CreateMutex(nullptr, TRUE, L"name");
    Waiter waiter(mutex, 300); // longer than a busy machine takes to see it inside
    untilInside(mutex, 1);
    QCOMPARE(XeCloseHandle(mutex), 1);
    QCOMPARE(g_mapXeHandle.size(), 1);
    QCOMPARE(waiter.result(), QStringLiteral("failed, 77"));
    g_mapXeHandle.clear();
}

XE_APPLESS_TEST(tst_Mutexes)
#include "tst_mutexes.moc"
