// Handle maps: permanent and temporary wrappers of handles.

#include "leavenothing.h"
#include "state/numberedhandle.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QMenu>

#include <set>

namespace {

// A wrapper of a handle that no Qt object stands for, and one with two handles.
class CPlug : public CObject_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CPlug)

    CPlug() { alive.insert(this); }
    ~CPlug() override
    {
        if (handle || second)
            ++destroyedWithHandle;
        alive.erase(this);
    }

    void* handle = nullptr;
    void* second = nullptr;

    static std::set<CPlug*> alive;
    static int destroyedWithHandle;
};

IMPLEMENT_DYNAMIC_X(CPlug, CObject_X)
std::set<CPlug*> CPlug::alive;
int CPlug::destroyedWithHandle = 0;

constexpr std::size_t handleOffset = sizeof(CObject_X);

std::unique_ptr<CHandleMap_X> makeMap(int handles = 1)
{
    return std::make_unique<CHandleMap_X>(&CPlug::s_classInfo, &ConstructDestruct_X<CPlug>::Construct,
                                          &ConstructDestruct_X<CPlug>::Destruct, handleOffset, handles);
}

CPlug* plug(CObject_X* object) { return static_cast<CPlug*>(object); }

} // namespace

class tst_HandleMap : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void nullHandle();
    void aTemporaryWrapperIsMadeOnce();
    void itsHandleIsWrittenAgain();
    void twoHandles();
    void permanentWrappers();
    void permanentWinsOverTemporary();
    void removeUnknown();
    void deleteTemp();
    void manyWrappers();
    void theDestructorDeletesTemporaryWrappers();
    void withoutClass();

    void mapsAreMadeOnDemand_data();
    void mapsAreMadeOnDemand();
    void menuMap();
    void windowMap();
};

void tst_HandleMap::cleanup()
{
    QCOMPARE(CPlug::alive.size(), std::size_t(0));
    QCOMPARE(CPlug::destroyedWithHandle, 0);
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_HandleMap::nullHandle()
{
    const auto map = makeMap();
    QVERIFY(!map->FromHandle(nullptr));
    QVERIFY(CPlug::alive.empty());
}

void tst_HandleMap::aTemporaryWrapperIsMadeOnce()
{
    const auto map = makeMap();
    QVERIFY(!map->LookupTemporary(handleOf(5)));
    CObject_X* const wrapper = map->FromHandle(handleOf(5));
    QVERIFY(wrapper);
    QCOMPARE(wrapper->GetRuntimeClass(), &CPlug::s_classInfo);
    QCOMPARE(plug(wrapper)->handle, handleOf(5));
    QCOMPARE(plug(wrapper)->second, nullptr);
    QCOMPARE(map->FromHandle(handleOf(5)), wrapper);
    QCOMPARE(map->LookupTemporary(handleOf(5)), wrapper);
    QVERIFY(!map->LookupPermanent(handleOf(5)));
    QVERIFY(map->FromHandle(handleOf(6)) != wrapper);
    QCOMPARE(CPlug::alive.size(), std::size_t(2));
}

void tst_HandleMap::itsHandleIsWrittenAgain()
{
    const auto map = makeMap();
    CPlug* const wrapper = plug(map->FromHandle(handleOf(5)));
    wrapper->handle = nullptr;
    QCOMPARE(map->LookupTemporary(handleOf(5)), wrapper);
    QCOMPARE(wrapper->handle, nullptr);
    map->FromHandle(handleOf(5));
    QCOMPARE(wrapper->handle, handleOf(5));
}

void tst_HandleMap::twoHandles()
{
    const auto map = makeMap(2);
    CPlug* const wrapper = plug(map->FromHandle(handleOf(5)));
    QCOMPARE(wrapper->handle, handleOf(5));
    QCOMPARE(wrapper->second, handleOf(5));
    wrapper->second = nullptr;
    map->FromHandle(handleOf(5));
    QCOMPARE(wrapper->second, handleOf(5));
}

void tst_HandleMap::permanentWrappers()
{
    CPlug own;
    const auto map = makeMap();
    map->SetPermanent(handleOf(5), &own);
    QCOMPARE(map->FromHandle(handleOf(5)), &own);
    QCOMPARE(map->LookupPermanent(handleOf(5)), &own);
    QVERIFY(!map->LookupTemporary(handleOf(5)));
    QCOMPARE(own.handle, nullptr); // is its own affair
    map->DeleteTemp();
    QCOMPARE(map->FromHandle(handleOf(5)), &own);
    map->RemoveHandle(handleOf(5));
    QVERIFY(!map->LookupPermanent(handleOf(5)));
    QVERIFY(map->FromHandle(handleOf(5)) != &own);
}

void tst_HandleMap::permanentWinsOverTemporary()
{
    CPlug own;
    const auto map = makeMap();
    CObject_X* const temporary = map->FromHandle(handleOf(5));
    map->SetPermanent(handleOf(5), &own);
    QCOMPARE(map->FromHandle(handleOf(5)), &own);
    QCOMPARE(map->LookupTemporary(handleOf(5)), temporary);
}

void tst_HandleMap::removeUnknown()
{
    const auto map = makeMap();
    CObject_X* const temporary = map->FromHandle(handleOf(5));
    map->RemoveHandle(handleOf(5)); // of the permanent half
    map->RemoveHandle(handleOf(6));
    map->RemoveHandle(nullptr);
    QCOMPARE(map->FromHandle(handleOf(5)), temporary);
}

void tst_HandleMap::deleteTemp()
{
    const auto map = makeMap(2);
    map->DeleteTemp();
    map->FromHandle(handleOf(5));
    map->FromHandle(handleOf(6));
    map->DeleteTemp();
    QVERIFY(CPlug::alive.empty());
    QVERIFY(!map->LookupTemporary(handleOf(5)));
    QCOMPARE(plug(map->FromHandle(handleOf(5)))->handle, handleOf(5));
}

void tst_HandleMap::manyWrappers()
{
    const auto map = makeMap();
    for (int i = 1; i <= 1000; ++i)
        QCOMPARE(plug(map->FromHandle(handleOf(i)))->handle, handleOf(i));
    QCOMPARE(CPlug::alive.size(), std::size_t(1000));
    for (int i = 1; i <= 1000; ++i)
        QCOMPARE(plug(map->LookupTemporary(handleOf(i)))->handle, handleOf(i));
}

void tst_HandleMap::theDestructorDeletesTemporaryWrappers()
{
    makeMap()->FromHandle(handleOf(5));
    QVERIFY(CPlug::alive.empty());
}

void tst_HandleMap::withoutClass()
{
    CPlug own;
    CHandleMap_X map(nullptr, nullptr, nullptr, handleOffset);
    QVERIFY(!map.FromHandle(handleOf(5)));
    map.SetPermanent(handleOf(5), &own);
    QCOMPARE(map.FromHandle(handleOf(5)), &own);
    map.DeleteTemp();
}

// --------------------------------------------------------------------------------------------- the maps of the process

void tst_HandleMap::mapsAreMadeOnDemand_data()
{
    using Function = CHandleMap_X* (*)(int);
    using Member = CHandleMap_X* AFX_MODULE_THREAD_STATE_X::*;
    QTest::addColumn<Function>("function");
    QTest::addColumn<Member>("member");
    const auto row = [](const char* name, Function function, Member member) {
        QTest::newRow(name) << function << member;
    };
    row("windows", afxMapHWND_X, &AFX_MODULE_THREAD_STATE_X::m_pmapHWND);
    row("menus", afxMapHMENU_X, &AFX_MODULE_THREAD_STATE_X::m_pmapHMENU);
    row("device contexts", afxMapHDC_X, &AFX_MODULE_THREAD_STATE_X::m_pmapHDC);
    row("GDI objects", afxMapHGDIOBJ_X, &AFX_MODULE_THREAD_STATE_X::m_pmapHGDIOBJ);
    row("image lists", afxMapHIMAGELIST_X, &AFX_MODULE_THREAD_STATE_X::m_pmapHIMAGELIST);
}

using MapFunction = CHandleMap_X* (*)(int);
using MapMember = CHandleMap_X* AFX_MODULE_THREAD_STATE_X::*;
Q_DECLARE_METATYPE(MapFunction)
Q_DECLARE_METATYPE(MapMember)

void tst_HandleMap::mapsAreMadeOnDemand()
{
    QFETCH(MapFunction, function);
    QFETCH(MapMember, member);
    QVERIFY(!function(FALSE));
    CHandleMap_X* const map = function(TRUE);
    QVERIFY(map);
    QCOMPARE(function(FALSE), map);
    QCOMPARE(function(TRUE), map);
    QCOMPARE(AfxGetModuleThreadState_X()->*member, map);

    CPlug own;
    map->SetPermanent(handleOf(5), &own);
    QCOMPARE(map->FromHandle(handleOf(5)), &own);
    map->RemoveHandle(handleOf(5));
}

void tst_HandleMap::menuMap()
{
    QMenu menu;
    auto* const wrapper = static_cast<CMenu_X*>(afxMapHMENU_X(TRUE)->FromHandle(static_cast<QObject*>(&menu)));
    QVERIFY(wrapper->IsKindOf(RUNTIME_CLASS_X(CMenu_X)));
    QCOMPARE(wrapper->GetImpQObject(), &menu);
    CMenu_X::DeleteTempMap();
    QVERIFY(!afxMapHMENU_X(FALSE)->LookupTemporary(static_cast<QObject*>(&menu)));
    QVERIFY(menu.isEmpty());
}

void tst_HandleMap::windowMap()
{
    QWidget widget;
    auto* const wrapper = static_cast<CWnd_X*>(afxMapHWND_X(TRUE)->FromHandle(static_cast<QObject*>(&widget)));
    QVERIFY(wrapper->IsKindOf(RUNTIME_CLASS_X(CWnd_X)));
    QCOMPARE(wrapper->GetImpQObject(), &widget);
    CWnd_X::DeleteTempMap();
    QVERIFY(!afxMapHWND_X(FALSE)->LookupTemporary(static_cast<QObject*>(&widget)));
}

XE_TEST(tst_HandleMap)
#include "tst_handlemap.moc"
