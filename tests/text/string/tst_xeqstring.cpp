#include "string/nulltext.h"
#include "testclass.h"
#include "textresult.h"

/// The way from wide text to Qt.
class tst_XeQString : public QObject
{
    Q_OBJECT

private slots:
    void wideText_data();
    void wideText();
    void aZeroCuts();
    void null();
    void assignmentAndAppending();
    void isAQString();
    void thereAndBack_data();
    void thereAndBack();
    void aMillionElements();
};

void tst_XeQString::wideText_data()
{
    QTest::addColumn<std::wstring>("wide");
    QTest::addColumn<QString>("expected");
    QTest::newRow("empty") << std::wstring() << "";
    QTest::newRow("ASCII") << std::wstring(L"abc") << "abc";
    QTest::newRow("one QChar each") << std::wstring(L"é日\uFFFD") << QStringLiteral("é日\uFFFD");
    QTest::newRow("two QChars each") << std::wstring(L"😀\U00010000\U0010FFFF")
                                     << QStringLiteral("😀\U00010000\U0010FFFF");
    QTest::newRow("a byte order mark in front goes, as in Qt")
        << std::wstring(L"\uFEFFa\uFEFFb") << QStringLiteral("a\uFEFFb");
    QTest::newRow("mixed") << std::wstring(L"a😀é") << QStringLiteral("a😀é");
}

void tst_XeQString::wideText()
{
    QFETCH(std::wstring, wide);
    QFETCH(QString, expected);
    const CString_X text = wide;
    QCOMPARE(QString(XeQString(text)), expected);
    QCOMPARE(QString(XeQString(wide.c_str())), expected);

    XeQString assigned = L"old", fromObject = L"old";
    assigned = wide.c_str();
    fromObject = text;
    QCOMPARE(QString(assigned), expected);
    QCOMPARE(QString(fromObject), expected);

    XeQString appended = L"old", byObject = L"old";
    appended += wide.c_str();
    byObject += text;
    QCOMPARE(QString(appended), QStringLiteral("old") + expected);
    QCOMPARE(QString(byObject), QStringLiteral("old") + expected);
}

void tst_XeQString::aZeroCuts()
{
    const CString_X text(L"ab\0cd", 5);
    QCOMPARE(QString(XeQString(text)), QStringLiteral("ab"));
    XeQString other;
    other = text;
    QCOMPARE(QString(other), QStringLiteral("ab"));
    other += text;
    QCOMPARE(QString(other), QStringLiteral("abab"));
}

void tst_XeQString::null()
{
    QVERIFY(XeQString().isEmpty());
    QVERIFY(XeQString(::null).isEmpty());
    XeQString text = L"old";
    text += ::null;
    QCOMPARE(QString(text), QStringLiteral("old"));
    text = ::null;
    QVERIFY(text.isEmpty());
}

void tst_XeQString::assignmentAndAppending()
{
    XeQString text = L"a";
    XeQString* const self = &text;
    QCOMPARE(&(text = L"b"), self);
    QCOMPARE(&(text += CString_X(L"c")), self);
    QCOMPARE(QString(text), QStringLiteral("bc"));
    text = QStringLiteral("q"); // as any QString
    text += QStringLiteral("r");
    text += QLatin1Char('s');
    QCOMPARE(QString(text), QStringLiteral("qrs"));
    const XeQString copy = text;
    text = copy;
    QCOMPARE(QString(text), QStringLiteral("qrs"));
}

void tst_XeQString::isAQString()
{
    static_assert(std::is_base_of_v<QString, XeQString>);
    static_assert(sizeof(XeQString) == sizeof(QString));
    static_assert(!std::is_convertible_v<CString_X, QString>);
    const XeQString text = L"abc";
    const QString& base = text;
    QCOMPARE(base, QStringLiteral("abc"));
    QCOMPARE(text.mid(1), QStringLiteral("bc"));
    QCOMPARE(text + QLatin1String("d"), QStringLiteral("abcd"));
}

void tst_XeQString::thereAndBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("ASCII") << "abc";
    QTest::newRow("pairs") << QStringLiteral("a😀b\U0010FFFF");
    QTest::newRow("combining") << QStringLiteral("e\u0301");
}

void tst_XeQString::thereAndBack()
{
    QFETCH(QString, text);
    QCOMPARE(QString(XeQString(CString_X(text))), text);
}

void tst_XeQString::aMillionElements()
{
    const CString_X text(L'\U0001F600', 1000000);
    const XeQString wide = text;
    QCOMPARE(wide.size(), 2000000);
    QCOMPARE(wide.right(2), QStringLiteral("😀"));
    QVERIFY(CString_X(wide) == text);
}

XE_APPLESS_TEST(tst_XeQString)
#include "tst_xeqstring.moc"
