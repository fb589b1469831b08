// The state of the module, and objects of a process.

#include "testclass.h"

#include <XeMFCEmu.h>

#include <thread>

namespace {

class CCounted : public CNoTrackObject_X
{
public:
    CCounted() { ++alive; }
    ~CCounted() override { --alive; }

    long long field; // left alone by the constructor
    static int alive;
};

int CCounted::alive = 0;

CNoTrackObject_X* noObject() { return nullptr; }

// Built while the program is loaded, ahead of main().
AFX_MODULE_STATE_X* const stateAtLoad = AfxGetModuleState_X();
const BOOL initializedAtLoad = AfxGetModuleState_X()->m_bInitialized;

} // namespace

class tst_ModuleState : public QObject
{
    Q_OBJECT

private slots:
    void moduleStateAtStart();
    void threadStateAtStart();
    void oneStateForAllThreads();
    void threadStateDeletesWhatItHolds();
    void validAddresses();
    void objectsStartCleared();
    void processLocal();
    void processLocalWithoutFunction();
};

void tst_ModuleState::moduleStateAtStart()
{
    QCOMPARE(stateAtLoad, &afxModuleState);
    QCOMPARE(initializedAtLoad, TRUE);
    for (const BOOL dll : {FALSE, TRUE}) {
        const AFX_MODULE_STATE_X state(dll);
        QCOMPARE(state.m_bDLL, dll);
        QCOMPARE(state.m_bSystem, FALSE);
        QCOMPARE(state.m_hCurrentResourceHandle, nullptr);
        QCOMPARE(state.m_hCurrentInstanceHandle, nullptr);
        QCOMPARE(state.m_bInitialized, TRUE);
        QVERIFY(state.m_strCurrentAppName.IsEmpty());
        QCOMPARE(state.m_fRegisteredClasses, 0);
        QCOMPARE(state.m_dwVersion, 0);
    }
}

void tst_ModuleState::threadStateAtStart()
{
    const AFX_MODULE_THREAD_STATE_X state;
    QCOMPARE(state.m_pCurrentWinThread, nullptr);
    QCOMPARE(state.m_pWndInit, nullptr);
    QVERIFY(!state.m_pmapHWND && !state.m_pmapHMENU && !state.m_pmapHDC && !state.m_pmapHGDIOBJ);
    QVERIFY(!state.m_pmapHIMAGELIST && !state.m_pmapSocketHandle && !state.m_pmapDeadSockets);
    QVERIFY(!state.m_plistSocketNotifications && !state.m_pToolTip && !state.m_pLastInfo);
    QCOMPARE(state.m_nLastHit, -1);
    QCOMPARE(state.m_nLastStatus, -1);
}

void tst_ModuleState::oneStateForAllThreads()
{
    QCOMPARE(AfxGetStaticModuleState_X(), AfxGetModuleState_X());
    QCOMPARE(AfxGetModuleThreadState_X(), &gdiThreadState);
    AFX_MODULE_STATE_X* state = nullptr;
    AFX_MODULE_THREAD_STATE_X* threadState = nullptr;
    std::thread([&] {
        state = AfxGetModuleState_X();
        threadState = AfxGetModuleThreadState_X();
    }).join();
    QCOMPARE(state, AfxGetModuleState_X());
    QCOMPARE(threadState, AfxGetModuleThreadState_X());
}

void tst_ModuleState::threadStateDeletesWhatItHolds()
{
    QPointer<CObject_X> first = new CObject_X;
    QPointer<CObject_X> second = new CObject_X;
    QPointer<CObject_X> list;
    {
        AFX_MODULE_THREAD_STATE_X state;
        state.m_pmapSocketHandle = first;
        state.m_pmapDeadSockets = second;
        state.m_plistSocketNotifications = new CPtrList_X;
        list = state.m_plistSocketNotifications;
        state.m_plistSocketNotifications->AddTail(LocalAlloc_X(LPTR, 10));
        state.m_plistSocketNotifications->AddTail(LocalAlloc_X(LPTR, 20));
        state.m_pLastInfo = LocalAlloc_X(LPTR, 72);
        state.m_pmapHMENU = new CHandleMap_X(nullptr, nullptr, nullptr, 0);
    }
    QVERIFY(!first);
    QVERIFY(!second);
    QVERIFY(!list);
}

void tst_ModuleState::validAddresses()
{
    const char* const odd = reinterpret_cast<const char*>(1);
    QCOMPARE(AfxIsValidAddress_X(odd, 1000000, TRUE), TRUE);
    QCOMPARE(AfxIsValidAddress_X(odd, 0, FALSE), TRUE);
    QCOMPARE(AfxIsValidAddress_X(nullptr, 0), FALSE);
    QCOMPARE(AfxIsValidString_X(L"", 5), TRUE);
    QCOMPARE(AfxIsValidString_X(static_cast<const wchar_t*>(nullptr)), FALSE);
    QCOMPARE(AfxIsValidString_X(odd), TRUE);
    QCOMPARE(AfxIsValidString_X(static_cast<const char*>(nullptr), 3), FALSE);
}

void tst_ModuleState::objectsStartCleared()
{
    for (int i = 0; i < 10; ++i) {
        // A compiler may drop what operator new wrote when the constructor begins: asked before that.
        auto* const block = static_cast<unsigned char*>(CNoTrackObject_X::operator new(64));
        QVERIFY(std::all_of(block, block + 64, [](unsigned char byte) { return byte == 0; }));
        std::memset(block, 0xAA, 64);
        CNoTrackObject_X::operator delete(block);
    }
    CNoTrackObject_X* const object = new CCounted;
    QCOMPARE(CCounted::alive, 1);
    delete object;
    QCOMPARE(CCounted::alive, 0);
}

void tst_ModuleState::processLocal()
{
    {
        CProcessLocal_X<CCounted> local;
        QCOMPARE(CCounted::alive, 0);
        CCounted* const object = local.GetData();
        QVERIFY(object);
        QCOMPARE(CCounted::alive, 1);
        CCounted* elsewhere = nullptr;
        std::thread([&] { elsewhere = local; }).join();
        QCOMPARE(elsewhere, object);
        local->field = 5;
        QCOMPARE(object->field, 5LL);
    }
    QCOMPARE(CCounted::alive, 0);
}

void tst_ModuleState::processLocalWithoutFunction()
{
    CProcessLocalObject_X local;
    QVERIFY(!local.GetData(noObject));
    try {
        local.GetData(nullptr);
        QFAIL("no exception");
    } catch (CInvalidArgException_X* exception) {
        exception->Delete();
    }
    CNoTrackObject_X* const object = local.GetData([]() -> CNoTrackObject_X* { return new CCounted; });
    QCOMPARE(local.GetData(nullptr), object);
}

XE_APPLESS_TEST(tst_ModuleState)
#include "tst_modulestate.moc"
