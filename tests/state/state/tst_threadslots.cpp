// Values of a thread, in slots.

#include "raises.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <memory>
#include <thread>
#include <vector>

namespace {

std::atomic<int> alive{0};
std::atomic<int> made{0};

class CValue : public CNoTrackObject_X
{
public:
    CValue()
    {
        ++alive;
        ++made;
    }
    ~CValue() override
    {
        --alive;
        if (atEnd)
            atEnd();
    }

    int number = 0;
    void (*atEnd)() = nullptr;
};

template <class Function>
void onAnotherThread(Function function)
{
    std::thread(function).join();
}

CThreadLocal_X<CValue> lasting; // lives to the end of the process, as a host's static objects do

} // namespace

class tst_ThreadSlots : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void simpleList();

    void slotsAreNumberedFromOne();
    void aFreeSlotIsGivenAgain();
    void growthKeepsValues();
    void valuesBelongToTheirThread();
    void unknownSlots_data();
    void unknownSlots();
    void aNullValueNeedsNoRoom();
    void freeSlotDeletesOnAllThreads();
    void deleteValuesOfAnInstance();
    void deleteValuesOfOneThread();
    void deleteValuesOfAllThreads();
    void valuesMayUseSlotsAsTheyGo();

    void oneObjectAThread();
    void createRunsOnceAThread();
    void createMayUseOtherSlots();
    void createMayGiveNothing();
    void withoutFunction();
    void theDestructorDeletesOnAllThreads();
    void manyThreads();
    void references();
    void releaseStartsAnew();
    void localData();
};

void tst_ThreadSlots::init() { made = 0; }

void tst_ThreadSlots::cleanup()
{
    AfxTlsRelease_X();
    QVERIFY(!_afxThreadData);
    QCOMPARE(alive.load(), 0);
}

// ------------------------------------------------------------------------------------------------------------ the list

void tst_ThreadSlots::simpleList()
{
    struct Element
    {
        int number;
        Element* next;
    };
    Element a{1, nullptr}, b{2, nullptr}, c{3, nullptr};
    CSimpleList_X list(offsetof(Element, next));
    QVERIFY(list.IsEmpty());
    QVERIFY(!list.Remove(&a));
    list.AddHead(&a);
    list.AddHead(&b);
    list.AddHead(&c);
    list.AddHead(nullptr);
    QCOMPARE(list.GetHead(), &c);
    QCOMPARE(list.GetNext(&c), &b);
    QCOMPARE(list.GetNext(&a), nullptr);
    QVERIFY(list.Remove(&b));
    QVERIFY(!list.Remove(&b));
    QVERIFY(!list.Remove(nullptr));
    QCOMPARE(list.GetNext(&c), &a);
    QVERIFY(list.Remove(&c));
    QVERIFY(list.Remove(&a));
    QVERIFY(list.IsEmpty());
}

// ----------------------------------------------------------------------------------------------------------- the slots

void tst_ThreadSlots::slotsAreNumberedFromOne()
{
    CThreadSlotData_X data;
    for (int slot = 1; slot <= 100; ++slot)
        QCOMPARE(data.AllocSlot(), slot);
}

void tst_ThreadSlots::aFreeSlotIsGivenAgain()
{
    CThreadSlotData_X data;
    for (int i = 0; i < 31; ++i) // as many as the first table has room for
        data.AllocSlot();
    data.FreeSlot(7);
    data.FreeSlot(3);
    QCOMPARE(data.AllocSlot(), 3); // from the rover on there is none, so the search begins again
    QCOMPARE(data.AllocSlot(), 7);
    data.FreeSlot(3);
    data.FreeSlot(9);
    QCOMPARE(data.AllocSlot(), 9); // the rover stands behind 7
    QCOMPARE(data.AllocSlot(), 3);
    QCOMPARE(data.AllocSlot(), 32);
}

void tst_ThreadSlots::growthKeepsValues()
{
    CThreadSlotData_X data;
    for (int slot = 1; slot <= 200; ++slot) {
        QCOMPARE(data.AllocSlot(), slot);
        auto* const value = new CValue;
        value->number = slot;
        data.SetValue(slot, value);
        for (int before = 1; before <= slot; ++before)
            QCOMPARE(static_cast<CValue*>(data.GetThreadValue(before))->number, before);
    }
    QCOMPARE(alive.load(), 200);
}

void tst_ThreadSlots::valuesBelongToTheirThread()
{
    CThreadSlotData_X data;
    const int slot = data.AllocSlot();
    CValue* const mine = new CValue;
    data.SetValue(slot, mine);
    void* before = mine;
    void* after = nullptr;
    onAnotherThread([&] {
        before = data.GetThreadValue(slot);
        data.SetValue(slot, new CValue);
        after = data.GetThreadValue(slot);
    });
    QCOMPARE(before, nullptr);
    QVERIFY(after && after != mine);
    QCOMPARE(data.GetThreadValue(slot), mine);
}

void tst_ThreadSlots::unknownSlots_data()
{
    QTest::addColumn<int>("slot");
    QTest::newRow("0") << 0;
    QTest::newRow("negative") << -1;
    QTest::newRow("never given") << 2;
    QTest::newRow("beyond the table") << 1000;
    QTest::newRow("lowest") << std::numeric_limits<int>::min();
    QTest::newRow("highest") << std::numeric_limits<int>::max();
}

void tst_ThreadSlots::unknownSlots()
{
    QFETCH(int, slot);
    CThreadSlotData_X data;
    const auto useAll = [&] {
        int dummy = 0;
        QVERIFY(!data.GetThreadValue(slot));
        data.SetValue(slot, &dummy); // is not deleted, as it is never stored
        QVERIFY(!data.GetThreadValue(slot));
        data.FreeSlot(slot);
    };
    useAll();
    QCOMPARE(data.AllocSlot(), 1);
    data.SetValue(1, new CValue);
    useAll();
    QVERIFY(data.GetThreadValue(1));
}

void tst_ThreadSlots::aNullValueNeedsNoRoom()
{
    CThreadSlotData_X data;
    const int slot = data.AllocSlot();
    data.SetValue(slot, nullptr);
    QVERIFY(!data.GetThreadValue(slot));
    CValue* const value = new CValue;
    data.SetValue(slot, value);
    data.SetValue(slot, nullptr); // only forgets it
    QVERIFY(!data.GetThreadValue(slot));
    QCOMPARE(alive.load(), 1);
    delete value;
}

void tst_ThreadSlots::freeSlotDeletesOnAllThreads()
{
    CThreadSlotData_X data;
    const int slot = data.AllocSlot();
    const int other = data.AllocSlot();
    const auto fill = [&] {
        data.SetValue(slot, new CValue);
        data.SetValue(other, new CValue);
    };
    fill();
    onAnotherThread(fill);
    QCOMPARE(alive.load(), 4);
    data.FreeSlot(slot);
    QCOMPARE(alive.load(), 2);
    QVERIFY(!data.GetThreadValue(slot));
    QVERIFY(data.GetThreadValue(other));
    data.FreeSlot(slot);
    data.FreeSlot(slot);
    QCOMPARE(alive.load(), 2);
}

void tst_ThreadSlots::deleteValuesOfAnInstance()
{
    CThreadSlotData_X data;
    int red = 0, blue = 0;
    const int first = data.AllocSlot();
    data.AssignInstance(&red);
    const int second = data.AllocSlot();
    data.AssignInstance(&blue); // the first has an owner
    const int third = data.AllocSlot();
    for (const int slot : {first, second, third})
        data.SetValue(slot, new CValue);
    data.DeleteValues(&red, FALSE);
    QVERIFY(!data.GetThreadValue(first));
    QVERIFY(data.GetThreadValue(second) && data.GetThreadValue(third));
    data.DeleteValues(&blue, TRUE);
    QVERIFY(!data.GetThreadValue(second) && data.GetThreadValue(third));
    data.DeleteValues(nullptr, FALSE);
    QVERIFY(!data.GetThreadValue(third));
    QCOMPARE(alive.load(), 0);
    data.SetValue(second, new CValue); // the thread's record is made again
    QVERIFY(data.GetThreadValue(second));
}

void tst_ThreadSlots::deleteValuesOfOneThread()
{
    CThreadSlotData_X data;
    const int slot = data.AllocSlot();
    data.SetValue(slot, new CValue);
    onAnotherThread([&] {
        data.SetValue(slot, new CValue);
        data.DeleteValues(nullptr, FALSE);
        data.DeleteValues(nullptr, FALSE);
    });
    QCOMPARE(alive.load(), 1);
    QVERIFY(data.GetThreadValue(slot));
}

// A thread that goes on afterwards still has a record.
void tst_ThreadSlots::deleteValuesOfAllThreads()
{
    CThreadSlotData_X data;
    const int slot = data.AllocSlot();
    data.SetValue(slot, new CValue);
    std::atomic<int> step{0};
    bool wasDeleted = false;
    std::thread other([&] {
        data.SetValue(slot, new CValue);
        step = 1;
        while (step != 2)
            std::this_thread::yield();
        wasDeleted = !data.GetThreadValue(slot);
        data.SetValue(slot, new CValue);
    });
    while (step != 1)
        std::this_thread::yield();
    data.DeleteValues(nullptr, TRUE);
    QCOMPARE(alive.load(), 0);
    step = 2;
    other.join();
    QVERIFY(wasDeleted);
    QCOMPARE(alive.load(), 1);
}

void tst_ThreadSlots::valuesMayUseSlotsAsTheyGo()
{
    static CThreadSlotData_X* current = nullptr;
    CThreadSlotData_X data;
    current = &data;
    const int slot = data.AllocSlot();
    auto* const value = new CValue;
    value->atEnd = [] { current->SetValue(current->AllocSlot(), new CValue); };
    data.SetValue(slot, value);
    data.FreeSlot(slot);
    QCOMPARE(alive.load(), 1);
}

// ------------------------------------------------------------------------------------------------ thread-local objects

void tst_ThreadSlots::oneObjectAThread()
{
    CThreadLocal_X<CValue> local;
    QVERIFY(!local.GetDataNA());
    QVERIFY(!_afxThreadData);
    CValue* const mine = local.GetData();
    QVERIFY(mine);
    QCOMPARE(local.GetDataNA(), mine);
    QCOMPARE(static_cast<CValue*>(local), mine);
    local->number = 5;
    QCOMPARE(mine->number, 5);
    CValue* there = mine;
    onAnotherThread([&] { there = local.GetDataNA(); });
    QVERIFY(!there);
}

void tst_ThreadSlots::createRunsOnceAThread()
{
    CThreadLocal_X<CValue> local;
    const auto use = [&] {
        for (int i = 0; i < 10; ++i)
            local.GetData();
    };
    use();
    QCOMPARE(made.load(), 1);
    onAnotherThread(use);
    QCOMPARE(made.load(), 2);
    use();
    QCOMPARE(made.load(), 2);
}

void tst_ThreadSlots::createMayUseOtherSlots()
{
    static CThreadLocal_X<CValue> inner;
    CThreadLocalObject_X outer;
    CNoTrackObject_X* const object = outer.GetData([]() -> CNoTrackObject_X* {
        inner->number = 7;
        return new CValue;
    });
    QCOMPARE(outer.GetDataNA(), object);
    QCOMPARE(inner->number, 7);
}

void tst_ThreadSlots::createMayGiveNothing()
{
    CThreadLocalObject_X local;
    QVERIFY(!local.GetData([]() -> CNoTrackObject_X* { return nullptr; }));
    QVERIFY(!local.GetDataNA());
    QVERIFY(local.GetData([]() -> CNoTrackObject_X* { return new CValue; }));
}

void tst_ThreadSlots::withoutFunction()
{
    CThreadLocalObject_X local;
    QVERIFY(raises([&] { local.GetData(nullptr); }));
    QVERIFY(!_afxThreadData);
    local.GetData([]() -> CNoTrackObject_X* { return new CValue; });
    QVERIFY(raises([&] { local.GetData(nullptr); }));
}

void tst_ThreadSlots::theDestructorDeletesOnAllThreads()
{
    {
        CThreadLocal_X<CValue> local;
        CThreadLocal_X<CValue> neverUsed;
        local.GetData();
        onAnotherThread([&] { local.GetData(); });
        QCOMPARE(alive.load(), 2);
    }
    QCOMPARE(alive.load(), 0);
    CThreadLocal_X<CValue> next; // gets the same slot
    QVERIFY(!next.GetDataNA());
}

void tst_ThreadSlots::manyThreads()
{
    constexpr int threadCount = 16;
    constexpr int localCount = 80;
    std::vector<std::unique_ptr<CThreadLocal_X<CValue>>> locals(localCount);
    for (auto& local : locals)
        local = std::make_unique<CThreadLocal_X<CValue>>();
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([&, thread] {
            for (int round = 0; round < 3; ++round) {
                for (int i = 0; i < localCount; ++i) {
                    CValue* const value = locals[static_cast<std::size_t>(i)]->GetData();
                    const int expected = round == 0 ? 0 : thread * 1000 + i;
                    if (value->number != expected)
                        ++wrong;
                    value->number = thread * 1000 + i;
                }
            }
            if (thread % 2)
                AfxTermLocalData_X(nullptr, FALSE);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    QCOMPARE(wrong.load(), 0);
    QCOMPARE(made.load(), threadCount * localCount);
    QCOMPARE(alive.load(), threadCount * localCount / 2);
}

// --------------------------------------------------------------------------------------------------- all slots at once

void tst_ThreadSlots::references()
{
    CThreadLocal_X<CValue> local;
    local.GetData();
    QCOMPARE(_afxTlsRef.load(), 0L);
    AfxTlsAddRef_X();
    AfxTlsAddRef_X();
    QCOMPARE(_afxTlsRef.load(), 2L);
    AfxTlsRelease_X();
    QVERIFY(_afxThreadData);
    QCOMPARE(alive.load(), 1);
    AfxTlsRelease_X();
    QVERIFY(!_afxThreadData);
    QCOMPARE(alive.load(), 0);
    QCOMPARE(_afxTlsRef.load(), 0L);
    local.GetData();
    AfxTlsRelease_X(); // the count is 0 already
    QVERIFY(!_afxThreadData);
    QCOMPARE(_afxTlsRef.load(), 0L);
    AfxTlsRelease_X();
}

// Slots are numbered anew then: no object may find the value of another behind the number that it had.
void tst_ThreadSlots::releaseStartsAnew()
{
    CThreadLocal_X<CValue> first;
    first->number = 1;
    lasting->number = 2;
    AfxTlsRelease_X();
    QVERIFY(!lasting.GetDataNA());
    QCOMPARE(lasting->number, 0);
    lasting->number = 5;
    QVERIFY(!first.GetDataNA());
    QCOMPARE(first->number, 0);
    QCOMPARE(lasting->number, 5);
}

void tst_ThreadSlots::localData()
{
    int red = 0;
    AfxInitLocalData_X(&red); // no slots yet
    AfxTermLocalData_X(&red, TRUE);
    CThreadLocal_X<CValue> ours;
    ours.GetData();
    AfxInitLocalData_X(&red);
    CThreadLocal_X<CValue> others;
    others.GetData();
    AfxTermLocalData_X(&red, FALSE);
    QVERIFY(!ours.GetDataNA());
    QVERIFY(others.GetDataNA());
}

XE_APPLESS_TEST(tst_ThreadSlots)
#include "tst_threadslots.moc"
