// Comparing texts: the order each function gives, and where it departs from the order of the alphabet.

#include "testclass.h"
#include "textsupport.h"

#include <QScopeGuard>

#include <xestrapi.h>

using namespace std::string_literals;

namespace {

using Compare = int (*)(const wchar_t*, const wchar_t*);
using CountedCompare = int (*)(const wchar_t*, const wchar_t*, int);

constexpr Compare exactComparisons[] = {StrCmp_X, StrCmpC_X, lstrcmp_X};
constexpr Compare qtComparisons[] = {lstrcmpi_X, StrCmpIC_X};
constexpr CountedCompare exactCounted[] = {StrCmpN_X, StrCmpNC_X};
constexpr CountedCompare foldedCounted[] = {StrCmpNI_X, StrCmpNIC_X};

int signOf(int order) { return (order > 0) - (order < 0); }

} // namespace

class tst_StrCompare : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(setUtf8Locale()); }
    void whole_data();
    void whole();
    void counted_data();
    void counted();
    void qtFoldsInAnyLocale();
    void nullComparesEqual();
    void logical_data();
    void logical();
    void ordinal_data();
    void ordinal();
    void ordinalOfNull();
    void longTexts();
};

void tst_StrCompare::whole_data()
{
    QTest::addColumn<std::wstring>("left");
    QTest::addColumn<std::wstring>("right");
    QTest::addColumn<int>("exact");
    QTest::addColumn<int>("folded");

    QTest::newRow("equal") << L"abc"s << L"abc"s << 0 << 0;
    QTest::newRow("both empty") << L""s << L""s << 0 << 0;
    QTest::newRow("empty comes first") << L""s << L"a"s << -1 << -1;
    QTest::newRow("a longer text comes after its head") << L"abc"s << L"ab"s << 1 << 1;
    QTest::newRow("by the first difference") << L"abz"s << L"acb"s << -1 << -1;
    QTest::newRow("upper case before lower case") << L"ABC"s << L"abc"s << -1 << 0;
    QTest::newRow("order of folded letters") << L"B"s << L"a"s << -1 << 1;
    QTest::newRow("letters beyond ASCII fold") << L"\xC4\x0416"s << L"\xE4\x0436"s << -1 << 0;
    QTest::newRow("letters of a high plane fold") << L"\x10400"s << L"\x10428"s << -1 << 0;
    QTest::newRow("a character of a high plane comes last") << L"\x1F600"s << L"\xD7FF"s << 1 << 1;
    QTest::newRow("a lone surrogate is equal to itself") << L"\xD800"s << L"\xD800"s << 0 << 0;
}

void tst_StrCompare::whole()
{
    QFETCH(std::wstring, left);
    QFETCH(std::wstring, right);
    QFETCH(int, exact);
    QFETCH(int, folded);
    for (const Compare compare : exactComparisons) {
        QCOMPARE(signOf(compare(left.c_str(), right.c_str())), exact);
        QCOMPARE(signOf(compare(right.c_str(), left.c_str())), -exact);
    }
    QCOMPARE(signOf(StrCmpI_X(left.c_str(), right.c_str())), folded);
    for (const Compare compare : qtComparisons) {
        QCOMPARE(signOf(compare(left.c_str(), right.c_str())), folded);
        QCOMPARE(signOf(compare(right.c_str(), left.c_str())), -folded);
    }
}

void tst_StrCompare::counted_data()
{
    QTest::addColumn<std::wstring>("left");
    QTest::addColumn<std::wstring>("right");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("exact");
    QTest::addColumn<int>("folded");

    QTest::newRow("equal as far as counted") << L"abcx"s << L"abcy"s << 3 << 0 << 0;
    QTest::newRow("different in the last one counted") << L"abcx"s << L"abcy"s << 4 << -1 << -1;
    QTest::newRow("folded as far as counted") << L"ABx"s << L"aby"s << 2 << -1 << 0;
    QTest::newRow("beyond ASCII") << L"\xC4"s << L"\xE4"s << 1 << -1 << 0;
    QTest::newRow("one text ends early") << L"ab"s << L"abc"s << 3 << -1 << -1;
    QTest::newRow("both end early") << L"ab"s << L"ab"s << 100 << 0 << 0;
    QTest::newRow("nothing counted") << L"a"s << L"b"s << 0 << 0 << 0;
    QTest::newRow("a negative count counts all") << L"abcx"s << L"abcy"s << -1 << -1 << -1;
    QTest::newRow("the lowest count counts all") << L"abc"s << L"ABC"s << INT_MIN << 1 << 0;
}

void tst_StrCompare::counted()
{
    QFETCH(std::wstring, left);
    QFETCH(std::wstring, right);
    QFETCH(int, count);
    QFETCH(int, exact);
    QFETCH(int, folded);
    for (const CountedCompare compare : exactCounted)
        QCOMPARE(signOf(compare(left.c_str(), right.c_str(), count)), exact);
    for (const CountedCompare compare : foldedCounted)
        QCOMPARE(signOf(compare(left.c_str(), right.c_str(), count)), folded);
    QCOMPARE(StrIsIntlEqual_X(1, left.c_str(), right.c_str(), count), exact == 0 ? 1 : 0);
    QCOMPARE(StrIsIntlEqual_X(-1, left.c_str(), right.c_str(), count), exact == 0 ? 1 : 0);
    QCOMPARE(StrIsIntlEqual_X(0, left.c_str(), right.c_str(), count), folded == 0 ? 1 : 0);
}

void tst_StrCompare::qtFoldsInAnyLocale()
{
    std::setlocale(LC_CTYPE, "C");
    const auto restore = qScopeGuard(setUtf8Locale);
    for (const Compare compare : qtComparisons)
        QCOMPARE(compare(L"\xC4\x0416", L"\xE4\x0436"), 0);
    QCOMPARE(CompareStringOrdinal_X(L"\xE4", -1, L"\xC4", -1, 1), CSTR_EQUAL);
    QCOMPARE(signOf(StrCmpI_X(L"\xC4", L"\xE4")), -1);
}

void tst_StrCompare::nullComparesEqual()
{
    for (const Compare compare : {StrCmp_X, StrCmpC_X, lstrcmp_X, StrCmpI_X, lstrcmpi_X, StrCmpIC_X, StrCmpLogical_X}) {
        QCOMPARE(compare(nullptr, L"a"), 0);
        QCOMPARE(compare(L"a", nullptr), 0);
        QCOMPARE(compare(nullptr, nullptr), 0);
    }
    for (const CountedCompare compare : {StrCmpN_X, StrCmpNC_X, StrCmpNI_X, StrCmpNIC_X}) {
        QCOMPARE(compare(nullptr, L"a", 1), 0);
        QCOMPARE(compare(L"a", nullptr, 1), 0);
    }
    for (const BOOL caseSensitive : {0, 1}) {
        QCOMPARE(StrIsIntlEqual_X(caseSensitive, nullptr, L"a", 1), 0);
        QCOMPARE(StrIsIntlEqual_X(caseSensitive, L"a", nullptr, 1), 0);
        QCOMPARE(StrIsIntlEqual_X(caseSensitive, nullptr, nullptr, 1), 0);
    }
}

void tst_StrCompare::logical_data()
{
    QTest::addColumn<std::wstring>("left");
    QTest::addColumn<std::wstring>("right");
    QTest::addColumn<int>("expected");

    QTest::newRow("both empty") << L""s << L""s << 0;
    QTest::newRow("left ends first") << L""s << L"a"s << -1;
    QTest::newRow("right ends first") << L"a"s << L""s << 1;
    QTest::newRow("equal characters give 1") << L"a"s << L"a"s << 1;
    QTest::newRow("equal characters give 1 before a difference") << L"ab"s << L"ac"s << 1;
    QTest::newRow("different characters go on to the end") << L"a"s << L"b"s << 0;
    QTest::newRow("different characters go on, the other way") << L"b"s << L"a"s << 0;
    QTest::newRow("different, then left ends") << L"a"s << L"bx"s << -1;
    QTest::newRow("different, then right ends") << L"ax"s << L"b"s << 1;
    QTest::newRow("different, then equal") << L"ax"s << L"bx"s << 1;
    QTest::newRow("case is a difference") << L"a"s << L"A"s << 0;
    QTest::newRow("equal in the low bits is equal") << L"A"s << L"\x10041"s << 1;
    QTest::newRow("equal numbers") << L"12"s << L"12"s << 0;
    QTest::newRow("numbers by value") << L"9"s << L"10"s << -1;
    QTest::newRow("numbers by value, the other way") << L"10"s << L"9"s << 1;
    QTest::newRow("leading zeros are no difference") << L"007"s << L"7"s << 0;
    QTest::newRow("equal numbers are skipped whole") << L"007a"s << L"7b5"s << -1;
    QTest::newRow("numbers behind different characters") << L"a2"s << L"b10"s << -1;
    QTest::newRow("a digit is smaller than a letter") << L"1"s << L"a"s << -1;
    QTest::newRow("a letter is larger than a digit") << L"a"s << L"1"s << 1;
    QTest::newRow("a digit is smaller than a blank") << L"1"s << L" "s << -1;
    QTest::newRow("a digit of another script is no digit") << L"\x0661"s << L"5"s << 1;
    QTest::newRow("numbers keep 32 bits") << L"4294967297"s << L"1"s << 0;
    QTest::newRow("numbers above 31 bits are negative") << L"2147483648"s << L"1"s << -1;
}

void tst_StrCompare::logical()
{
    QFETCH(std::wstring, left);
    QFETCH(std::wstring, right);
    QTEST(StrCmpLogical_X(left.c_str(), right.c_str()), "expected");
}

void tst_StrCompare::ordinal_data()
{
    QTest::addColumn<std::wstring>("left");
    QTest::addColumn<int>("leftLength");
    QTest::addColumn<std::wstring>("right");
    QTest::addColumn<int>("rightLength");
    QTest::addColumn<int>("exact");
    QTest::addColumn<int>("folded");

    QTest::newRow("equal") << L"a"s << 1 << L"a"s << 1 << CSTR_EQUAL << CSTR_EQUAL;
    QTest::newRow("less is equal") << L"a"s << 1 << L"b"s << 1 << CSTR_EQUAL << CSTR_EQUAL;
    QTest::newRow("greater") << L"b"s << 1 << L"a"s << 1 << CSTR_GREATER_THAN << CSTR_GREATER_THAN;
    QTest::newRow("case decides") << L"a"s << 1 << L"A"s << 1 << CSTR_GREATER_THAN << CSTR_EQUAL;
    QTest::newRow("case and order") << L"B"s << 1 << L"a"s << 1 << CSTR_EQUAL << CSTR_GREATER_THAN;
    QTest::newRow("as far as the lengths reach") << L"abz"s << 2 << L"aba"s << 2 << CSTR_EQUAL << CSTR_EQUAL;
    QTest::newRow("a longer text is greater") << L"ab"s << 2 << L"ab"s << 1 << CSTR_GREATER_THAN << CSTR_GREATER_THAN;
    QTest::newRow("zeros count within the length") << L"a\0b"s << 3 << L"a\0a"s << 3 << 3 << 3;
    QTest::newRow("a negative length ends at the terminator") << L"a\0b"s << -1 << L"a\0a"s << -7 << 2 << 2;
    QTest::newRow("a length of 0 is an empty text") << L"b"s << 0 << L"a"s << 0 << CSTR_EQUAL << CSTR_EQUAL;
    QTest::newRow("above the first plane by code units") << L"\xFFFD"s << -1 << L"\x1F600"s << -1 << 3 << 3;
}

void tst_StrCompare::ordinal()
{
    QFETCH(std::wstring, left);
    QFETCH(int, leftLength);
    QFETCH(std::wstring, right);
    QFETCH(int, rightLength);
    QTEST(CompareStringOrdinal_X(left.c_str(), leftLength, right.c_str(), rightLength, 0), "exact");
    QTEST(CompareStringOrdinal_X(left.c_str(), leftLength, right.c_str(), rightLength, 1), "folded");
}

void tst_StrCompare::ordinalOfNull()
{
    QCOMPARE(CompareStringOrdinal_X(nullptr, 0, L"a", 1, 0), 0);
    QCOMPARE(CompareStringOrdinal_X(L"a", 1, nullptr, -1, 0), 0);
    QCOMPARE(CSTR_LESS_THAN, 1);
    QCOMPARE(CSTR_EQUAL, 2);
    QCOMPARE(CSTR_GREATER_THAN, 3);
}

void tst_StrCompare::longTexts()
{
    const std::wstring lower(million, L'a');
    const std::wstring upper(million, L'A');
    for (const Compare compare : qtComparisons)
        QCOMPARE(compare(lower.c_str(), upper.c_str()), 0);
    QCOMPARE(StrCmpI_X(lower.c_str(), upper.c_str()), 0);
    QCOMPARE(StrCmp_X(lower.c_str(), lower.c_str()), 0);
    const std::wstring digits(million, L'0');
    QCOMPARE(StrCmpLogical_X(digits.c_str(), digits.c_str()), 0);
    std::wstring groups;
    for (int i = 0; i < 100000; ++i)
        groups += L"1x2y";
    std::wstring others = groups;
    std::replace(others.begin(), others.end(), L'x', L'z');
    std::replace(others.begin(), others.end(), L'y', L'z');
    QCOMPARE(StrCmpLogical_X(groups.c_str(), others.c_str()), 0);
}

XE_GUILESS_TEST(tst_StrCompare)
#include "tst_strcompare.moc"
