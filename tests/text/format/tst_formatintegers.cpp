#include "formatted.h"
#include "testclass.h"
#include "textrows.h"

#include <climits>

/// The integer letters with each size prefix and flag.
class tst_FormatIntegers : public QObject, private TextRows
{
    Q_OBJECT

private slots:
    void letters_data();
    void letters() { compare(); }
    void prefixes_data();
    void prefixes();
    void longPrefixes_data();
    void longPrefixes() { compare(); }
    void flags_data();
    void flags() { compare(); }
    void fields_data();
    void fields() { compare(); }
};

void tst_FormatIntegers::letters_data()
{
    columns();
    QTest::newRow("%d") << formatted(L"%d", 12345) << "12345";
    QTest::newRow("%d of 0") << formatted(L"%d", 0) << "0";
    QTest::newRow("%d of the lowest") << formatted(L"%d", INT_MIN) << "-2147483648";
    QTest::newRow("%d of the highest") << formatted(L"%d", INT_MAX) << "2147483647";
    QTest::newRow("%i") << formatted(L"%i", -7) << "-7";
    QTest::newRow("%u is signed") << formatted(L"%u", 0xFFFFFFFFU) << "-1";
    QTest::newRow("%u of the highest bit") << formatted(L"%u", 0x80000000U) << "-2147483648";
    QTest::newRow("%o") << formatted(L"%o", 64) << "100";
    QTest::newRow("%o of all bits") << formatted(L"%o", -1) << "37777777777";
    QTest::newRow("%x") << formatted(L"%x", 0xBEEF) << "beef";
    QTest::newRow("%x of all bits") << formatted(L"%x", -1) << "ffffffff";
    QTest::newRow("%X") << formatted(L"%X", 0xBEEF) << "BEEF";
    QTest::newRow("%X of the highest bit") << formatted(L"%X", INT_MIN) << "80000000";
    QTest::newRow("%x of 0") << formatted(L"%x %X %o", 0, 0, 0) << "0 0 0";
}

// No prefix but the two of 64 bits makes more or less than 32 bits of it.
void tst_FormatIntegers::prefixes_data()
{
    QTest::addColumn<QString>("prefix");
    for (const char* prefix : {"l", "L", "w", "h", "F", "N"})
        QTest::newRow(prefix) << prefix;
}

void tst_FormatIntegers::prefixes()
{
    QFETCH(QString, prefix);
    const auto withPrefix = [&](const char* letter, auto value) {
        const std::wstring format = (QLatin1Char('%') + prefix + QLatin1String(letter)).toStdWString();
        return formatted(format.c_str(), value);
    };
    QCOMPARE(withPrefix("d", 0x12345678), QStringLiteral("305419896"));
    QCOMPARE(withPrefix("i", -70000), QStringLiteral("-70000"));
    QCOMPARE(withPrefix("u", 0xFFFFFFFFU), QStringLiteral("-1"));
    QCOMPARE(withPrefix("o", 0x12345678), QStringLiteral("2215053170"));
    QCOMPARE(withPrefix("x", 0xDEADBEEFU), QStringLiteral("deadbeef"));
    QCOMPARE(withPrefix("X", 0xDEADBEEFU), QStringLiteral("DEADBEEF"));
    // A long has 64 bits here, of which the low half counts.
    QCOMPARE(withPrefix("d", 0x1'0000'0005L), QStringLiteral("5"));
    QCOMPARE(withPrefix("u", 0x5'8000'0000L), QStringLiteral("-2147483648"));
    QCOMPARE(withPrefix("x", 0x7654'3210'0000'00FFL), QStringLiteral("ff"));
}

void tst_FormatIntegers::longPrefixes_data()
{
    columns();
    const auto add = [](const wchar_t* format, long long value, const char* expected) {
        QTest::addRow("%ls of %lld", format, value) << formatted(format, value) << expected;
    };
    for (const std::wstring start : {L"%I64", L"%ll"}) {
        add((start + L"d").c_str(), 5, "5");
        add((start + L"d").c_str(), -1, "18446744073709551615");
        add((start + L"i").c_str(), LLONG_MIN, "9223372036854775808");
        add((start + L"u").c_str(), -1, "18446744073709551615");
        add((start + L"o").c_str(), -1, "1777777777777777777777");
        add((start + L"x").c_str(), -1, "ffffffffffffffff");
        add((start + L"X").c_str(), 0xABCDEF0123456789LL, "ABCDEF0123456789");
        add((start + L"d").c_str(), 0, "0");
    }
    add(L"%+I64d", 5, "5"); // an unsigned number has no sign
    add(L"%#llx", 255, "0xff");
    add(L"%#I64X", 255, "0XFF");
    add(L"%#llo", 8, "010");
    add(L"%#llx", 0, "0");
    add(L"%6lld", 5, "     5");
    add(L"%-6I64u|", 5, "5     |");
    add(L"%06lld", 5, "     5");
    add(L"%.4lld", 5, "5");
    QTest::newRow("the next argument is found") << formatted(L"%I64d %d %lld", 1LL, 2, 3LL) << "1 2 3";
}

void tst_FormatIntegers::flags_data()
{
    columns();
    QTest::newRow("plus") << formatted(L"%+d %+i %+u", 7, -7, 7) << "+7 -7 +7";
    QTest::newRow("plus of 0") << formatted(L"%+d", 0) << "+0";
    QTest::newRow("plus has no meaning for a pattern") << formatted(L"%+x %+X %+o", 7, 7, 7) << "7 7 7";
    QTest::newRow("plus is for one conversion") << formatted(L"%+d %d", 7, 7) << "+7 7";
    QTest::newRow("blank is ignored") << formatted(L"% d", 7) << "7";
    QTest::newRow("0 pads with blanks") << formatted(L"%02d", 7) << " 7";
    QTest::newRow("0 pads a pattern with blanks") << formatted(L"%08X", 0xABC) << "     ABC";
    QTest::newRow("0 pads a negative number in front of its sign") << formatted(L"%05d", -7) << "   -7";
    QTest::newRow("# of hexadecimal") << formatted(L"%#x %#X", 255, 255) << "0xff 0XFF";
    QTest::newRow("# of octal") << formatted(L"%#o", 8) << "010";
    QTest::newRow("# of 0") << formatted(L"%#x %#X %#o", 0, 0, 0) << "0 0 0";
    QTest::newRow("# has no meaning for a decimal number") << formatted(L"%#d", 7) << "7";
    QTest::newRow("# is for one pattern") << formatted(L"%#x %x %#o %o", 255, 255, 8, 8) << "0xff ff 010 10";
    QTest::newRow("the precision is ignored") << formatted(L"%.3d %.0d %.8x", 5, 0, 255) << "5 0 ff";
    QTest::newRow("the precision's star is taken") << formatted(L"%.*d %d", 3, 5, 6) << "5 6";
    QTest::newRow("all flags together") << formatted(L"%0-+ #5d|", 7) << "+7   |";
    QTest::newRow("all flags together, of a pattern") << formatted(L"%#0 +-6x|", 255) << "0xff  |";
    QTest::newRow("flags many times") << formatted(L"%++--5d|", 7) << "+7   |";
}

void tst_FormatIntegers::fields_data()
{
    columns();
    QTest::newRow("padded on the left") << formatted(L"%5d|", 42) << "   42|";
    QTest::newRow("padded on the right") << formatted(L"%-5d|", 42) << "42   |";
    QTest::newRow("the sign is part of the field") << formatted(L"%5d|%+5d|", -42, 42) << "  -42|  +42|";
    QTest::newRow("the base is part of the field") << formatted(L"%#6x|%-#6X|", 255, 255) << "  0xff|0XFF  |";
    QTest::newRow("a number is never cut") << formatted(L"%2d", 12345) << "12345";
    QTest::newRow("a width is for one conversion") << formatted(L"%5d%d", 1, 2) << "    12";
    QTest::newRow("left adjustment is for one conversion") << formatted(L"%-3d|%3d|", 1, 2) << "1  |  2|";
    QTest::newRow("a width of 100000") << formatted(L"%100000d", 7) << QString(99999, QLatin1Char(' ')) + "7";
    QTest::newRow("many fields") << formatted(L"%3d%-3d%3x%-3X%3o", 1, 2, 10, 11, 8) << "  12    aB   10";
}

XE_APPLESS_TEST(tst_FormatIntegers)
#include "tst_formatintegers.moc"
