#include "testclass.h"

#include <xehook.h>
#include <xeprocess.h>

/// The handler exists before there is an application, and says no to what needs one.
class tst_HookNoApp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(!QCoreApplication::instance()); }
    void hooksAreRefused();
    void messageFunctionsAreNotAdded();
    void removalsDoNoHarm();
    void thereIsNothingToConnectTo();
    void temporaryObjectsAreDeletedAtOnce();
    void idleWithoutAMainFrameDeletes();
};

static long long someHook(int, unsigned long, long long) { return 0; }

static bool someFunction(tagMSG*) { return false; }

void tst_HookNoApp::hooksAreRefused()
{
    QCOMPARE(SetWindowsHookEx_X(WH_KEYBOARD, someHook), HHOOK(nullptr));
    QVERIFY(GetGlobalEventHandler()->IsEmptyHookChain());
}

void tst_HookNoApp::messageFunctionsAreNotAdded()
{
    AppendWinMsgFn(someFunction);
    QVERIFY(GetGlobalEventHandler()->IsEmptyHookChain());
}

void tst_HookNoApp::removalsDoNoHarm()
{
    QCOMPARE(UnhookWindowsHookEx_X(reinterpret_cast<HHOOK>(someHook)), 1);
    RemoveWinMsgFn(someFunction);
    QVERIFY(GetGlobalEventHandler()->IsEmptyHookChain());
}

void tst_HookNoApp::thereIsNothingToConnectTo()
{
    ConnectIdleSlot(GetGlobalEventHandler());
    QVERIFY(!DisconnectIdleSlot(GetGlobalEventHandler()));
}

void tst_HookNoApp::temporaryObjectsAreDeletedAtOnce()
{
    const QPointer<QObject> object(new QObject);
    AppendTempObjectPool(object);
    QVERIFY(object);
    ClearTempObjectPool();
    QVERIFY(!object);
}

void tst_HookNoApp::idleWithoutAMainFrameDeletes()
{
    QVERIFY(!TavoGetMainFrame());
    const QPointer<QObject> object(new QObject);
    AppendTempObjectPool(object);
    GetGlobalEventHandler()->OnEnterIdle();
    QVERIFY(!object);
}

XE_APPLESS_TEST(tst_HookNoApp)
#include "tst_hooknoapp.moc"
