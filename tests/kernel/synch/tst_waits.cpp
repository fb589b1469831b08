#include "synchsupport.h"
#include "testclass.h"

#include "kernel/deadline.h"

// What all handles have in common: limits of waits, and calls with the wrong handle.

class tst_Waits : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(leftInSystem(), QString()); }

    void numbers();
    void deadline_data();
    void deadline();
    void onlyInfiniteIsForEver();
    void aLimitIsNotReachedTooSoon_data();
    void aLimitIsNotReachedTooSoon();
    void wrongHandle_data();
    void wrongHandle();
    void unknownTypeFails_data();
    void unknownTypeFails();

private:
    std::wstring name = semaphoreName(L"waits");
};

void tst_Waits::numbers()
{
    QCOMPARE(WAIT_OBJECT_0, 0U);
    QCOMPARE(WAIT_ABANDONED, 128U);
    QCOMPARE(WAIT_TIMEOUT, 258U);
    QCOMPARE(WAIT_FAILED, 0xFFFFFFFFU);
    QCOMPARE(INFINITE, 0xFFFFFFFFU);
}

void tst_Waits::deadline_data()
{
    QTest::addColumn<long>("nanoseconds");
    QTest::addColumn<DWORD>("milliseconds");
    QTest::addColumn<QString>("later"); // from second 100 on
    QTest::newRow("nothing") << 600000000L << 0U << "100.600000000";
    QTest::newRow("within the second") << 0L << 999U << "100.999000000";
    QTest::newRow("whole seconds") << 5L << 3000U << "103.000000005";
    QTest::newRow("over the second") << 600000000L << 1500U << "102.100000000";
    QTest::newRow("to the last nanosecond") << 500999999L << 499U << "100.999999999";
    QTest::newRow("exactly a second") << 501000000L << 499U << "101.000000000";
    QTest::newRow("the longest") << 999999999L << 0xFFFFFFFEU << "4295068.293999999";
}

void tst_Waits::deadline()
{
    QFETCH(long, nanoseconds);
    QFETCH(DWORD, milliseconds);
    const timespec later = xe::laterBy({100, nanoseconds}, milliseconds);
    QTEST(QStringLiteral("%1.%2").arg(later.tv_sec).arg(later.tv_nsec, 9, 10, QLatin1Char('0')), "later");
}

void tst_Waits::onlyInfiniteIsForEver()
{
    QVERIFY(!xe::deadlineAfter(0xFFFFFFFF));
    QVERIFY(xe::deadlineAfter(0xFFFFFFFE));
    QVERIFY(xe::deadlineAfter(0));
}

void tst_Waits::aLimitIsNotReachedTooSoon_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("event") << "event";
    QTest::newRow("mutex") << "mutex";
    QTest::newRow("semaphore") << "semaphore";
}

void tst_Waits::aLimitIsNotReachedTooSoon()
{
    QFETCH(QString, kind);
    const HANDLE handle = kind == QLatin1String("event")   ? CreateEvent(nullptr, TRUE, FALSE, nullptr)
                          : kind == QLatin1String("mutex") ? CreateMutex(nullptr, TRUE, nullptr)
                                                           : CreateSemaphore(nullptr, 0, 1, name.c_str());
    const timespec limit = *xe::deadlineAfter(30);
    QVERIFY(WaitForSingleObject(handle, 30) != WAIT_OBJECT_0);
    const timespec now = *xe::deadlineAfter(0);
    QVERIFY(std::make_pair(now.tv_sec, now.tv_nsec) >= std::make_pair(limit.tv_sec, limit.tv_nsec));
    ReleaseMutex(handle);
    QVERIFY(XeCloseHandle(handle));
}

void tst_Waits::wrongHandle_data()
{
    QTest::addColumn<QString>("accepted"); // the calls that give 1
    QTest::newRow("none") << "";
    QTest::newRow("mutex") << "ReleaseMutex";
    QTest::newRow("semaphore") << "ReleaseSemaphore";
    QTest::newRow("event") << "SetEvent";
    QTest::newRow("no object") << "";
}

void tst_Waits::wrongHandle()
{
    const std::map<QByteArray, HANDLE> handles = {{"none", nullptr},
                                                  {"mutex", CreateMutex(nullptr, FALSE, L"mutex")},
                                                  {"semaphore", CreateSemaphore(nullptr, 0, 9, name.c_str())},
                                                  {"event", CreateEvent(nullptr, FALSE, FALSE, L"event")},
                                                  {"no object", CreateSemaphore(nullptr, 0, 9, nullptr)}};
    const HANDLE handle = handles.at(QTest::currentDataTag());
    SetLastError(77);
    QStringList accepted;
    if (SetEvent(handle))
        accepted += QStringLiteral("SetEvent");
    if (ResetEvent(handle))
        accepted += QStringLiteral("ResetEvent");
    if (PulseEvent(handle))
        accepted += QStringLiteral("PulseEvent");
    if (ReleaseMutex(handle))
        accepted += QStringLiteral("ReleaseMutex");
    if (ReleaseSemaphore(handle, 1, nullptr))
        accepted += QStringLiteral("ReleaseSemaphore");
    QCOMPARE(GetLastError(), 77U);
    QTEST(accepted.join(QLatin1Char(' ')), "accepted");

    for (const auto& [kind, made] : handles)
        QCOMPARE(XeCloseHandle(made), BOOL(kind == "mutex" || kind == "semaphore" || kind == "event"));
    forget(handles.at("no object"));
}

void tst_Waits::unknownTypeFails_data()
{
    QTest::addColumn<std::uint32_t>("type");
    QTest::newRow("no object") << 0U;
    QTest::newRow("the number after the last kind") << 4U;
    QTest::newRow("a high number") << 0xFFFFFFFFU;
}

void tst_Waits::unknownTypeFails()
{
    QFETCH(std::uint32_t, type);
    XeHandle unknown = {};
    unknown.type = type;
    for (const HANDLE handle : {HANDLE(nullptr), HANDLE(&unknown)}) {
        QCOMPARE(waited(handle, 0), QStringLiteral("failed, 77"));
        QCOMPARE(waited(handle, 10, 110), QStringLiteral("failed, 110"));
        QCOMPARE(waited(handle, INFINITE), QStringLiteral("failed, 77"));
        QCOMPARE(SetEvent(handle), 0);
        QCOMPARE(ReleaseMutex(handle), 0);
        QCOMPARE(ReleaseSemaphore(handle, 1, nullptr), 0);
        QCOMPARE(XeCloseHandle(handle), 0);
    }
}

XE_APPLESS_TEST(tst_Waits)
#include "tst_waits.moc"
