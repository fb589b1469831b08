#include "synchsupport.h"
#include "testclass.h"

#include <functional>
#include <memory>

// Many threads on one object. Waits on events are limited and repeated, as callers have to.

namespace {

constexpr int threadCount = 8;

/// Runs the body on all threads at once.
template <class Body>
void onThreads(int count, Body body)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i)
        threads.emplace_back(body, i);
    for (std::thread& thread : threads)
        thread.join();
}

/// The number of waits until the event came; -1 when it did not come at all.
int waitsUntil(HANDLE event)
{
    for (int i = 1; i <= 20000; ++i) {
        const DWORD result = WaitForSingleObject(event, 5);
        if (result == WAIT_OBJECT_0)
            return i;
        if (result != WAIT_TIMEOUT)
            break;
    }
    return -1;
}

// Until the waiter is inside; or was, when its limit is over already.
void untilInside(HANDLE handle, const Waiter& waiter)
{
    const auto& users = static_cast<xe::HandleRecord&>(record(handle)).users;
    while (users == 1 && !waiter.hasEnded())
        std::this_thread::yield();
}

} // namespace

Q_DECLARE_METATYPE(std::function<HANDLE(LPCWSTR)>)

class tst_SynchStress : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(leftInSystem(), QString()); }

    void mutexExcludes_data();
    void mutexExcludes();
    void eventsPassATurnBackAndForth();
    void manualResetLetsEveryoneGo();
    void autoResetWithManySettersAndWaiters();
    void clearsAndSetsOfOneEvent();
    void semaphoreLimits();
    void semaphoreKeepsItsCount();
    void eventClosedByTheWaiter();
    void semaphoreClosedByTheWaiter();
    void closedWithAWaiterInside_data();
    void closedWithAWaiterInside();
};

void tst_SynchStress::mutexExcludes_data()
{
    QTest::addColumn<DWORD>("milliseconds");
    QTest::newRow("for ever") << INFINITE;
    QTest::newRow("limited") << 60000U;
}

void tst_SynchStress::mutexExcludes()
{
    QFETCH(DWORD, milliseconds);
    constexpr int rounds = 5000;
    const HANDLE mutex = CreateMutex(nullptr, FALSE, nullptr);
    int sum = 0;
    onThreads(threadCount, [&](int) {
        for (int i = 0; i < rounds; ++i) {
            if (WaitForSingleObject(mutex, milliseconds) != WAIT_OBJECT_0)
                continue;
            ++sum;
            ReleaseMutex(mutex);
        }
    });
    QCOMPARE(sum, threadCount * rounds);
    QCOMPARE(record(mutex).asMutex.ownerThread, pthread_t());
    QVERIFY(XeCloseHandle(mutex));
    QVERIFY(g_mapXeHandle.isEmpty());
}

// The turn itself says whose it is, since a signal that comes late can wake a thread once too often.
void tst_SynchStress::eventsPassATurnBackAndForth()
{
    constexpr int turns = 6000;
    const HANDLE events[] = {CreateEvent(nullptr, FALSE, FALSE, L"ping"), CreateEvent(nullptr, FALSE, FALSE, L"pong")};
    std::atomic<int> turn{0};
    std::atomic<int> failures{0};
    onThreads(2, [&](int side) {
        while (turn < turns) {
            if (turn % 2 == side) {
                ++turn;
                failures += SetEvent(events[1 - side]) != 1;
            } else
                failures += WaitForSingleObject(events[side], 5) == WAIT_FAILED;
        }
    });
    QCOMPARE(failures.load(), 0);
    QVERIFY(XeCloseHandle(events[0]));
    QVERIFY(XeCloseHandle(events[1]));
}

void tst_SynchStress::manualResetLetsEveryoneGo()
{
    for (int round = 0; round < 50; ++round) {
        const HANDLE event = CreateEvent(nullptr, TRUE, FALSE, nullptr);
        std::atomic<int> gone{0};
        onThreads(threadCount + 1, [&](int i) {
            if (i == threadCount)
                SetEvent(event);
            else if (waitsUntil(event) > 0)
                ++gone;
        });
        QCOMPARE(gone.load(), threadCount);
        QCOMPARE(WaitForSingleObject(event, 0), WAIT_OBJECT_0);
        QVERIFY(XeCloseHandle(event));
    }
}

// A set lets at least one go. Setters repeat until all have gone, since sets that meet are one.
void tst_SynchStress::autoResetWithManySettersAndWaiters()
{
    constexpr int rounds = 300;
    const HANDLE event = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    std::atomic<int> failures{0};
    std::atomic<int> busy{threadCount};
    onThreads(2 * threadCount, [&](int i) {
        if (i < threadCount) {
            for (int round = 0; round < rounds; ++round)
                failures += waitsUntil(event) < 0;
            --busy;
        }
        while (i >= threadCount && busy > 0) {
            failures += SetEvent(event) != 1;
            std::this_thread::yield();
        }
    });
    QCOMPARE(failures.load(), 0);
    QVERIFY(XeCloseHandle(event));
}

void tst_SynchStress::clearsAndSetsOfOneEvent()
{
    const HANDLE event = CreateEvent(nullptr, TRUE, 3, nullptr);
    std::atomic<int> failures{0};
    onThreads(threadCount, [&](int i) {
        for (int round = 0; round < 2000; ++round) {
            switch (i % 4) {
            case 0:
                failures += SetEvent(event) != 1;
                break;
            case 1:
                failures += ResetEvent(event) != 0;
                break;
            case 2:
                failures += PulseEvent(event) != 0;
                break;
            default:
                failures += WaitForSingleObject(event, 0) == WAIT_FAILED;
            }
        }
    });
    QCOMPARE(failures.load(), 0);
    ResetEvent(event);
    QCOMPARE(WaitForSingleObject(event, 0), WAIT_TIMEOUT);
    QVERIFY(XeCloseHandle(event));
}

void tst_SynchStress::semaphoreLimits()
{
    constexpr int places = 3;
    const std::wstring name = semaphoreName(L"limit");
    const HANDLE semaphore = CreateSemaphore(nullptr, places, places, name.c_str());
    std::atomic<int> inside{0};
    std::atomic<int> failures{0};
    onThreads(threadCount, [&](int i) {
        for (int round = 0; round < 2000; ++round) {
            failures += WaitForSingleObject(semaphore, i % 2 ? 60000U : INFINITE) != WAIT_OBJECT_0;
            failures += ++inside > places;
            --inside;
            failures += ReleaseSemaphore(semaphore, 1, nullptr) != 1;
        }
    });
    QCOMPARE(failures.load(), 0);
    QCOMPARE(record(semaphore).asSemaphore.countBlock->count, std::int64_t(places));
    QVERIFY(XeCloseHandle(semaphore));
}

// One hand to the next: each unit that is given is taken once, and the count of the process agrees with the system's.
void tst_SynchStress::semaphoreKeepsItsCount()
{
    constexpr int rounds = 3000;
    const std::wstring name = semaphoreName(L"count");
    const HANDLE semaphore = CreateSemaphore(nullptr, 0, threadCount * rounds, name.c_str());
    std::atomic<int> failures{0};
    onThreads(threadCount, [&](int i) {
        for (int round = 0; round < rounds; ++round) {
            if (i % 2)
                failures += ReleaseSemaphore(semaphore, 1, nullptr) != 1;
            else
                failures += WaitForSingleObject(semaphore, 60000) != WAIT_OBJECT_0;
        }
    });
    QCOMPARE(failures.load(), 0);
    QCOMPARE(record(semaphore).asSemaphore.countBlock->count, std::int64_t(0));
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_TIMEOUT);
    QVERIFY(XeCloseHandle(semaphore));
}

// Whoever waited for the event closes it at once, while the other is on its way out of SetEvent.
void tst_SynchStress::eventClosedByTheWaiter()
{
    for (int round = 0; round < 500; ++round) {
        const HANDLE event = CreateEvent(nullptr, round % 2, FALSE, nullptr);
        std::thread setter([=] { SetEvent(event); });
        const int waits = waitsUntil(event);
        const BOOL closed = XeCloseHandle(event);
        setter.join();
        QVERIFY(waits > 0);
        QCOMPARE(closed, 1);
    }
}

void tst_SynchStress::semaphoreClosedByTheWaiter()
{
    const std::wstring name = semaphoreName(L"closed");
    for (int round = 0; round < 500; ++round) {
        const HANDLE semaphore = CreateSemaphore(nullptr, 0, 1, name.c_str());
        std::thread giver([=] { ReleaseSemaphore(semaphore, 1, nullptr); });
        const DWORD result = WaitForSingleObject(semaphore, INFINITE);
        const BOOL closed = XeCloseHandle(semaphore);
        giver.join();
        QCOMPARE(result, WAIT_OBJECT_0);
        QCOMPARE(closed, 1);
    }
}

void tst_SynchStress::closedWithAWaiterInside_data()
{
    QTest::addColumn<std::function<HANDLE(LPCWSTR)>>("create");
    const auto row = [](const char* title, const std::function<HANDLE(LPCWSTR)>& create) {
        QTest::newRow(title) << create;
    };
    row("auto-reset event", [](LPCWSTR name) { return CreateEvent(nullptr, FALSE, FALSE, name); });
    row("manual-reset event", [](LPCWSTR name) { return CreateEvent(nullptr, TRUE, FALSE, name); });
    row("mutex of a thread that has ended", [](LPCWSTR name) {
        const HANDLE mutex = CreateMutex(nullptr, FALSE, name);
        std::thread([mutex] { WaitForSingleObject(mutex, 0); }).join();
        return mutex;
    });
    row("semaphore", [](LPCWSTR name) { return CreateSemaphore(nullptr, 0, 1, name); });
}

// Whoever closes does not wait for the waiter, and what they both use goes with the last of them.
void tst_SynchStress::closedWithAWaiterInside()
{
    QFETCH(std::function<HANDLE(LPCWSTR)>, create);
    constexpr int rounds = underThreadSanitizer ? 2500 : 500; // of each kind
    constexpr int batch = 10;
    std::vector<std::wstring> names;
    for (int i = 0; i < batch; ++i)
        names.push_back(semaphoreName((L"inside" + std::to_wstring(i)).c_str()));
    for (int round = 0; round < rounds; round += batch) {
        std::vector<HANDLE> handles;
        std::vector<std::unique_ptr<Waiter>> waiters;
        for (const std::wstring& name : names) {
            handles.push_back(create(name.c_str()));
            waiters.push_back(std::make_unique<Waiter>(handles.back(), 5));
        }
        for (int i = 0; i < batch; ++i)
            untilInside(handles[i], *waiters[i]);
        for (const HANDLE handle : handles)
            QCOMPARE(XeCloseHandle(handle), 1);
        waiters.clear();
        g_mapXeHandle.clear(); // of mutexes an entry stays
    }
}

XE_APPLESS_TEST(tst_SynchStress)
#include "tst_synchstress.moc"
