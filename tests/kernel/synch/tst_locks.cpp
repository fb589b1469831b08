#include "synchsupport.h"
#include "testclass.h"

using Wake = int (*)(PCONDITION_VARIABLE);
using OnLock = int (*)(PSRWLOCK);
Q_DECLARE_METATYPE(Wake)
Q_DECLARE_METATYPE(OnLock)

namespace {

/// The result of a call on another thread.
template <class Call>
auto elsewhere(Call call)
{
    decltype(call()) result = {};
    std::thread([&] { result = call(); }).join();
    return result;
}

} // namespace

class tst_Locks : public QObject
{
    Q_OBJECT

private slots:
    void types();
    void nullGivesAnError();
    void criticalSection();
    void sharedHold();
    void exclusiveHold();
    void releaseServesForOneHold_data();
    void releaseServesForOneHold();
    void releaseOfASharedHoldAmongOthers();
    void sleepInASectionEnds_data() { limits(); }
    void sleepInASectionEnds();
    void sleepInASectionIsWoken_data() { wakes(); }
    void sleepInASectionIsWoken();
    void sleepWithALockEnds_data();
    void sleepWithALockEnds();
    void sleepWithALockIsWoken_data() { wakes(); }
    void sleepWithALockIsWoken();
    void wakeWithoutSleepers();

private:
    static void limits()
    {
        QTest::addColumn<DWORD>("milliseconds");
        QTest::newRow("at once") << 0U;
        QTest::newRow("ten milliseconds") << 10U;
    }

    static void wakes();
};

void tst_Locks::wakes()
{
    QTest::addColumn<Wake>("wake");
    QTest::addColumn<DWORD>("milliseconds");
    QTest::newRow("one, for ever") << &WakeConditionVariable << INFINITE;
    QTest::newRow("one, limited") << &WakeConditionVariable << 60000U;
    QTest::newRow("all, for ever") << &WakeAllConditionVariable << INFINITE;
    QTest::newRow("all, limited") << &WakeAllConditionVariable << 60000U;
}

void tst_Locks::types()
{
    QVERIFY((std::is_same_v<CRITICAL_SECTION, pthread_mutex_t>));
    QVERIFY((std::is_same_v<SRWLOCK, pthread_rwlock_t>));
    QVERIFY((std::is_same_v<CONDITION_VARIABLE, pthread_cond_t>));
}

void tst_Locks::nullGivesAnError()
{
    using OnSection = int (*)(LPCRITICAL_SECTION);
    for (const OnSection call :
         {InitializeCriticalSection_X, EnterCriticalSection_X, LeaveCriticalSection_X, DeleteCriticalSection_X})
        QCOMPARE(call(nullptr), EINVAL);
    for (const OnLock call :
         {InitializeSRWLock, AcquireSRWLockExclusive, AcquireSRWLockShared, TryAcquireSRWLockExclusive,
          TryAcquireSRWLockShared, ReleaseSRWLockExclusive, ReleaseSRWLockShared})
        QCOMPARE(call(nullptr), EINVAL);
    for (const Wake call : {InitializeConditionVariable, WakeConditionVariable, WakeAllConditionVariable})
        QCOMPARE(call(nullptr), EINVAL);

    CONDITION_VARIABLE condition = PTHREAD_COND_INITIALIZER;
    CRITICAL_SECTION section = PTHREAD_MUTEX_INITIALIZER;
    SRWLOCK lock = PTHREAD_RWLOCK_INITIALIZER;
    QCOMPARE(SleepConditionVariableCS(nullptr, &section, INFINITE), 1);
    QCOMPARE(SleepConditionVariableCS(&condition, nullptr, INFINITE), 1);
    QCOMPARE(SleepConditionVariableSRW(nullptr, &lock, INFINITE, 0), 1);
    QCOMPARE(SleepConditionVariableSRW(&condition, nullptr, INFINITE, 0), 1);
}

void tst_Locks::criticalSection()
{
    CRITICAL_SECTION section;
    QCOMPARE(InitializeCriticalSection_X(&section), 0);
    QCOMPARE(EnterCriticalSection_X(&section), 0);
    QCOMPARE(pthread_mutex_trylock(&section), EBUSY); // by its owner too
    QCOMPARE(LeaveCriticalSection_X(&section), 0);
    QCOMPARE(EnterCriticalSection_X(&section), 0);
    QCOMPARE(LeaveCriticalSection_X(&section), 0);
    QCOMPARE(DeleteCriticalSection_X(&section), 0);
}

void tst_Locks::sharedHold()
{
    SRWLOCK lock;
    QCOMPARE(InitializeSRWLock(&lock), 0);
    QCOMPARE(AcquireSRWLockShared(&lock), 0);
    QCOMPARE(elsewhere([&] { return TryAcquireSRWLockExclusive(&lock); }), EBUSY);
    QCOMPARE(elsewhere([&] { return TryAcquireSRWLockShared(&lock) || pthread_rwlock_unlock(&lock); }), false);
    QCOMPARE(ReleaseSRWLockShared(&lock), 0);

    QCOMPARE(InitializeSRWLock(&lock), 0);
    QCOMPARE(TryAcquireSRWLockShared(&lock), 0);
    QCOMPARE(ReleaseSRWLockShared(&lock), 0);
}

void tst_Locks::exclusiveHold()
{
    SRWLOCK lock;
    QCOMPARE(InitializeSRWLock(&lock), 0);
    QCOMPARE(AcquireSRWLockExclusive(&lock), 0);
    QCOMPARE(elsewhere([&] { return TryAcquireSRWLockExclusive(&lock); }), EBUSY);
    QCOMPARE(elsewhere([&] { return TryAcquireSRWLockShared(&lock); }), EBUSY);
    QCOMPARE(ReleaseSRWLockExclusive(&lock), 0);

    QCOMPARE(InitializeSRWLock(&lock), 0);
    QCOMPARE(TryAcquireSRWLockExclusive(&lock), 0);
    QCOMPARE(ReleaseSRWLockExclusive(&lock), 0);
}

void tst_Locks::releaseServesForOneHold_data()
{
    QTest::addColumn<OnLock>("acquire");
    QTest::addColumn<OnLock>("release");
    QTest::newRow("exclusive") << &AcquireSRWLockExclusive << &ReleaseSRWLockExclusive;
    QTest::newRow("shared") << &AcquireSRWLockShared << &ReleaseSRWLockShared;
    QTest::newRow("the two releases are one function") << &AcquireSRWLockExclusive << &ReleaseSRWLockShared;
}

void tst_Locks::releaseServesForOneHold()
{
    QFETCH(OnLock, acquire);
    QFETCH(OnLock, release);
    SRWLOCK lock;
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(InitializeSRWLock(&lock), 0);
        QCOMPARE(acquire(&lock), 0);
        QCOMPARE(release(&lock), 0);
    }
}

void tst_Locks::releaseOfASharedHoldAmongOthers()
{
    if (underThreadSanitizer)
        QSKIP("the sanitizer takes the destruction of a held lock for an error");
    SRWLOCK lock;
    QCOMPARE(InitializeSRWLock(&lock), 0);
    QCOMPARE(AcquireSRWLockShared(&lock), 0);
    QCOMPARE(AcquireSRWLockShared(&lock), 0);
    QCOMPARE(ReleaseSRWLockShared(&lock), 0);
    QCOMPARE(TryAcquireSRWLockExclusive(&lock), EBUSY);
    QCOMPARE(ReleaseSRWLockShared(&lock), 0);
    QCOMPARE(TryAcquireSRWLockExclusive(&lock), 0);
    QCOMPARE(ReleaseSRWLockExclusive(&lock), 0);
}

void tst_Locks::sleepInASectionEnds()
{
    QFETCH(DWORD, milliseconds);
    CRITICAL_SECTION section;
    CONDITION_VARIABLE condition;
    InitializeCriticalSection_X(&section);
    QCOMPARE(InitializeConditionVariable(&condition), 0);
    EnterCriticalSection_X(&section);
    QCOMPARE(SleepConditionVariableCS(&condition, &section, milliseconds), 1);
    QCOMPARE(elsewhere([&] { return pthread_mutex_trylock(&section); }), EBUSY);
    LeaveCriticalSection_X(&section);
    DeleteCriticalSection_X(&section);
}

void tst_Locks::sleepInASectionIsWoken()
{
    QFETCH(Wake, wake);
    QFETCH(DWORD, milliseconds);
    CRITICAL_SECTION section;
    CONDITION_VARIABLE condition;
    InitializeCriticalSection_X(&section);
    InitializeConditionVariable(&condition);
    bool ready = false;
    EnterCriticalSection_X(&section);
    std::thread waker([&] {
        EnterCriticalSection_X(&section); // not before the sleep has left it
        ready = true;
        wake(&condition);
        LeaveCriticalSection_X(&section);
    });
    BOOL failed = 0;
    while (!ready && !failed)
        failed = SleepConditionVariableCS(&condition, &section, milliseconds);
    QCOMPARE(failed, 0);
    QCOMPARE(LeaveCriticalSection_X(&section), 0);
    waker.join();
    DeleteCriticalSection_X(&section);
}

void tst_Locks::sleepWithALockEnds_data()
{
    QTest::addColumn<OnLock>("acquire");
    QTest::addColumn<DWORD>("milliseconds");
    QTest::addColumn<ULONG>("flags");
    QTest::newRow("exclusive, at once") << &AcquireSRWLockExclusive << 0U << 0U;
    QTest::newRow("exclusive, ten milliseconds") << &AcquireSRWLockExclusive << 10U << 0U;
    QTest::newRow("shared, at once") << &AcquireSRWLockShared << 0U << 0U;
    QTest::newRow("shared, with the flag") << &AcquireSRWLockShared << 10U << 1U;
}

void tst_Locks::sleepWithALockEnds()
{
    QFETCH(OnLock, acquire);
    QFETCH(DWORD, milliseconds);
    QFETCH(ULONG, flags);
    SRWLOCK lock;
    CONDITION_VARIABLE condition;
    InitializeSRWLock(&lock);
    InitializeConditionVariable(&condition);
    QCOMPARE(acquire(&lock), 0);
    QCOMPARE(SleepConditionVariableSRW(&condition, &lock, milliseconds, flags), 1);
    QCOMPARE(elsewhere([&] { return TryAcquireSRWLockShared(&lock); }), EBUSY); // held exclusively now
    QCOMPARE(ReleaseSRWLockExclusive(&lock), 0);
}

// Many rounds; the waker takes the lock in the very moment in which the sleeper lets go of it, and signals hold the
// sleeper up there now and then. Unlocked by pthreads, since a release would end the lock.
void tst_Locks::sleepWithALockIsWoken()
{
    QFETCH(Wake, wake);
    QFETCH(DWORD, milliseconds);
    constexpr int rounds = 8000;
    SRWLOCK lock;
    CONDITION_VARIABLE condition;
    InitializeSRWLock(&lock);
    InitializeConditionVariable(&condition);
    int asked = 0;
    int answered = 0;
    std::atomic<bool> failed{false};
    const SignalHandler handler(SIGUSR1, [](int) {});
    std::thread waker([&, sleeper = pthread_self()] {
        for (int given = 0; given < rounds && !failed;) {
            pthread_kill(sleeper, SIGUSR1);
            if (TryAcquireSRWLockExclusive(&lock) != 0)
                continue;
            const bool isAsked = answered != asked;
            given = answered = asked;
            pthread_rwlock_unlock(&lock);
            if (isAsked)
                wake(&condition);
        }
    });
    AcquireSRWLockExclusive(&lock);
    while (asked < rounds && !failed) {
        ++asked;
        while (answered != asked && !failed)
            failed = SleepConditionVariableSRW(&condition, &lock, milliseconds, 0) != 0;
    }
    pthread_rwlock_unlock(&lock);
    waker.join();
    QVERIFY(!failed);
    QCOMPARE(answered, rounds);
}

void tst_Locks::wakeWithoutSleepers()
{
    CONDITION_VARIABLE condition;
    QCOMPARE(InitializeConditionVariable(&condition), 0);
    QCOMPARE(WakeConditionVariable(&condition), 0);
    QCOMPARE(WakeAllConditionVariable(&condition), 0);
}

XE_APPLESS_TEST(tst_Locks)
#include "tst_locks.moc"
