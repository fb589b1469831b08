// Reading numbers out of texts, and MulDiv_X.

#include "testclass.h"
#include "textsupport.h"

#include <xestrapi.h>

#include <limits>

using namespace std::string_literals;

namespace {

constexpr long long untouched = -77;
constexpr long long maximum = std::numeric_limits<long long>::max();
constexpr long long minimum = std::numeric_limits<long long>::min();

} // namespace

class tst_StrNumber : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(setUtf8Locale()); }
    void reads_data();
    void reads();
    void toInt_data();
    void toInt();
    void nullGivesNothing();
    void mulDiv_data();
    void mulDiv();
};

void tst_StrNumber::reads_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<DWORD>("flags");
    QTest::addColumn<long long>("expected"); // or untouched
    const auto add = [](const char* name, const wchar_t* text, DWORD flags, long long expected) {
        QTest::newRow(name) << std::wstring(text) << flags << expected;
    };

    add("decimal", L"123", 0, 123);
    add("up to the first other character", L"12a3", 0, 12);
    add("negative", L"-5", 0, -5);
    add("with a plus", L"+5", 0, 5);
    add("behind white space", L" \t\r\n 7", 0, 7);
    add("behind white space beyond ASCII", L"\x2003-7", 0, -7);
    add("leading zeros", L"-00042", 0, -42);
    add("no white space behind the sign", L"- 7", 0, untouched);
    add("one sign only", L"+-7", 0, untouched);
    add("a sign alone", L"-", 0, untouched);
    add("no digit", L"abc", 0, untouched);
    add("an empty text", L"", 0, untouched);
    add("white space alone", L"  ", 0, untouched);
    add("a digit of another script", L"\x0661", 0, untouched);
    add("a digit in the low bits alone", L"\x10031", 0, untouched);

    add("hexadecimal", L"0x10", STIF_SUPPORT_HEX, 16);
    add("hexadecimal with a large X", L"0XfF", STIF_SUPPORT_HEX, 255);
    add("hexadecimal with all digits", L"0x0123456789abCDEF", STIF_SUPPORT_HEX, 0x0123456789ABCDEF);
    add("hexadecimal up to the first other character", L"0x1g", STIF_SUPPORT_HEX, 1);
    add("hexadecimal has no sign", L"-0x10", STIF_SUPPORT_HEX, 16);
    add("hexadecimal with a plus", L" +0x10", STIF_SUPPORT_HEX, 16);
    add("hexadecimal is not asked for", L"0x10", STIF_DEFAULT, 0);
    add("hexadecimal by the first flag alone", L"0x10", 2, 0);
    add("hexadecimal by the first flag of several", L"0x10", 3, 16);
    add("hexadecimal without a digit is a 0", L"0xg", STIF_SUPPORT_HEX, 0);
    add("hexadecimal cut short is a 0", L"0x", STIF_SUPPORT_HEX, 0);
    add("a 0 alone", L"0", STIF_SUPPORT_HEX, 0);
    add("decimal where hexadecimal is allowed", L"-10", STIF_SUPPORT_HEX, -10);
    add("hexadecimal digits without a mark", L"ff", STIF_SUPPORT_HEX, untouched);

    add("the largest", L"9223372036854775807", 0, maximum);
    add("the smallest", L"-9223372036854775808", 0, minimum);
    add("one beyond the largest", L"9223372036854775808", 0, minimum);
    add("one beyond 64 bits", L"18446744073709551617", 0, 1);
    add("one beyond 64 bits, negative", L"-18446744073709551617", 0, -1);
    add("hexadecimal of 64 bits", L"0xFFFFFFFFFFFFFFFF", STIF_SUPPORT_HEX, -1);
    add("hexadecimal beyond 64 bits", L"0x10000000000000002", STIF_SUPPORT_HEX, 2);
}

void tst_StrNumber::reads()
{
    QFETCH(std::wstring, text);
    QFETCH(DWORD, flags);
    QFETCH(long long, expected);
    const auto block = exactBlock(text + L'\0');

    long long wide = untouched;
    QCOMPARE(StrToInt64Ex_X(block.get(), flags, &wide), expected == untouched ? 0 : 1);
    QCOMPARE(wide, expected);

    int number = static_cast<int>(untouched);
    QCOMPARE(StrToIntEx_X(block.get(), flags, &number), expected == untouched ? 0 : 1);
    QCOMPARE(number, static_cast<int>(expected));
}

void tst_StrNumber::toInt_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<int>("expected");

    QTest::newRow("digits") << L"42abc"s << 42;
    QTest::newRow("negative") << L"-5"s << -5;
    QTest::newRow("a plus is no number") << L"+5"s << 0;
    QTest::newRow("white space is no number") << L" 5"s << 0;
    QTest::newRow("a minus alone") << L"-"s << 0;
    QTest::newRow("two minus signs") << L"--5"s << 0;
    QTest::newRow("never hexadecimal") << L"0x10"s << 0;
    QTest::newRow("text") << L"abc"s << 0;
    QTest::newRow("an empty text") << L""s << 0;
    QTest::newRow("the smallest") << L"-2147483648"s << INT_MIN;
    QTest::newRow("cut to 32 bits") << L"4294967298"s << 2;
    QTest::newRow("cut to 32 bits, to a negative") << L"2147483648"s << INT_MIN;
}

void tst_StrNumber::toInt()
{
    QFETCH(std::wstring, text);
    QTEST(StrToInt_X(text.c_str()), "expected");
}

void tst_StrNumber::nullGivesNothing()
{
    long long wide = untouched;
    int number = -77;
    QCOMPARE(StrToInt_X(nullptr), 0);
    QCOMPARE(StrToIntEx_X(nullptr, 0, &number), 0);
    QCOMPARE(StrToIntEx_X(L"1", 0, nullptr), 0);
    QCOMPARE(StrToInt64Ex_X(nullptr, 0, &wide), 0);
    QCOMPARE(StrToInt64Ex_X(L"1", 0, nullptr), 0);
    QCOMPARE(wide, untouched);
    QCOMPARE(number, -77);
}

void tst_StrNumber::mulDiv_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("numerator");
    QTest::addColumn<int>("denominator");
    QTest::addColumn<int>("expected");

    QTest::newRow("truncates") << 7 << 1 << 2 << 3;
    QTest::newRow("truncates a negative towards 0") << -7 << 1 << 2 << -3;
    QTest::newRow("negative denominator") << 7 << 1 << -2 << -3;
    QTest::newRow("exact") << 6 << 7 << 3 << 14;
    QTest::newRow("a product of 64 bits") << 2000000000 << 1000 << 2000 << 1000000000;
    QTest::newRow("the largest result") << INT_MAX << 1 << 1 << INT_MAX;
    QTest::newRow("one above the largest result") << 0x40000000 << 2 << 1 << -1;
    QTest::newRow("far above the largest result") << INT_MAX << INT_MAX << 1 << -1;
    QTest::newRow("the smallest result") << INT_MIN << 1 << 1 << INT_MIN;
    QTest::newRow("the negated smallest number is too large") << INT_MIN << 1 << -1 << -1;
    QTest::newRow("the largest product") << INT_MIN << INT_MIN << -1 << 0;
    QTest::newRow("below the smallest result keeps 32 bits") << INT_MIN << 2 << 1 << 0;
    QTest::newRow("one below the smallest result") << 715827883 << -3 << 1 << INT_MAX;
    QTest::newRow("by 0") << 5 << 6 << 0 << -1;
    QTest::newRow("0 by 0") << 0 << 0 << 0 << -1;
}

void tst_StrNumber::mulDiv()
{
    QFETCH(int, number);
    QFETCH(int, numerator);
    QFETCH(int, denominator);
    QTEST(MulDiv_X(number, numerator, denominator), "expected");
}

XE_GUILESS_TEST(tst_StrNumber)
#include "tst_strnumber.moc"
