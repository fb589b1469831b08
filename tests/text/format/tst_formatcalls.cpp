#include "formatted.h"
#include "testclass.h"

#include <xeafxstr.h>

#include <array>
#include <locale>
#include <thread>

namespace {

CString_X byFormatV(const wchar_t* format, ...)
{
    CString_X text = L"old";
    std::va_list arguments;
    va_start(arguments, format);
    text.FormatV(format, arguments);
    va_end(arguments);
    return text;
}

enum Colour { Red = 3 };

class GermanNumbers : public std::numpunct<wchar_t>
{
    wchar_t do_decimal_point() const override { return L','; }
    wchar_t do_thousands_sep() const override { return L'.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// Sets the global std::locale back at its end.
class GlobalLocale
{
public:
    explicit GlobalLocale(const std::locale& locale) : m_before(std::locale::global(locale)) {}
    ~GlobalLocale() { std::locale::global(m_before); }

private:
    std::locale m_before;
};

} // namespace

/// The functions around the engine: the members of CString_X, sprintf_s and swprintf_s.
class tst_FormatCalls : public QObject
{
    Q_OBJECT

private slots:
    void formatReplacesTheText();
    void formatVReplacesTheText();
    void theTextEndsAtItsFirstZero();
    void appendFormatKeepsTheText();
    void objectsStandForTheirText();
    void kindsOfNumbers();
    void theObjectItselfAsAnArgument();
    void theNarrowCopyStays();
    void aMillionElements();
    void theGlobalLocaleWritesNumbers();
    void threads();
    void sprintfMeansThePlatforms();
    void sprintfCuts();
    void swprintfMeansThePlatforms();
    void swprintfFailsWhenThereIsNoRoom();
};

void tst_FormatCalls::formatReplacesTheText()
{
    CString_X text = L"old";
    text.Format(L"%s-%d", L"new", 5);
    QCOMPARE(text, CString_X(L"new-5"));
    text.Format(L"");
    QVERIFY(text.IsEmpty());
    text = L"old";
    text.Format(static_cast<const wchar_t*>(nullptr));
    QVERIFY(text.IsEmpty());
    text.Format(L"100%%");
    QCOMPARE(text, CString_X(L"100%"));
}

void tst_FormatCalls::formatVReplacesTheText()
{
    QCOMPARE(byFormatV(L"%s-%S-%I64d", L"wide", "narrow", 5LL), CString_X(L"wide-narrow-5"));
    QVERIFY(byFormatV(nullptr).IsEmpty());
}

void tst_FormatCalls::theTextEndsAtItsFirstZero()
{
    CString_X text;
    text.Format(L"%d%c%d", 1, 0, 2);
    QCOMPARE(text.GetLength(), 1);
    QCOMPARE(text, CString_X(L"1"));
    QCOMPARE(byFormatV(L"%c%d", 0, 2).GetLength(), 0);
    QCOMPARE(byFormatV(L"%3c|", 0), CString_X(L"  "));
    QCOMPARE(formatted(L"%d%c%d", 1, 0, 2).size(), 3); // the engine's own text goes on

    text = L"kept ";
    text.AppendFormat(L"%d%c%d", 1, 0, 2);
    QCOMPARE(text, CString_X(L"kept 1"));
}

void tst_FormatCalls::appendFormatKeepsTheText()
{
    CString_X text = L"old";
    text.AppendFormat(L" %s %d", L"new", 5);
    QCOMPARE(text, CString_X(L"old new 5"));
    text.AppendFormat(static_cast<const wchar_t*>(nullptr));
    text.AppendFormat(L"");
    QCOMPARE(text, CString_X(L"old new 5"));
    text.AppendFormat(L" %s", text);
    QCOMPARE(text, CString_X(L"old new 5 old new 5"));
}

void tst_FormatCalls::objectsStandForTheirText()
{
    const CString_X name = L"bolt";
    const std::wstring size = L"M6";
    CString_X unit = L"pieces";
    const wchar_t array[] = L"of";
    CString_X text;
    text.Format(L"%d %s %s %s %s", 12, unit, array, name, size);
    QCOMPARE(text, CString_X(L"12 pieces of bolt M6"));
    text.Format(L"%s", name);
    QCOMPARE(text, name);
    text.Format(L"%s|%s", name + L"s", CString_X(L"temporary"));
    QCOMPARE(text, CString_X(L"bolts|temporary"));
    text.Format(name); // an object as the format
    QCOMPARE(text, name);
    text.Format(L"%s", CString_X(L"a\0b", 3)); // up to its first 0
    QCOMPARE(text, CString_X(L"a"));
}

void tst_FormatCalls::kindsOfNumbers()
{
    const CString_X name = L"n";
    const char letter = 'c';
    const wchar_t wideLetter = L'日';
    const short small = -5;
    const unsigned char byte = 200;
    CString_X text;
    const CString_X expected = L"c日 -5 200 1 3 0.5 0.25 -1 18446744073709551615";
    text.Format(L"%c%c %d %d %d %d %g %g %ld %I64u", letter, wideLetter, small, byte, true, Red, 0.5F, 0.25, -1L, -1LL);
    QCOMPARE(text, expected);
    text.Format(L"%c%c %d %d %d %d %g %g %ld %I64u%s", letter, wideLetter, small, byte, true, Red, 0.5F, 0.25, -1L,
                -1LL,
                name); // beside an object
    QCOMPARE(text, expected + L"n");
    text.Format(L"%p %s", nullptr, name);
    QCOMPARE(text, CString_X(L"0 n"));
}

void tst_FormatCalls::theObjectItselfAsAnArgument()
{
    CString_X text = L"abc";
    text.Format(L"<%s|%s>", text, text.GetString() + 1);
    QCOMPARE(text, CString_X(L"<abc|bc>"));
    text.Format(L"%s %ls", text.GetString(), L"longer than before, so that the text has to move");
    QCOMPARE(text, CString_X(L"<abc|bc> longer than before, so that the text has to move"));
    text = L"%%%d";
    text.Format(text, 5);
    QCOMPARE(text, CString_X(L"%5"));
    text.Format(text.GetString() + 1);
    QCOMPARE(text, CString_X(L"5"));
}

void tst_FormatCalls::theNarrowCopyStays()
{
    CString_X text = L"old";
    const char* const narrow = text;
    text.Format(L"%d", 5);
    QCOMPARE(narrow, "old");
    QCOMPARE(static_cast<const char*>(text.utf8Cache), narrow);
}

void tst_FormatCalls::aMillionElements()
{
    const CString_X part(L'x', 1000000);
    CString_X text;
    text.Format(L"<%s%s>", part, part);
    QCOMPARE(text.GetLength(), 2000002);
    QVERIFY(text == L"<" + part + part + L">");
}

void tst_FormatCalls::theGlobalLocaleWritesNumbers()
{
    const QString classic = QStringLiteral("1234567 0.5 1234.50 12");
    const auto numbers = [] { return formatted(L"%d %g %.2f %lld", 1234567, 0.5, 1234.5, 12LL); };
    QCOMPARE(numbers(), classic);
    {
        const GlobalLocale german(std::locale(std::locale::classic(), new GermanNumbers));
        QCOMPARE(numbers(), QStringLiteral("1.234.567 0,5 1.234,50 12"));
        QCOMPARE(formatted(L"%10d|%-10d|%+d", 12345, 12345, 1000), QStringLiteral("    12.345|12.345    |+1.000"));
        QCOMPARE(formatted(L"%s %S %5c %hs", L"1234567", "1234567", 'c', "\xC3\xA9"),
                 QStringLiteral("1234567 1234567     c \u00C3\u00A9"));
        QCOMPARE(formatted(L"%f %g", 1000.5, 1000.5), QStringLiteral("1.000,500000 1.000,500000"));
        QCOMPARE(formatted(L"%9y%d%y|", 1234), QStringLiteral("    1.234|"));
    }
    QCOMPARE(numbers(), classic);
}

void tst_FormatCalls::threads()
{
    std::array<bool, 4> right{};
    std::array<std::thread, right.size()> threads;
    for (std::size_t i = 0; i < threads.size(); ++i) {
        threads[i] = std::thread([&result = right[i], number = static_cast<int>(i)] {
            result = true;
            for (int round = 0; round < 1000; ++round) {
                CString_X text;
                text.Format(L"%d %x %.2f %g %s", number, round, 0.5, 0.5, L"text");
                const QString expected = QStringLiteral("%1 %2 0.50 0.500000 text").arg(number).arg(round, 0, 16);
                result = result && XeQString(text) == expected;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (const bool result : right)
        QVERIFY(result);
}

void tst_FormatCalls::sprintfMeansThePlatforms()
{
    char text[64];
    QCOMPARE(sprintf_s(text, sizeof text, "%s %ls %03d %u %.2f", "narrow", L"wide", 7, 0xFFFFFFFFU, 1.5), 31);
    QCOMPARE(text, "narrow wide 007 4294967295 1.50");
    QCOMPARE(sprintf_s(text, "%.2s", "narrow"), 2); // the array's own size
    QCOMPARE(text, "na");
}

void tst_FormatCalls::sprintfCuts()
{
    char text[8] = "1234567";
    QCOMPARE(sprintf_s(text, 4, "%s", "narrow"), 6);
    QCOMPARE(text, "nar");
    QCOMPARE(text[4], '5');
    QCOMPARE(sprintf_s(text, "%d", 123456789), 9);
    QCOMPARE(text, "1234567");
}

void tst_FormatCalls::swprintfMeansThePlatforms()
{
    wchar_t text[64];
    QCOMPARE(swprintf_s(text, 64, L"%s %ls %03d %u", "narrow", L"wide", 7, 0xFFFFFFFFU), 26);
    QCOMPARE(QString::fromWCharArray(text), QStringLiteral("narrow wide 007 4294967295"));
    QCOMPARE(swprintf_s(text, L"%.2ls", L"wide"), 2); // the array's own size
    QCOMPARE(QString::fromWCharArray(text), QStringLiteral("wi"));
}

void tst_FormatCalls::swprintfFailsWhenThereIsNoRoom()
{
    wchar_t text[4] = {};
    QVERIFY(swprintf_s(text, L"%d", 1234) < 0);
    QCOMPARE(swprintf_s(text, L"%d", 123), 3);
    QCOMPARE(QString::fromWCharArray(text), QStringLiteral("123"));
}

XE_APPLESS_TEST(tst_FormatCalls)
#include "tst_formatcalls.moc"
