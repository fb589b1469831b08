#include "synchsupport.h"
#include "testclass.h"

#include <limits>

class tst_Events : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(leftInSystem(), QString()); }

    void initialState_data();
    void initialState();
    void exIsAlwaysManualAndSignalled_data();
    void exIsAlwaysManualAndSignalled();
    void setCounts();
    void autoResetLetsOneGoHoweverOftenSet();
    void resetClears_data() { bothKinds(); }
    void resetClears();
    void pulseClears_data() { bothKinds(); }
    void pulseClears();
    void clearsAnyCount_data();
    void clearsAnyCount();
    void lastErrorOfTimedWaits();
    void unusableLock_data();
    void unusableLock();
    void unusableCondition();
    void wakesABlockedWaiter_data();
    void wakesABlockedWaiter();
    void manualResetWakesAll();
    void autoResetWakesOne();
    void anyWakeUpCounts();
    void aSetBeforeTheBlockIsForTheNextWait();
    void closeWithAWaiterInside();

private:
    static void bothKinds()
    {
        QTest::addColumn<BOOL>("manual");
        QTest::newRow("auto-reset") << FALSE;
        QTest::newRow("manual-reset") << TRUE;
    }
};

void tst_Events::initialState_data()
{
    QTest::addColumn<BOOL>("manual");
    QTest::addColumn<BOOL>("initial");
    QTest::addColumn<QString>("waits");
    constexpr BOOL lowest = std::numeric_limits<BOOL>::min();
    QTest::newRow("auto-reset, clear") << FALSE << 0 << "timeout timeout";
    QTest::newRow("auto-reset, signalled") << FALSE << 1 << "object timeout";
    QTest::newRow("auto-reset, signalled three times") << FALSE << 3 << "object timeout";
    QTest::newRow("auto-reset, negative") << FALSE << -1 << "object timeout";
    QTest::newRow("auto-reset, lowest") << FALSE << lowest << "object timeout";
    QTest::newRow("manual-reset, clear") << TRUE << 0 << "timeout timeout";
    QTest::newRow("manual-reset, signalled") << TRUE << 1 << "object object";
    QTest::newRow("manual-reset, negative") << TRUE << -5 << "object object";
    QTest::newRow("any number but 0 is manual-reset") << 2 << 1 << "object object";
    QTest::newRow("a number whose low byte is 0 is manual-reset") << 0x100 << 1 << "object object";
}

void tst_Events::initialState()
{
    QFETCH(BOOL, manual);
    QFETCH(BOOL, initial);
    QFETCH(QString, waits);
    const HANDLE event = CreateEvent(nullptr, manual, initial, nullptr);
    QCOMPARE(record(event).type, 3U);
    QCOMPARE(record(event).asEvent.signalCount.load(), std::int64_t(initial));
    QCOMPARE(record(event).asEvent.manualReset, manual != 0);
    QCOMPARE(record(event).asEvent.waitingThread, pthread_t());
    const QString first = waitName(WaitForSingleObject(event, 0));
    QCOMPARE(first + QLatin1Char(' ') + waitName(WaitForSingleObject(event, 0)), waits);
    QCOMPARE(XeCloseHandle(event), 1);
}

void tst_Events::exIsAlwaysManualAndSignalled_data()
{
    QTest::addColumn<DWORD>("flags");
    QTest::newRow("no flags") << 0U;
    QTest::newRow("manual reset") << 1U;
    QTest::newRow("initially set") << 2U;
    QTest::newRow("all flags") << 0xFFFFFFFFU;
}

void tst_Events::exIsAlwaysManualAndSignalled()
{
    QFETCH(DWORD, flags);
    const HANDLE event = CreateEventEx(nullptr, L"name", flags, flags);
    QVERIFY(record(event).asEvent.manualReset);
    QCOMPARE(record(event).asEvent.signalCount.load(), std::int64_t(1));
    QVERIFY(XeCloseHandle(event));
}

void tst_Events::setCounts()
{
    const HANDLE event = CreateEvent(nullptr, TRUE, -1, nullptr);
    QCOMPARE(SetEvent(event), 1);
    QCOMPARE(WaitForSingleObject(event, 0), WAIT_TIMEOUT); // -1 and 1 is 0
    QCOMPARE(SetEvent(event), 1);
    QCOMPARE(SetEvent(event), 1);
    QCOMPARE(record(event).asEvent.signalCount.load(), std::int64_t(2));
    QVERIFY(XeCloseHandle(event));
}

void tst_Events::autoResetLetsOneGoHoweverOftenSet()
{
    const HANDLE event = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    for (int i = 0; i < 5; ++i)
        QCOMPARE(SetEvent(event), 1);
    QCOMPARE(WaitForSingleObject(event, INFINITE), WAIT_OBJECT_0);
    QCOMPARE(record(event).asEvent.signalCount.load(), std::int64_t(0));
    QCOMPARE(WaitForSingleObject(event, 1), WAIT_TIMEOUT);
    QVERIFY(XeCloseHandle(event));
}

void tst_Events::resetClears()
{
    QFETCH(BOOL, manual);
    const HANDLE event = CreateEvent(nullptr, manual, 7, nullptr);
    QCOMPARE(ResetEvent(event), 0);
    QCOMPARE(record(event).asEvent.signalCount.load(), std::int64_t(0));
    QCOMPARE(ResetEvent(event), 0);
    QCOMPARE(WaitForSingleObject(event, 0), WAIT_TIMEOUT);
    QVERIFY(XeCloseHandle(event));
}

void tst_Events::pulseClears()
{
    QFETCH(BOOL, manual);
    const HANDLE event = CreateEvent(nullptr, manual, FALSE, nullptr);
    QCOMPARE(PulseEvent(event), 0);
    QCOMPARE(WaitForSingleObject(event, 0), WAIT_TIMEOUT);
    Waiter waiter(event, INFINITE);
    untilBlocked(event, waiter);
    QCOMPARE(PulseEvent(event), 0);
    QCOMPARE(waiter.result(), QStringLiteral("object, 77"));
    QCOMPARE(record(event).asEvent.signalCount.load(), std::int64_t(0));
    QVERIFY(XeCloseHandle(event));
}

void tst_Events::clearsAnyCount_data()
{
    QTest::addColumn<qint64>("count");
    QTest::newRow("0") << qint64(0);
    QTest::newRow("1") << qint64(1);
    QTest::newRow("-1") << qint64(-1);
    QTest::newRow("highest") << std::numeric_limits<qint64>::max();
    QTest::newRow("lowest") << std::numeric_limits<qint64>::min();
}

void tst_Events::clearsAnyCount()
{
    QFETCH(qint64, count);
    std::atomic<std::int64_t> state{count};
    interLockedSetFalse(state);
    QCOMPARE(state.load(), std::int64_t(0));
}

void tst_Events::lastErrorOfTimedWaits()
{
    const HANDLE event = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    QCOMPARE(waited(event, 0), QStringLiteral("timeout, 110"));
    QCOMPARE(waited(event, 10), QStringLiteral("timeout, 110"));
    SetEvent(event);
    QCOMPARE(waited(event, 0), QStringLiteral("object, 77"));
    SetEvent(event);
    QCOMPARE(waited(event, INFINITE), QStringLiteral("object, 77"));
    QVERIFY(XeCloseHandle(event));
}

void tst_Events::unusableLock_data()
{
    QTest::addColumn<DWORD>("milliseconds");
    QTest::addColumn<DWORD>("error");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("interrupted") << 10U << 4U << "timeout, 4";
    QTest::newRow("abandoned") << 10U << 36U << "abandoned, 36";
    QTest::newRow("a limit that is over") << 10U << 110U << "failed, 110";
    QTest::newRow("no error") << 10U << 0U << "failed, 0";
    QTest::newRow("for ever, interrupted") << INFINITE << 4U << "failed, 4";
    QTest::newRow("for ever, abandoned") << INFINITE << 36U << "failed, 36";
}

void tst_Events::unusableLock()
{
    QFETCH(DWORD, milliseconds);
    QFETCH(DWORD, error);
    QFETCH(QString, outcome);
    const HANDLE event = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    record(event).asEvent.mutex = nullptr;
    QCOMPARE(waited(event, milliseconds, error), outcome);
    QCOMPARE(SetEvent(event), 1);
    QCOMPARE(waited(event, milliseconds, error), QStringLiteral("object, %1").arg(error));
    QCOMPARE(XeCloseHandle(event), 1);
}

void tst_Events::unusableCondition()
{
    const HANDLE event = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    auto* const condition = std::exchange(record(event).asEvent.cond, nullptr);
    QCOMPARE(SetEvent(event), 0);
    QCOMPARE(PulseEvent(event), 0);
    QCOMPARE(waited(event, 0), QStringLiteral("failed, 77"));
    QCOMPARE(waited(event, INFINITE), QStringLiteral("failed, 77"));
    record(event).asEvent.cond = condition;
    QVERIFY(XeCloseHandle(event));
}

void tst_Events::wakesABlockedWaiter_data()
{
    QTest::addColumn<BOOL>("manual");
    QTest::addColumn<DWORD>("milliseconds");
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<qint64>("countAfterwards");
    QTest::newRow("auto-reset, for ever") << FALSE << INFINITE << "object, 77" << qint64(0);
    QTest::newRow("auto-reset, limited") << FALSE << 60000U << "object, 0" << qint64(0);
    QTest::newRow("manual-reset, for ever") << TRUE << INFINITE << "object, 77" << qint64(1);
    QTest::newRow("manual-reset, limited") << TRUE << 60000U << "object, 0" << qint64(1);
}

void tst_Events::wakesABlockedWaiter()
{
    QFETCH(BOOL, manual);
    QFETCH(DWORD, milliseconds);
    const HANDLE event = CreateEvent(nullptr, manual, FALSE, nullptr);
    Waiter waiter(event, milliseconds);
    untilBlocked(event, waiter);
    QCOMPARE(SetEvent(event), 1);
    QTEST(waiter.result(), "outcome");
    QCOMPARE(record(event).asEvent.waitingThread, pthread_t());
    QTEST(qint64(record(event).asEvent.signalCount), "countAfterwards");
    QVERIFY(XeCloseHandle(event));
}

void tst_Events::manualResetWakesAll()
{
    const HANDLE event = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    Waiter first(event, INFINITE);
    untilBlocked(event, first);
    Waiter second(event, INFINITE);
    untilBlocked(event, second);
    QCOMPARE(SetEvent(event), 1);
    QCOMPARE(first.result(), QStringLiteral("object, 77"));
    QCOMPARE(second.result(), QStringLiteral("object, 77"));
    QVERIFY(XeCloseHandle(event));
}

void tst_Events::autoResetWakesOne()
{
    const HANDLE event = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    Waiter first(event, INFINITE);
    untilBlocked(event, first);
    Waiter second(event, INFINITE);
    untilBlocked(event, second);
    QCOMPARE(SetEvent(event), 1);
    QTRY_VERIFY(first.hasEnded() || second.hasEnded());
    untilInside(event, 1);
    QVERIFY(first.hasEnded() != second.hasEnded());
    QCOMPARE(record(event).asEvent.signalCount.load(), std::int64_t(0));
    QCOMPARE(SetEvent(event), 1);
    QCOMPARE(first.result(), QStringLiteral("object, 77"));
    QCOMPARE(second.result(), QStringLiteral("object, 77"));
    QVERIFY(XeCloseHandle(event));
}

void tst_Events::anyWakeUpCounts()
{
    const HANDLE event = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    Waiter waiter(event, INFINITE);
    untilBlocked(event, waiter);
    QCOMPARE(pthread_cond_signal(record(event).asEvent.cond), 0);
    QCOMPARE(waiter.result(), QStringLiteral("object, 77"));
    QVERIFY(XeCloseHandle(event));
}

void tst_Events::aSetBeforeTheBlockIsForTheNextWait()
{
    const HANDLE event = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    auto* const lock = record(event).asEvent.mutex;
    pthread_mutex_lock(lock); // stops the waiter between its look at the state and its block
    // Longer than a busy machine takes to see it inside.
    Waiter waiter(event, 300);
    untilInside(event, 1);
    QCOMPARE(SetEvent(event), 1);
    pthread_mutex_unlock(lock);
    QCOMPARE(waiter.result(), QStringLiteral("timeout, 110"));
    QCOMPARE(WaitForSingleObject(event, 0), WAIT_OBJECT_0);
    QVERIFY(XeCloseHandle(event));
}

void tst_Events::closeWithAWaiterInside()
{
    const HANDLE event = CreateEvent(nullptr, FALSE, FALSE, L"name");
    Waiter waiter(event, INFINITE);
    untilBlocked(event, waiter);
    QCOMPARE(XeCloseHandle(event), 1);
    QVERIFY(g_mapXeHandle.isEmpty());

    // The record goes with its last user, and that is the waiter.
    auto* const lock = record(event).asEvent.mutex;
    pthread_mutex_lock(lock);
    pthread_cond_signal(record(event).asEvent.cond);
    pthread_mutex_unlock(lock);
    QCOMPARE(waiter.result(), QStringLiteral("object, 77"));
}

XE_APPLESS_TEST(tst_Events)
#include "tst_events.moc"
