// Extension modules.

#include "state/numberedhandle.h"
#include "testclass.h"

#include <XeMFCEmu.h>

namespace {

class CPluginValue : public CNoTrackObject_X
{
};

} // namespace

class tst_Extension : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { AfxTlsRelease_X(); }

    void theFirstCallFillsTheRecord();
    void aLaterCallGivesSlotsToItsModule();
    void termination();
    void terminationOfAnEmptyRecord();
    void library();
};

void tst_Extension::theFirstCallFillsTheRecord()
{
    AfxGetModuleState_X()->m_hCurrentResourceHandle = handleOf(9);
    AFX_EXTENSION_MODULE_X state{};
    QCOMPARE(AfxInitExtensionModule_X(state, handleOf(5)), 1);
    QCOMPARE(state.bInitialized, 1);
    QCOMPARE(state.hModule, handleOf(5));
    QCOMPARE(state.hResource, handleOf(5));
    QCOMPARE(state.hClassList, handleOf(9));
    QCOMPARE(AfxInitExtensionModule_X(state, handleOf(6)), 1);
    QCOMPARE(state.hModule, handleOf(5));
    QCOMPARE(state.hResource, handleOf(5));
    AfxGetModuleState_X()->m_hCurrentResourceHandle = nullptr;
}

void tst_Extension::aLaterCallGivesSlotsToItsModule()
{
    CThreadLocal_X<CPluginValue> local;
    local.GetData();
    AFX_EXTENSION_MODULE_X state{};
    AfxInitExtensionModule_X(state, handleOf(5));
    AfxTermExtensionModule_X(state, FALSE);
    QVERIFY(local.GetDataNA()); // has no owner
    AfxInitExtensionModule_X(state, handleOf(5));
    AfxTermExtensionModule_X(state, FALSE);
    QVERIFY(!local.GetDataNA());
}

void tst_Extension::termination()
{
    CThreadLocal_X<CPluginValue> local;
    local.GetData();
    AFX_EXTENSION_MODULE_X state{};
    AfxInitExtensionModule_X(state, handleOf(5));
    AfxInitExtensionModule_X(state, handleOf(6)); // the slot is 6's now, the record 5's
    AfxTermExtensionModule_X(state, TRUE);
    QVERIFY(local.GetDataNA());
    state.hModule = handleOf(6);
    AfxTermExtensionModule_X(state, TRUE);
    QVERIFY(!local.GetDataNA());
}

void tst_Extension::terminationOfAnEmptyRecord()
{
    CThreadLocal_X<CPluginValue> local;
    local.GetData();
    AFX_EXTENSION_MODULE_X state{};
    AfxTermExtensionModule_X(state, TRUE); // a null module would be all
    QVERIFY(local.GetDataNA());
}

void tst_Extension::library()
{
    AFX_EXTENSION_MODULE_X state{TRUE, handleOf(5), handleOf(6), handleOf(7)};
    const CDynLinkLibrary_X system(state, TRUE);
    QCOMPARE(system.m_hModule, handleOf(5));
    QCOMPARE(system.m_bSystem, TRUE);
    const CDynLinkLibrary_X plain(state);
    QCOMPARE(plain.m_bSystem, FALSE);
    const CDynLinkLibrary_X bare(handleOf(8), handleOf(9));
    QCOMPARE(bare.m_hModule, handleOf(8));
    QCOMPARE(bare.m_hResource, nullptr);
    QCOMPARE(bare.m_hClassList, nullptr);
    QCOMPARE(bare.m_bSystem, FALSE);
    QVERIFY(bare.IsKindOf(RUNTIME_CLASS_X(CCmdTarget_X)));
    QVERIFY(!CDynLinkLibrary_X::s_classInfo.CreateObject());
}

XE_APPLESS_TEST(tst_Extension)
#include "tst_extension.moc"
