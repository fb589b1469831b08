#include "string/nulltext.h"
#include "testclass.h"
#include "textresult.h"

#include <climits>
#include <clocale>
#include <map>
#include <set>
#include <unordered_map>

/// Searching, comparison, and order and hash as a key.
class tst_StringCompare : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { std::setlocale(LC_ALL, "C"); }
    void find_data();
    void find();
    void compare_data();
    void compare();
    void compareNoCase_data();
    void compareNoCase();
    void compareNoCaseInALocaleOfTheHost();
    void aLargeDifferenceInLength();
    void operators();
    void asAKey();
    void sorting();
    void hash();
};

void tst_StringCompare::find_data()
{
    QTest::addColumn<int>("found");
    QTest::addColumn<int>("expected");
    const CString_X text = L"abcabc";
    const CString_X nothing;
    QTest::newRow("character") << text.Find(L'b') << 1;
    QTest::newRow("character that is not there") << text.Find(L'x') << -1;
    QTest::newRow("character in nothing") << nothing.Find(L'x') << -1;
    QTest::newRow("character from a start") << text.Find(L'b', 2) << 4;
    QTest::newRow("character at the start") << text.Find(L'b', 1) << 1;
    QTest::newRow("character behind the last") << text.Find(L'b', 5) << -1;
    QTest::newRow("character from the end") << text.Find(L'b', 6) << -1;
    QTest::newRow("character from beyond") << text.Find(L'b', 99) << -1;
    QTest::newRow("character from a negative start") << text.Find(L'b', -1) << -1;
    QTest::newRow("character from the lowest") << text.Find(L'b', INT_MIN) << -1;
    QTest::newRow("0") << CString_X(L"a\0b", 3).Find(L'\0') << 1;
    QTest::newRow("character behind a 0") << CString_X(L"a\0b", 3).Find(L'b') << 2;
    QTest::newRow("text") << text.Find(L"bc") << 1;
    QTest::newRow("the whole") << text.Find(L"abcabc") << 0;
    QTest::newRow("text that is not there") << text.Find(L"bb") << -1;
    QTest::newRow("longer than the whole") << text.Find(L"abcabca") << -1;
    QTest::newRow("empty text: -1, not 0") << text.Find(L"") << -1;
    QTest::newRow("empty text in nothing") << nothing.Find(L"") << -1;
    QTest::newRow("null text") << text.Find(null) << -1;
    QTest::newRow("text behind a 0") << CString_X(L"a\0bc", 4).Find(L"bc") << 2;
    QTest::newRow("text from a start") << text.Find(L"bc", 2) << 4;
    QTest::newRow("text at the start") << text.Find(L"bc", 4) << 4;
    QTest::newRow("text from beyond") << text.Find(L"bc", 99) << -1;
    QTest::newRow("text from a negative start") << text.Find(L"abc", -1) << -1;
    QTest::newRow("text from the lowest") << text.Find(L"abc", INT_MIN) << -1;
    QTest::newRow("empty text from a start: the start") << text.Find(L"", 1) << 1;
    QTest::newRow("empty text from 0") << text.Find(L"", 0) << 0;
    QTest::newRow("empty text from the end: the end") << text.Find(L"", 6) << 6;
    QTest::newRow("empty text from beyond") << text.Find(L"", 7) << -1;
    QTest::newRow("empty text from a negative start") << text.Find(L"", -1) << -1;
    QTest::newRow("last character") << text.ReverseFind(L'b') << 4;
    QTest::newRow("last character that is not there") << text.ReverseFind(L'x') << -1;
    QTest::newRow("last character in nothing") << nothing.ReverseFind(L'x') << -1;
    QTest::newRow("last 0") << CString_X(L"a\0b\0c", 5).ReverseFind(L'\0') << 3;
    QTest::newRow("one of a set") << text.FindOneOf(L"xcb") << 1;
    QTest::newRow("none of a set") << text.FindOneOf(L"xyz") << -1;
    QTest::newRow("one of an empty set") << text.FindOneOf(L"") << -1;
    QTest::newRow("one of null") << text.FindOneOf(null) << -1;
    QTest::newRow("one of a set in nothing") << nothing.FindOneOf(L"abc") << -1;
    QTest::newRow("a code point above 0xFFFF") << CString_X(L"a😀b").Find(L'\U0001F600') << 1;
}

void tst_StringCompare::find()
{
    QFETCH(int, found);
    QTEST(found, "expected");
}

void tst_StringCompare::compare_data()
{
    QTest::addColumn<std::wstring>("left");
    QTest::addColumn<std::wstring>("right");
    QTest::addColumn<int>("sign");
    const auto add = [](const char* name, const wchar_t* left, const wchar_t* right, int sign) {
        QTest::newRow(name) << std::wstring(left) << std::wstring(right) << sign;
    };
    add("equal", L"abc", L"abc", 0);
    add("empty", L"", L"", 0);
    add("less", L"abc", L"abd", -1);
    add("greater", L"b", L"abc", 1);
    add("a beginning is less", L"ab", L"abc", -1);
    add("longer is greater", L"abc", L"ab", 1);
    add("upper case is less than lower", L"Z", L"a", -1);
    add("by code points", L"\uFFFF", L"\U00010000", -1);
}

void tst_StringCompare::compare()
{
    QFETCH(std::wstring, left);
    QFETCH(std::wstring, right);
    QFETCH(int, sign);
    const auto signOf = [](int value) { return (value > 0) - (value < 0); };
    QCOMPARE(signOf(CString_X(left).Compare(right.c_str())), sign);
    QCOMPARE(signOf(CString_X(right).Compare(left.c_str())), -sign);
    QCOMPARE(CString_X(left).Compare(right.c_str()), left.compare(right));
    if (right.empty())
        QCOMPARE(CString_X(left).Compare(null), left.compare(right));
}

void tst_StringCompare::compareNoCase_data()
{
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("expected");
    QTest::newRow("equal") << CString_X(L"aBc").CompareNoCase(L"AbC") << 0;
    QTest::newRow("null is empty") << CString_X().CompareNoCase(null) << 0;
    QTest::newRow("text against null: the length") << CString_X(L"abc").CompareNoCase(null) << 3;
    QTest::newRow("the difference in length is not normalised") << CString_X(L"A").CompareNoCase(L"abcde") << -4;
    QTest::newRow("as lower case: _ is less than a letter") << int(CString_X(L"_").CompareNoCase(L"A") < 0) << 1;
    QTest::newRow("not ASCII differs") << int(CString_X(L"É").CompareNoCase(L"é") == 0) << 0;
    QTest::newRow("Compare: the difference in length") << CString_X(L"a").Compare(L"abcde") << -4;
    QTest::newRow("Compare with null: the length") << CString_X(L"abc").Compare(null) << 3;
    QTest::newRow("Compare ends at the argument's first 0") << CString_X(L"a\0b", 3).Compare(L"a") << 2;
}

void tst_StringCompare::compareNoCase()
{
    QFETCH(int, result);
    QTEST(result, "expected");
}

void tst_StringCompare::compareNoCaseInALocaleOfTheHost()
{
    QVERIFY(std::setlocale(LC_ALL, "C.UTF-8"));
    QCOMPARE(CString_X(L"É日").CompareNoCase(L"é日"), 0);
}

void tst_StringCompare::aLargeDifferenceInLength()
{
    const CString_X text(L'x', 1000000);
    QCOMPARE(text.Compare(L""), 1000000);
    QCOMPARE(text.CompareNoCase(L"X"), 999999);
    QCOMPARE(text.Compare(text), 0);
    QCOMPARE(text.Find(L"xy"), -1);
    QCOMPARE(text.ReverseFind(L'x'), 999999);
}

void tst_StringCompare::operators()
{
    const CString_X a = L"a", b = L"b", same = L"a";
    QVERIFY(a == same && !(a == b) && a != b && !(a != same));
    QVERIFY(a < b && a <= b && a <= same && b > a && b >= a && !(b < a));
    QVERIFY(a == L"a" && L"a" == a && a != L"b" && L"b" != a && a < L"b" && L"a" < b);
    QVERIFY(a == std::wstring(L"a") && std::wstring(L"a") == a);
    QVERIFY(CString_X(L"a\0b", 3) != L"a"); // all elements count
    QVERIFY(a + b == L"ab");
}

void tst_StringCompare::asAKey()
{
    std::map<CString_X, int> ordered{{L"b", 2}, {L"a", 1}};
    ordered[L"c"] = 3;
    ordered[CString_X(L"a")] += 10;
    QCOMPARE(ordered.size(), std::size_t(3));
    QCOMPARE(ordered.begin()->first, CString_X(L"a"));
    QCOMPARE(ordered[L"a"], 11);
    QCOMPARE(ordered.count(L"x"), std::size_t(0));

    std::unordered_map<CString_X, int> hashed;
    for (int i = 0; i < 1000; ++i) {
        CString_X key;
        key.Format(L"key %d", i);
        hashed[key] = i;
    }
    QCOMPARE(hashed.size(), std::size_t(1000));
    QCOMPARE(hashed[L"key 500"], 500);
    QCOMPARE(hashed.find(L"key 1000"), hashed.end());

    const std::set<CString_X> unique{L"a", L"b", L"a"};
    QCOMPARE(unique.size(), std::size_t(2));
}

void tst_StringCompare::sorting()
{
    std::vector<CString_X> texts{L"b", L"", L"a long text that lives on the heap", L"B", L"a"};
    for (CString_X& text : texts)
        text.Utf8Ptr();
    std::sort(texts.begin(), texts.end());
    const std::vector<CString_X> expected{L"", L"B", L"a", L"a long text that lives on the heap", L"b"};
    QVERIFY(texts == expected);
    for (CString_X& text : texts)
        QCOMPARE(QString::fromUtf8(text.Utf8Ptr()), shown(text));

    CString_X first = L"first", second = L"second";
    const char* const narrow = first;
    std::swap(first, second);
    QCOMPARE(first, CString_X(L"second"));
    QCOMPARE(second, CString_X(L"first"));
    QCOMPARE(narrow, "first");
}

void tst_StringCompare::hash()
{
    const CString_X text(L"a\0b", 3);
    QCOMPARE(std::hash<CString_X>()(text), std::hash<std::wstring>()(std::wstring(L"a\0b", 3)));
    QVERIFY(std::hash<CString_X>()(text) != std::hash<CString_X>()(CString_X(L"a")));
}

XE_APPLESS_TEST(tst_StringCompare)
#include "tst_stringcompare.moc"
