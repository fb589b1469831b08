// The classes of characters, over every code point and beyond.

#include "testclass.h"
#include "textsupport.h"

#include <xestrapi.h>

#include <cwctype>

namespace {

// The classes as a table of ASCII and of Unicode categories tells them.
bool isAsciiUpper(int value) { return value >= 'A' && value <= 'Z'; }
bool isAsciiLower(int value) { return value >= 'a' && value <= 'z'; }
bool isAsciiDigit(int value) { return value >= '0' && value <= '9'; }

int categoryOf(int value) { return value > 127 ? QChar::category(static_cast<uint>(value)) : -1; }

bool isUpper(int value) { return isAsciiUpper(value) || categoryOf(value) == 14; }
bool isLower(int value) { return isAsciiLower(value) || categoryOf(value) == 15; }

bool isAlpha(int value)
{
    return isAsciiUpper(value) || isAsciiLower(value)
           || (categoryOf(value) >= QChar::Letter_Uppercase && categoryOf(value) <= QChar::Letter_Other);
}

bool isAlphaNumeric(int value) { return isAlpha(value) || isAsciiDigit(value) || categoryOf(value) == 3; }

constexpr struct
{
    const char* name;
    BOOL (*narrow)(char);
    BOOL (*wide)(wchar_t);
    bool (*expected)(int);
} classes[] = {
    {"alpha", IsCharAlphaA_X, IsCharAlphaW_X, isAlpha},
    {"alphanumeric", IsCharAlphaNumericA_X, IsCharAlphaNumericW_X, isAlphaNumeric},
    {"upper", IsCharUpperA_X, IsCharUpperW_X, isUpper},
    {"lower", IsCharLowerA_X, IsCharLowerW_X, isLower},
};

} // namespace

class tst_CharClass : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(setUtf8Locale()); }
    void everyCodePoint();
    void everyByte();
    void known_data();
    void known();
    void noCodePoint();
    void space();
};

void tst_CharClass::everyCodePoint()
{
    for (const auto& row : classes) {
        for (int value = 0; value <= 0x10FFFF; ++value) {
            if (row.wide(static_cast<wchar_t>(value)) != (row.expected(value) ? 1 : 0))
                QFAIL(qPrintable(QStringLiteral("%1 of U+%2").arg(QLatin1String(row.name)).arg(value, 4, 16)));
        }
    }
}

void tst_CharClass::everyByte()
{
    for (const auto& row : classes) {
        for (int value = 0; value <= 255; ++value)
            QVERIFY2(row.narrow(static_cast<char>(value)) == (row.expected(value) ? 1 : 0), row.name);
    }
}

void tst_CharClass::known_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("alpha");
    QTest::addColumn<int>("alphanumeric");
    QTest::addColumn<int>("upper");
    QTest::addColumn<int>("lower");

    QTest::newRow("ASCII upper case") << int('Q') << 1 << 1 << 1 << 0;
    QTest::newRow("ASCII lower case") << int('q') << 1 << 1 << 0 << 1;
    QTest::newRow("ASCII digit") << int('7') << 0 << 1 << 0 << 0;
    QTest::newRow("ASCII neighbour of a letter") << int('[') << 0 << 0 << 0 << 0;
    QTest::newRow("the terminator") << 0 << 0 << 0 << 0 << 0;
    QTest::newRow("upper case umlaut") << 0xC4 << 1 << 1 << 1 << 0;
    QTest::newRow("lower case umlaut") << 0xE4 << 1 << 1 << 0 << 1;
    QTest::newRow("ordinal indicator is a letter without case") << 0xAA << 1 << 1 << 0 << 0;
    QTest::newRow("superscript two is no decimal digit") << 0xB2 << 0 << 0 << 0 << 0;
    QTest::newRow("multiplication sign") << 0xD7 << 0 << 0 << 0 << 0;
    QTest::newRow("title case is neither") << 0x01C5 << 1 << 1 << 0 << 0;
    QTest::newRow("Arabic digit") << 0x0661 << 0 << 1 << 0 << 0;
    QTest::newRow("ideograph") << 0x4E00 << 1 << 1 << 0 << 0;
    QTest::newRow("lone surrogate") << 0xD800 << 0 << 0 << 0 << 0;
    QTest::newRow("upper case of a high plane") << 0x10400 << 1 << 1 << 1 << 0;
    QTest::newRow("lower case of a high plane") << 0x10428 << 1 << 1 << 0 << 1;
    QTest::newRow("digit of a high plane") << 0x1D7CE << 0 << 1 << 0 << 0;
    QTest::newRow("emoji") << 0x1F600 << 0 << 0 << 0 << 0;
}

void tst_CharClass::known()
{
    QFETCH(int, value);
    const auto character = static_cast<wchar_t>(value);
    QTEST(IsCharAlphaW_X(character), "alpha");
    QTEST(IsCharAlphaNumericW_X(character), "alphanumeric");
    QTEST(IsCharUpperW_X(character), "upper");
    QTEST(IsCharLowerW_X(character), "lower");
}

void tst_CharClass::noCodePoint()
{
    for (const int value : {0x110000, INT_MAX, -1, INT_MIN}) {
        for (const auto& row : classes)
            QCOMPARE(row.wide(static_cast<wchar_t>(value)), 0);
        QCOMPARE(IsCharSpace_X(static_cast<wchar_t>(value)), 0);
    }
}

void tst_CharClass::space()
{
    for (const wchar_t ch : {L' ', L'\t', L'\n', L'\v', L'\f', L'\r', wchar_t(0x2003)})
        QCOMPARE(IsCharSpace_X(ch), 1);
    for (const wchar_t ch : {L'\0', L'a', L'_', wchar_t(0x10020), wchar_t(0xD800)})
        QCOMPARE(IsCharSpace_X(ch), 0);
    for (int value = 0; value <= 0x10FFFF; ++value) {
        if (IsCharSpace_X(static_cast<wchar_t>(value)) != (std::iswspace(static_cast<std::wint_t>(value)) ? 1 : 0))
            QFAIL(qPrintable(QStringLiteral("space of U+%1").arg(value, 4, 16)));
    }
}

XE_GUILESS_TEST(tst_CharClass)
#include "tst_charclass.moc"
