#include "synchsupport.h"
#include "testclass.h"

// The table of names: creating, finding and closing.

namespace {

const wchar_t nameText[] = L"/xe_test_table";
const wchar_t sameText[] = L"/xe_test_table";
const LPCWSTR tableName = nameText;

// Names of semaphores must be the system's own, so those objects stand under a name with the process number.
std::wstring semaphoreText = semaphoreName(L"table");

struct Kind
{
    std::uint32_t type;
    HANDLE (*create)(LPCWSTR name);
    HANDLE (*open)(LPCWSTR name);
};

const Kind mutexes = {1, [](LPCWSTR n) { return CreateMutex(nullptr, FALSE, n); },
                      [](LPCWSTR n) { return OpenMutex(0, FALSE, n); }};
const Kind semaphores = {2, [](LPCWSTR n) { return CreateSemaphore(nullptr, 1, 4, n); },
                         [](LPCWSTR n) { return OpenSemaphore(0, FALSE, 4, n); }};
const Kind events = {3, [](LPCWSTR n) { return CreateEvent(nullptr, FALSE, TRUE, n); },
                     [](LPCWSTR n) { return OpenEvent(0, FALSE, n); }};

// A static object of the host that has an event from before main() until after it.
class EarlyAndLate
{
public:
    EarlyAndLate() : event(CreateEvent(nullptr, TRUE, TRUE, L"early")) { g_mapXeHandle.clear(); }
    ~EarlyAndLate()
    {
        const HANDLE late = CreateEvent(nullptr, TRUE, TRUE, L"late");
        if (WaitForSingleObject(late, 0) != WAIT_OBJECT_0 || !XeCloseHandle(late) || !XeCloseHandle(event))
            std::_Exit(9);
    }
    Q_DISABLE_COPY_MOVE(EarlyAndLate)

    const HANDLE event;
} earlyAndLate;

} // namespace

Q_DECLARE_METATYPE(const Kind*)
Q_DECLARE_METATYPE(std::function<void(XeHandle&)>)

class tst_HandleTable : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(leftInSystem(), QString()); }

    void staticObjectsMayUseIt() { QCOMPARE(WaitForSingleObject(earlyAndLate.event, 0), WAIT_OBJECT_0); }
    void findsByNameAndKind_data();
    void findsByNameAndKind();
    void knowsAddressesAndNoText();
    void createGivesWhatIsThere_data() { kinds(); }
    void createGivesWhatIsThere();
    void argumentsOfASecondCreateAreNotApplied();
    void namelessObjectsOfAKindAreOne();
    void anotherKindTakesTheName();
    void firstCreationLeavesTheErrorOfTheSearch();
    void closeTakesEveryEntry_data() { kinds(); }
    void closeTakesEveryEntry();
    void closeRefuses_data();
    void closeRefuses();
    void entryOfAFailedCloseStays_data();
    void entryOfAFailedCloseStays();
    void failedCloseOutsideTheTable();

private:
    static void kinds()
    {
        QTest::addColumn<const Kind*>("kind");
        QTest::newRow("mutex") << &mutexes;
        QTest::newRow("semaphore") << &semaphores;
        QTest::newRow("event") << &events;
    }
};

void tst_HandleTable::findsByNameAndKind_data()
{
    QTest::addColumn<const Kind*>("made");
    QTest::addColumn<const Kind*>("wanted");
    QTest::addColumn<DWORD>("error");
    const Kind* const none = nullptr;
    QTest::newRow("no mutex in an empty table") << none << &mutexes << 2U;
    QTest::newRow("no semaphore in an empty table") << none << &semaphores << 2U;
    QTest::newRow("no event in an empty table") << none << &events << 2U;
    QTest::newRow("a mutex") << &mutexes << &mutexes << 77U;
    QTest::newRow("a mutex is no semaphore") << &mutexes << &semaphores << 6U;
    QTest::newRow("a mutex is no event") << &mutexes << &events << 6U;
    QTest::newRow("a semaphore is no mutex") << &semaphores << &mutexes << 6U;
    QTest::newRow("a semaphore") << &semaphores << &semaphores << 77U;
    QTest::newRow("a semaphore is no event") << &semaphores << &events << 6U;
    QTest::newRow("an event is no mutex") << &events << &mutexes << 6U;
    QTest::newRow("an event is no semaphore") << &events << &semaphores << 6U;
    QTest::newRow("an event") << &events << &events << 77U;
}

void tst_HandleTable::findsByNameAndKind()
{
    QFETCH(const Kind*, made);
    QFETCH(const Kind*, wanted);
    QFETCH(DWORD, error);
    const LPCWSTR key = semaphoreText.c_str();
    const HANDLE handle = made ? made->create(key) : nullptr;
    if (made)
        QCOMPARE(record(handle).type, made->type);
    HANDLE found = nullptr;
    QCOMPARE(lastErrorAfter(found, 77, [&] { return wanted->open(key); }), error);
    QCOMPARE(found, error == 77 ? handle : nullptr);
    QCOMPARE(XeCloseHandle(handle), BOOL(made != nullptr));
}

void tst_HandleTable::knowsAddressesAndNoText()
{
    const HANDLE first = events.create(nameText);
    const HANDLE second = events.create(sameText);
    QVERIFY(first != second);
    QCOMPARE(g_mapXeHandle.size(), 2);
    QCOMPARE(static_cast<HANDLE>(g_mapXeHandle.value(nameText)), first);
    QCOMPARE(events.open(sameText), second);
    QCOMPARE(events.open(nameText + 1), nullptr);
    QVERIFY(XeCloseHandle(first));
    QCOMPARE(events.open(sameText), second);
    QVERIFY(XeCloseHandle(second));
}

void tst_HandleTable::createGivesWhatIsThere()
{
    QFETCH(const Kind*, kind);
    const LPCWSTR key = semaphoreText.c_str();
    const HANDLE first = kind->create(key);
    HANDLE second = nullptr;
    QCOMPARE(lastErrorAfter(second, 77, [&] { return kind->create(key); }), 183U);
    QCOMPARE(second, first);
    QCOMPARE(g_mapXeHandle.size(), 1);
    QVERIFY(XeCloseHandle(first)); // for both
    QCOMPARE(kind->open(key), nullptr);
}

void tst_HandleTable::argumentsOfASecondCreateAreNotApplied()
{
    const HANDLE event = CreateEvent(nullptr, FALSE, 0, tableName);
    QCOMPARE(CreateEvent(nullptr, TRUE, 1, tableName), event);
    QVERIFY(!record(event).asEvent.manualReset);
    QCOMPARE(WaitForSingleObject(event, 0), WAIT_TIMEOUT);
    QVERIFY(XeCloseHandle(event));

    const HANDLE mutex = CreateMutex(nullptr, FALSE, tableName);
    QCOMPARE(CreateMutex(nullptr, TRUE, tableName), mutex);
    QCOMPARE(record(mutex).asMutex.ownerThread, pthread_t());
    QVERIFY(XeCloseHandle(mutex));

    const LPCWSTR key = semaphoreText.c_str();
    const HANDLE semaphore = CreateSemaphore(nullptr, 1, 4, key);
    QCOMPARE(CreateSemaphore(nullptr, -1, 0, key), semaphore);
    QCOMPARE(record(semaphore).asSemaphore.countBlock->maximum, 4L);
    QVERIFY(XeCloseHandle(semaphore));
}

void tst_HandleTable::namelessObjectsOfAKindAreOne()
{
    const HANDLE event = events.create(nullptr);
    HANDLE again = nullptr;
    QCOMPARE(lastErrorAfter(again, 77, [] { return events.create(nullptr); }), 183U);
    QCOMPARE(again, event);
    QCOMPARE(events.open(nullptr), event);
    QVERIFY(XeCloseHandle(event));

    HANDLE next = nullptr;
    QCOMPARE(lastErrorAfter(next, 77, [] { return events.create(nullptr); }), 2U);
    QVERIFY(XeCloseHandle(next));
}

void tst_HandleTable::anotherKindTakesTheName()
{
    const HANDLE event = events.create(tableName);
    HANDLE mutex = nullptr;
    QCOMPARE(lastErrorAfter(mutex, 77, [] { return mutexes.create(tableName); }), 6U);
    QVERIFY(mutex != event);
    HANDLE found = nullptr;
    QCOMPARE(lastErrorAfter(found, 77, [] { return events.open(tableName); }), 6U);
    QCOMPARE(found, nullptr);
    QCOMPARE(mutexes.open(tableName), mutex);

    // Forgotten is not closed.
    QCOMPARE(WaitForSingleObject(event, 0), WAIT_OBJECT_0);
    QVERIFY(XeCloseHandle(event));
    QCOMPARE(mutexes.open(tableName), mutex);
    QVERIFY(XeCloseHandle(mutex));
}

void tst_HandleTable::firstCreationLeavesTheErrorOfTheSearch()
{
    HANDLE handle = nullptr;
    QCOMPARE(lastErrorAfter(handle, 77, [] { return events.create(tableName); }), 2U);
    QVERIFY(XeCloseHandle(handle));
    QCOMPARE(lastErrorAfter(handle, 77, [] { return mutexes.create(tableName); }), 2U);
    QVERIFY(XeCloseHandle(handle));
}

void tst_HandleTable::closeTakesEveryEntry()
{
    QFETCH(const Kind*, kind);
    const HANDLE other = events.create(nullptr);
    const LPCWSTR key = semaphoreText.c_str();
    const HANDLE handle = kind->create(key);
    g_mapXeHandle[nameText] = g_mapXeHandle[sameText] = &record(handle);
    QCOMPARE(XeCloseHandle(handle), 1);
    QCOMPARE(g_mapXeHandle.keys(), QList<const wchar_t*>{nullptr});
    QVERIFY(XeCloseHandle(other));
}

void tst_HandleTable::closeRefuses_data()
{
    QTest::addColumn<std::uint32_t>("type");
    QTest::newRow("no object") << 0U;
    QTest::newRow("the number after the last kind") << 4U;
    QTest::newRow("a high number") << 0xFFFFFFFFU;
}

void tst_HandleTable::closeRefuses()
{
    QFETCH(std::uint32_t, type);
    QCOMPARE(XeCloseHandle(nullptr), 0);
    const HANDLE handle = mutexes.create(tableName);
    record(handle).type = type;
    QCOMPARE(XeCloseHandle(handle), 0);
    QCOMPARE(static_cast<HANDLE>(g_mapXeHandle.value(tableName)), handle);
    record(handle).type = 1;
    QCOMPARE(XeCloseHandle(handle), 1);
}

void tst_HandleTable::entryOfAFailedCloseStays_data()
{
    QTest::addColumn<const Kind*>("kind");
    QTest::addColumn<std::function<void(XeHandle&)>>("damage");
    const auto row = [](const char* title, const Kind& kind, std::function<void(XeHandle&)> damage) {
        QTest::newRow(title) << &kind << std::move(damage);
    };
    row("a mutex that somebody has", mutexes, [](XeHandle& r) { WaitForSingleObject(&r, 0); });
    row("a mutex without its lock", mutexes, [](XeHandle& r) { r.asMutex.mutex = nullptr; });
    row("an event without its condition", events, [](XeHandle& r) { r.asEvent.cond = nullptr; });
    row("a semaphore that the system refused", semaphores, [](XeHandle& r) {
        sem_close(r.asSemaphore.semaphore);
        sem_unlink(r.asSemaphore.name);
        r.asSemaphore.semaphore = nullptr;
    });
}

void tst_HandleTable::entryOfAFailedCloseStays()
{
    QFETCH(const Kind*, kind);
    QFETCH(std::function<void(XeHandle&)>, damage);
    const LPCWSTR key = semaphoreText.c_str();
    const HANDLE broken = kind->create(key);
    g_mapXeHandle[nameText] = &record(broken);
    damage(record(broken));
    QCOMPARE(XeCloseHandle(broken), 1);
    QCOMPARE(g_mapXeHandle.size(), 2);
    for (const XeHandle* left : qAsConst(g_mapXeHandle))
        QCOMPARE(left->type, 0U);

    HANDLE found = nullptr;
    QCOMPARE(lastErrorAfter(found, 77, [&] { return kind->open(key); }), 6U);
    QCOMPARE(found, nullptr);

    // What is there can neither be waited on nor closed.
    QCOMPARE(WaitForSingleObject(g_mapXeHandle.value(key), 0), WAIT_FAILED);
    QCOMPARE(XeCloseHandle(g_mapXeHandle.value(key)), 0);

    const HANDLE next = kind->create(key);
    QCOMPARE(kind->open(key), next);
    QVERIFY(XeCloseHandle(next));
    QCOMPARE(g_mapXeHandle.keys(), QList<const wchar_t*>{nameText});
    g_mapXeHandle.clear();
}

void tst_HandleTable::failedCloseOutsideTheTable()
{
    const HANDLE event = events.create(tableName);
    const HANDLE mutex = mutexes.create(tableName);
    record(event).asEvent.cond = nullptr;
    QCOMPARE(XeCloseHandle(event), 1);
    QCOMPARE(mutexes.open(tableName), mutex);
    QVERIFY(XeCloseHandle(mutex));
}

XE_APPLESS_TEST(tst_HandleTable)
#include "tst_handletable.moc"
