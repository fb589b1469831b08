#include "testclass.h"

#include <xeprocess.h>

// What is there before the host has made its QApplication.

class tst_ProcessNoApp : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(!QCoreApplication::instance()); }
    void theScreenHasNoSize();
    void otherMetricsAreThere();
    void thereIsNoHost();
    void theFoldersAreThere();
    void onlyAQApplicationHasWindows();
};

void tst_ProcessNoApp::theScreenHasNoSize()
{
    QCOMPARE(GetSystemMetrics_X(SM_CXSCREEN), 0);
    QCOMPARE(GetSystemMetrics_X(SM_CYSCREEN), 0);
}

void tst_ProcessNoApp::otherMetricsAreThere()
{
    QCOMPARE(GetSystemMetrics_X(SM_CXVSCROLL), 17);
    QCOMPARE(GetSysColor_X(COLOR_HIGHLIGHT), 0xD77800U);
}

void tst_ProcessNoApp::thereIsNoHost()
{
    QCOMPARE(TavoGetMainFrame(), nullptr);
    QCOMPARE(TavoGetViewWindow(), nullptr);
    TavoSetCurosr(nullptr, 1);
}

void tst_ProcessNoApp::theFoldersAreThere()
{
    QVERIFY(!GetApplicationDirectory().IsEmpty());
    QVERIFY(SetDllDirectory_X(L"/"));
    wchar_t buffer[4] = {};
    QCOMPARE(GetDllDirectory_X(4, buffer), 2U);
    QCOMPARE(buffer[0], L'/');
}

void tst_ProcessNoApp::onlyAQApplicationHasWindows()
{
    int count = 0;
    const QCoreApplication application(count, nullptr);
    thereIsNoHost();
    theScreenHasNoSize();
}

XE_APPLESS_TEST(tst_ProcessNoApp)
#include "tst_processnoapp.moc"
