#include "testclass.h"
#include "textresult.h"

/// Collation in an environment that names a locale which is not there.
class tst_CollateNoLocale : public QObject
{
    Q_OBJECT

private slots:
    void raises();
    void theRestWorks();
};

void tst_CollateNoLocale::raises()
{
    const CString_X text = L"abc";
    QCOMPARE(thrownBy([&] { (void)text.Collate(L"abc"); }), QStringLiteral("runtime_error"));
    QCOMPARE(thrownBy([&] { (void)text.Collate(nullptr); }), QStringLiteral("runtime_error"));
    QCOMPARE(thrownBy([&] { (void)text.CollateNoCase(L"abc"); }), QStringLiteral("runtime_error"));
}

void tst_CollateNoLocale::theRestWorks()
{
    CString_X text = L"aé";
    QCOMPARE(text.CompareNoCase(L"Aé"), 0);
    QCOMPARE(text.Utf8Ptr(), "a\xC3\xA9");
    text.Format(L"%.1f", 1.5);
    QCOMPARE(text, CString_X(L"1.5"));
}

XE_APPLESS_TEST(tst_CollateNoLocale)
#include "tst_collatenolocale.moc"
