#include "string/nulltext.h"
#include "testclass.h"
#include "textresult.h"

#include <clocale>
#include <cstdlib>
#include <locale>

/// Collation by the locale that the environment names.
class tst_Collate : public QObject
{
    Q_OBJECT

private slots:
    void collation_data();
    void collation();
    void theLocaleIsMadeAnew();
    void theGlobalLocaleStays();
};

void tst_Collate::collation_data()
{
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("sign");
    // C.UTF-8 sorts by code points.
    QTest::newRow("equal") << CString_X(L"abc").Collate(L"abc") << 0;
    QTest::newRow("less") << CString_X(L"abc").Collate(L"abd") << -1;
    QTest::newRow("greater") << CString_X(L"b").Collate(L"abc") << 1;
    QTest::newRow("upper case is less") << CString_X(L"B").Collate(L"a") << -1;
    QTest::newRow("longer is greater") << CString_X(L"ab").Collate(L"a") << 1;
    QTest::newRow("not ASCII") << CString_X(L"é").Collate(L"日") << -1;
    QTest::newRow("empty") << CString_X().Collate(L"") << 0;
    QTest::newRow("null is empty") << CString_X().Collate(null) << 0;
    QTest::newRow("text against null") << CString_X(L"a").Collate(null) << 1;
    QTest::newRow("no case: equal") << CString_X(L"ABC").CollateNoCase(L"abc") << 0;
    QTest::newRow("no case: less") << CString_X(L"a").CollateNoCase(L"B") << -1;
    QTest::newRow("no case: greater") << CString_X(L"B").CollateNoCase(L"a") << 1;
    QTest::newRow("no case: null is empty") << CString_X().CollateNoCase(null) << 0;
    QTest::newRow("no case: text against null") << CString_X(L"A").CollateNoCase(null) << 1;
    QTest::newRow("no case by the process's locale: not ASCII differs")
        << (CString_X(L"É").CollateNoCase(L"é") == 0 ? 0 : 1) << 1;
}

void tst_Collate::collation()
{
    QFETCH(int, result);
    QTEST((result > 0) - (result < 0), "sign");
}

void tst_Collate::theLocaleIsMadeAnew()
{
    const CString_X text = L"abc";
    QCOMPARE(text.Collate(L"abc"), 0);
    qputenv("LC_ALL", "no_SUCH.locale");
    const QString thrown = thrownBy([&] { (void)text.Collate(L"abc"); });
    qputenv("LC_ALL", "C.UTF-8");
    QCOMPARE(thrown, QStringLiteral("runtime_error"));
    QCOMPARE(text.Collate(L"abc"), 0);
}

void tst_Collate::theGlobalLocaleStays()
{
    CString_X(L"a").Collate(L"b");
    QCOMPARE(std::setlocale(LC_ALL, nullptr), "C");
    QVERIFY(std::locale() == std::locale::classic());
}

XE_APPLESS_TEST(tst_Collate)
#include "tst_collate.moc"
