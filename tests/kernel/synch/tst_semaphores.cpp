#include "synchsupport.h"
#include "testclass.h"

#include <climits>

#include <fcntl.h>

// Semaphores within one process.

namespace {

int systemValue(sem_t* semaphore)
{
    int value = -1;
    sem_getvalue(semaphore, &value);
    return value;
}

/// The system's semaphore of a name, opened beside the library.
class SystemSemaphore
{
public:
    SystemSemaphore(const std::wstring& wideName, unsigned initial)
        : name(QString::fromStdWString(wideName).toUtf8()),
          semaphore(sem_open(name, O_CREAT, 0700, initial))
    {}
    ~SystemSemaphore()
    {
        sem_close(semaphore);
        sem_unlink(name);
    }
    Q_DISABLE_COPY_MOVE(SystemSemaphore)

    int value() const { return systemValue(semaphore); }

private:
    const QByteArray name;
    sem_t* const semaphore;
};

DWORD errorOfSystemOpen(const char* name, unsigned initial)
{
    errno = 0;
    sem_t* const opened = sem_open(name, O_CREAT, 0700, initial);
    const DWORD error = GetLastError();
    if (opened != SEM_FAILED) {
        sem_close(opened);
        sem_unlink(name);
    }
    return error;
}

} // namespace

class tst_Semaphores : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(leftInSystem(), QString()); }

    void creates();
    void noObject_data();
    void noObject();
    void nameAsItIs_data();
    void nameAsItIs();
    void refusedBySystem_data();
    void refusedBySystem();
    void lastErrorIsThatOfTheSystemsOpen();
    void joinsWhatTheSystemHas();
    void wait_data();
    void wait();
    void waitTakesFromTheCountWhileItCan();
    void interruptedWait_data();
    void interruptedWait();
    void release_data();
    void release();
    void releaseBeyondTheSystemsLimit();
    void previousCountMayBeNull();
    void closePostsOnceAtACountOf0_data();
    void closePostsOnceAtACountOf0();
    void closeRemovesTheNameAsGiven();
    void closeLetsAWaiterGo();
    void creatorWithOpenersStays();
    void openerLeavesTheNameAlone();

private:
    std::wstring name = semaphoreName(L"a");
};

void tst_Semaphores::creates()
{
    const HANDLE semaphore = CreateSemaphoreEx(nullptr, 3, 5, name.c_str(), 1, 2);
    const auto& fields = record(semaphore).asSemaphore;
    QCOMPARE(record(semaphore).type, 2U);
    QCOMPARE(QString::fromUtf8(fields.name), QString::fromStdWString(name));
    QCOMPARE(fields.countBlock->count, std::int64_t(3));
    QCOMPARE(fields.countBlock->maximum, std::int64_t(5));
    QCOMPARE(fields.countBlock->openCountOwner, &fields.openCount);
    QCOMPARE(fields.openCount, 0);
    QCOMPARE(fields.lastThread, pthread_t());
    QCOMPARE(systemValue(fields.semaphore), 3);
    QCOMPARE(OpenSemaphore(0, FALSE, -1, name.c_str()), semaphore);
    QCOMPARE(fields.openCount, 0);
    QCOMPARE(XeCloseHandle(semaphore), 1);
    QVERIFY(!QFile::exists(fileOf(name)));
}

void tst_Semaphores::noObject_data()
{
    QTest::addColumn<long>("initial");
    QTest::addColumn<long>("maximum");
    QTest::addColumn<bool>("named");
    QTest::newRow("no name") << 1L << 1L << false;
    QTest::newRow("negative initial count") << -1L << 1L << true;
    QTest::newRow("maximum 0") << 0L << 0L << true;
    QTest::newRow("negative maximum") << 0L << -1L << true;
    QTest::newRow("lowest numbers") << LONG_MIN << LONG_MIN << true;
}

void tst_Semaphores::noObject()
{
    QFETCH(long, initial);
    QFETCH(long, maximum);
    QFETCH(bool, named);
    const LPCWSTR key = named ? name.c_str() : nullptr;
    HANDLE semaphore = nullptr;
    QCOMPARE(lastErrorAfter(semaphore, 77, [&] { return CreateSemaphore(nullptr, initial, maximum, key); }), 2U);
    QCOMPARE(record(semaphore).type, 0U);
    QCOMPARE(static_cast<HANDLE>(g_mapXeHandle.value(key)), semaphore);
    QVERIFY(!QFile::exists(fileOf(name)));
    QCOMPARE(OpenSemaphore(0, FALSE, 1, key), nullptr);
    QCOMPARE(waited(semaphore, 0), QStringLiteral("failed, 77"));
    QCOMPARE(waited(semaphore, INFINITE), QStringLiteral("failed, 77"));
    QCOMPARE(ReleaseSemaphore(semaphore, 1, nullptr), 0);
    QCOMPARE(XeCloseHandle(semaphore), 0);

    // Nothing is made that nobody could free, and it does not stand in the way of a good one.
    HANDLE other = nullptr;
    QCOMPARE(lastErrorAfter(other, 77, [&] { return CreateSemaphore(nullptr, -1, 1, key); }), 6U);
    QCOMPARE(other, semaphore);
    forget(other);
}

void tst_Semaphores::nameAsItIs_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("with a slash in front") << QStringLiteral("/xe_test_%1_b").arg(getpid());
    QTest::newRow("without a slash") << QStringLiteral("xe_test_%1_b").arg(getpid());
    QTest::newRow("letters outside ASCII") << QStringLiteral("/xe_test_%1_Größe字😀").arg(getpid());
    QTest::newRow("blanks and backslashes") << QStringLiteral("/xe_test_%1_Local\\a b").arg(getpid());
}

void tst_Semaphores::nameAsItIs()
{
    QFETCH(QString, text);
    const std::wstring wide = text.toStdWString();
    const HANDLE semaphore = CreateSemaphore(nullptr, 1, 1, wide.c_str());
    QCOMPARE(QString::fromUtf8(record(semaphore).asSemaphore.name), text);
    QVERIFY(record(semaphore).asSemaphore.semaphore);
    QVERIFY(QFile::exists(fileOf(wide)));
    QCOMPARE(XeCloseHandle(semaphore), 1);
    QVERIFY(!QFile::exists(fileOf(wide)));
}

void tst_Semaphores::refusedBySystem_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<long>("initial");
    QTest::newRow("empty name") << QString() << 1L;
    QTest::newRow("slash inside") << QStringLiteral("/xe_test/b") << 1L;
    QTest::newRow("too long") << QString(300, QLatin1Char('x')) << 1L;
    QTest::newRow("initial count above the system's limit")
        << QStringLiteral("/xe_test_%1_c").arg(getpid()) << 2147483648L;
    QTest::newRow("initial count of more than 32 bits") << QStringLiteral("/xe_test_%1_c").arg(getpid()) << 4294967296L;
}

void tst_Semaphores::refusedBySystem()
{
    QFETCH(QString, text);
    QFETCH(long, initial);
    const std::wstring wide = text.toStdWString();
    const DWORD expected = errorOfSystemOpen(text.toUtf8(), initial > 1 ? UINT_MAX : 1);
    HANDLE semaphore = nullptr;
    QCOMPARE(lastErrorAfter(semaphore, 77, [&] { return CreateSemaphore(nullptr, initial, LONG_MAX, wide.c_str()); }),
             expected);
    auto& fields = record(semaphore).asSemaphore;
    QCOMPARE(record(semaphore).type, 2U);
    QVERIFY(!fields.semaphore);
    QCOMPARE(QString::fromUtf8(fields.name), text);
    QCOMPARE(waited(semaphore, 0), QStringLiteral("failed, 77"));
    QCOMPARE(waited(semaphore, INFINITE), QStringLiteral("failed, 77"));
    long previous = -7;
    QCOMPARE(ReleaseSemaphore(semaphore, 1, &previous), 0);
    QCOMPARE(previous, initial);
    QCOMPARE(fields.countBlock->count, std::int64_t(initial + 1)); // counted, as after any failed post
    QCOMPARE(XeCloseHandle(semaphore), 1);
    QCOMPARE(g_mapXeHandle.keys(), QList<const wchar_t*>{wide.c_str()});
    g_mapXeHandle.clear();
}

void tst_Semaphores::lastErrorIsThatOfTheSystemsOpen()
{
    const DWORD expected = errorOfSystemOpen(QString::fromStdWString(name).toUtf8(), 1);
    HANDLE semaphore = nullptr;
    QCOMPARE(lastErrorAfter(semaphore, 77, [&] { return CreateSemaphore(nullptr, 1, 1, name.c_str()); }), expected);
    QVERIFY(XeCloseHandle(semaphore));

    const wchar_t noUtf8[] = {L'/', wchar_t(0xD800), 0};
    QCOMPARE(lastErrorAfter(semaphore, 77, [&] { return CreateSemaphore(nullptr, 1, 1, noUtf8); }), DWORD(EINVAL));
    QVERIFY(!record(semaphore).asSemaphore.semaphore);
    QCOMPARE(XeCloseHandle(semaphore), 1);
    g_mapXeHandle.clear();
}

void tst_Semaphores::joinsWhatTheSystemHas()
{
    const SystemSemaphore system(name, 2);
    HANDLE semaphore = nullptr;
    QCOMPARE(lastErrorAfter(semaphore, 77, [&] { return CreateSemaphore(nullptr, 7, 9, name.c_str()); }), 0U);
    const auto& book = *record(semaphore).asSemaphore.countBlock;
    QCOMPARE(book.count, std::int64_t(7));
    QCOMPARE(system.value(), 2);
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_OBJECT_0);
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_OBJECT_0);
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_TIMEOUT);
    QCOMPARE(book.count, std::int64_t(5));
    QCOMPARE(system.value(), 0);
    QCOMPARE(XeCloseHandle(semaphore), 1);
    QVERIFY(!QFile::exists(fileOf(name))); // whoever made it
}

void tst_Semaphores::wait_data()
{
    QTest::addColumn<long>("initial");
    QTest::addColumn<DWORD>("milliseconds");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("at once") << 2L << 0U << "object, 77";
    QTest::newRow("limited") << 2L << 60000U << "object, 77";
    QTest::newRow("for ever") << 2L << INFINITE << "object, 77";
    QTest::newRow("none left, at once") << 0L << 0U << "timeout, 110";
    QTest::newRow("none left, limited") << 0L << 10U << "timeout, 110";
}

void tst_Semaphores::wait()
{
    QFETCH(long, initial);
    QFETCH(DWORD, milliseconds);
    const HANDLE semaphore = CreateSemaphore(nullptr, initial, 4, name.c_str());
    auto& fields = record(semaphore).asSemaphore;
    QTEST(waited(semaphore, milliseconds), "outcome");
    QCOMPARE(fields.lastThread, initial ? pthread_self() : pthread_t());
    QCOMPARE(fields.countBlock->count, std::int64_t(std::max(initial - 1, 0L)));
    QCOMPARE(ReleaseSemaphore(semaphore, 1, nullptr), 1);
    QCOMPARE(fields.lastThread, pthread_t());
    QVERIFY(XeCloseHandle(semaphore));
}

void tst_Semaphores::waitTakesFromTheCountWhileItCan()
{
    const SystemSemaphore system(name, 2);
    const HANDLE semaphore = CreateSemaphore(nullptr, 1, 4, name.c_str());
    const auto& book = *record(semaphore).asSemaphore.countBlock;
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_OBJECT_0);
    QCOMPARE(book.count, std::int64_t(0));
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_OBJECT_0);
    QCOMPARE(book.count, std::int64_t(0));
    QVERIFY(XeCloseHandle(semaphore));
}

void tst_Semaphores::interruptedWait_data()
{
    QTest::addColumn<DWORD>("milliseconds");
    QTest::newRow("for ever") << INFINITE;
    QTest::newRow("limited") << 60000U;
}

void tst_Semaphores::interruptedWait()
{
    QFETCH(DWORD, milliseconds);
    const SignalHandler handler(SIGUSR1, [](int) {});
    const HANDLE semaphore = CreateSemaphore(nullptr, 0, 4, name.c_str());
    Waiter waiter(semaphore, milliseconds);
    untilInside(semaphore, 1);
    while (!waiter.hasEnded()) {
        pthread_kill(waiter.id(), SIGUSR1);
        std::this_thread::yield();
    }
    QCOMPARE(waiter.result(), QStringLiteral("failed, %1").arg(EINTR));
    QCOMPARE(record(semaphore).asSemaphore.lastThread, pthread_t());
    QVERIFY(XeCloseHandle(semaphore));
}

void tst_Semaphores::release_data()
{
    QTest::addColumn<long>("initial");
    QTest::addColumn<long>("maximum");
    QTest::addColumn<long>("number");
    QTest::addColumn<BOOL>("result");
    QTest::addColumn<long>("previous"); // -7: not written
    QTest::addColumn<int>("count");
    QTest::newRow("one from 0") << 0L << 10L << 1L << 1 << 0L << 1;
    QTest::newRow("three from 0 post three times") << 0L << 10L << 3L << 1 << 0L << 3;
    QTest::newRow("three from 1 post twice") << 1L << 10L << 3L << 1 << 1L << 3;
    QTest::newRow("three from 2 post once") << 2L << 10L << 3L << 1 << 2L << 3;
    QTest::newRow("three from 3 post once") << 3L << 10L << 3L << 1 << 3L << 4;
    QTest::newRow("three from 5 post once") << 5L << 10L << 3L << 1 << 5L << 6;
    QTest::newRow("up to the maximum") << 9L << 10L << 1L << 1 << 9L << 10;
    QTest::newRow("three up to the maximum post once") << 7L << 10L << 3L << 1 << 7L << 8;
    QTest::newRow("beyond the maximum") << 10L << 10L << 1L << 0 << -7L << 10;
    QTest::newRow("three beyond the maximum") << 8L << 10L << 3L << 0 << -7L << 8;
    QTest::newRow("initial count above the maximum") << 9L << 4L << 1L << 0 << -7L << 9;
    QTest::newRow("none") << 5L << 10L << 0L << 0 << -7L << 5;
    QTest::newRow("a negative number") << 5L << 10L << -1L << 0 << -7L << 5;
    QTest::newRow("the lowest number") << 5L << 10L << LONG_MIN << 0 << -7L << 5;
    QTest::newRow("a sum beyond 64 bits") << 5L << LONG_MAX << LONG_MAX << 0 << -7L << 5;
}

void tst_Semaphores::release()
{
    QFETCH(long, initial);
    QFETCH(long, maximum);
    QFETCH(long, number);
    QFETCH(int, count);
    const HANDLE semaphore = CreateSemaphore(nullptr, initial, maximum, name.c_str());
    long previous = -7;
    QTEST(ReleaseSemaphore(semaphore, number, &previous), "result");
    QTEST(previous, "previous");
    QCOMPARE(record(semaphore).asSemaphore.countBlock->count, std::int64_t(count));
    QCOMPARE(systemValue(record(semaphore).asSemaphore.semaphore), count);
    QVERIFY(XeCloseHandle(semaphore));
}

void tst_Semaphores::releaseBeyondTheSystemsLimit()
{
    const HANDLE semaphore = CreateSemaphore(nullptr, SEM_VALUE_MAX - 1L, LONG_MAX, name.c_str());
    auto& fields = record(semaphore).asSemaphore;
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_OBJECT_0);
    long previous = -7;
    BOOL released = 1;
    const DWORD error =
        lastErrorAfter(released, 77, [&] { return ReleaseSemaphore(semaphore, LONG_MAX / 2, &previous); });
    QCOMPARE(released, 0);
    QCOMPARE(error, DWORD(EOVERFLOW));
    QCOMPARE(previous, SEM_VALUE_MAX - 2L);
    QCOMPARE(systemValue(fields.semaphore), SEM_VALUE_MAX);
    QCOMPARE(fields.countBlock->count, std::int64_t(SEM_VALUE_MAX) + 1); // the failed post is counted
    QCOMPARE(fields.lastThread, pthread_self());
    QVERIFY(XeCloseHandle(semaphore));
}

void tst_Semaphores::previousCountMayBeNull()
{
    const HANDLE semaphore = CreateSemaphore(nullptr, 0, 4, name.c_str());
    QCOMPARE(ReleaseSemaphore(semaphore, 2, nullptr), 1);
    QCOMPARE(record(semaphore).asSemaphore.countBlock->count, std::int64_t(2));
    QVERIFY(XeCloseHandle(semaphore));
}

void tst_Semaphores::closePostsOnceAtACountOf0_data()
{
    QTest::addColumn<long>("initial");
    QTest::addColumn<int>("value");
    QTest::newRow("count 0") << 0L << 1;
    QTest::newRow("count 1") << 1L << 1;
    QTest::newRow("count 2") << 2L << 2;
}

void tst_Semaphores::closePostsOnceAtACountOf0()
{
    QFETCH(long, initial);
    QFETCH(int, value);
    const HANDLE semaphore = CreateSemaphore(nullptr, initial, 4, name.c_str());
    const SystemSemaphore system(name, 9);
    QCOMPARE(XeCloseHandle(semaphore), 1);
    QCOMPARE(system.value(), value);
}

void tst_Semaphores::closeRemovesTheNameAsGiven()
{
    std::wstring text = semaphoreName(L"changed");
    const std::wstring given = text;
    const HANDLE semaphore = CreateSemaphore(nullptr, 1, 1, text.data());
    text.assign(text.size(), L'?');
    QVERIFY(QFile::exists(fileOf(given)));
    QCOMPARE(XeCloseHandle(semaphore), 1);
    QVERIFY(!QFile::exists(fileOf(given)));
}

void tst_Semaphores::closeLetsAWaiterGo()
{
    const HANDLE semaphore = CreateSemaphore(nullptr, 0, 1, name.c_str());
    Waiter waiter(semaphore, INFINITE);
    untilInside(semaphore, 1);
    QCOMPARE(XeCloseHandle(semaphore), 1);
    QVERIFY(g_mapXeHandle.isEmpty());
    QVERIFY(!QFile::exists(fileOf(name)));
    QCOMPARE(waiter.result(), QStringLiteral("object, 77"));
}

void tst_Semaphores::creatorWithOpenersStays()
{
    const HANDLE semaphore = CreateSemaphore(nullptr, 0, 1, name.c_str());
    auto& fields = record(semaphore).asSemaphore;
    const std::unique_ptr<XeSemaphoreCount> book(fields.countBlock);
    sem_t* const system = fields.semaphore;
    fields.openCount = 1;
    QCOMPARE(XeCloseHandle(semaphore), 1);
    QVERIFY(g_mapXeHandle.isEmpty());
    QVERIFY(QFile::exists(fileOf(name)));
    QCOMPARE(book->count, std::int64_t(0));
    QCOMPARE(systemValue(system), 0);
    sem_close(system);
    QFile::remove(fileOf(name));
}

void tst_Semaphores::openerLeavesTheNameAlone()
{
    const HANDLE creator = CreateSemaphore(nullptr, 0, 1, name.c_str());
    const std::wstring sameText = name;
    const HANDLE opener = CreateSemaphore(nullptr, 0, 1, sameText.c_str());
    auto& fields = record(creator).asSemaphore;
    delete std::exchange(record(opener).asSemaphore.countBlock, fields.countBlock);
    fields.openCount = 1;
    QCOMPARE(XeCloseHandle(opener), 1);
    QCOMPARE(fields.openCount, 0);
    QCOMPARE(fields.countBlock->count, std::int64_t(1));
    QCOMPARE(systemValue(fields.semaphore), 1);
    QVERIFY(QFile::exists(fileOf(name)));
    QCOMPARE(XeCloseHandle(creator), 1);
    QVERIFY(!QFile::exists(fileOf(name)));
}

XE_APPLESS_TEST(tst_Semaphores)
#include "tst_semaphores.moc"
