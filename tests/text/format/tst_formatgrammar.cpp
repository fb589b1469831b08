#include "formatted.h"
#include "testclass.h"
#include "textrows.h"

#include <climits>

/// How a format is read: literal text, flags, widths and precisions with their stars, the end of the format.
class tst_FormatGrammar : public QObject, private TextRows
{
    Q_OBJECT

private slots:
    void literals_data();
    void literals() { compare(); }
    void widths_data();
    void widths() { compare(); }
    void stars_data();
    void stars() { compare(); }
    void precisions_data();
    void precisions() { compare(); }
    void endOfFormat_data();
    void endOfFormat();
    void nullFormat();
    void longLiteral();
};

void tst_FormatGrammar::literals_data()
{
    columns();
    QTest::newRow("empty") << formatted(L"") << "";
    QTest::newRow("plain") << formatted(L"plain text") << "plain text";
    QTest::newRow("not ASCII") << formatted(L"é日😀\U0010FFFF") << QStringLiteral("é日😀\U0010FFFF");
    QTest::newRow("percent sign") << formatted(L"%%") << "%";
    QTest::newRow("percent signs") << formatted(L"%%%%a%%") << "%%a%";
    QTest::newRow("percent sign before a letter") << formatted(L"100%%d") << "100%d";
    QTest::newRow("percent sign before a conversion") << formatted(L"%%%d%%", 5) << "%5%";
    QTest::newRow("between conversions") << formatted(L"a%db%dc", 1, 2) << "a1b2c";
    QTest::newRow("backslashes and quotation marks") << formatted(L"\\n\"'") << "\\n\"'";
    QTest::newRow("control characters") << formatted(L"\a\t\r\n") << "\a\t\r\n";
}

void tst_FormatGrammar::widths_data()
{
    columns();
    QTest::newRow("digits") << formatted(L"%12d", 7) << "           7";
    QTest::newRow("0 is a flag and no width") << formatted(L"%0d", 7) << "7";
    QTest::newRow("0 in front of the width") << formatted(L"%003d", 7) << "  7";
    QTest::newRow("blank in front of the width") << formatted(L"% 3d", 7) << "  7";
    QTest::newRow("flags in any order") << formatted(L"%+-5d|%-+5d|", 7, 7) << "+7   |+7   |";
    QTest::newRow("a flag behind the width is the letter") << formatted(L"%5-d") << "    d";
    QTest::newRow("white space in front of digits: the digits stay") << formatted(L"%\t3d|") << "  3d|";
    QTest::newRow("more than any integer can hold is none") << formatted(L"%99999999999999999999d", 7) << "7";
    QTest::newRow("the low 32 bits count") << formatted(L"%4294967299d", 7) << "  7";
}

void tst_FormatGrammar::stars_data()
{
    columns();
    QTest::newRow("width") << formatted(L"%*d", 5, 7) << "    7";
    QTest::newRow("width, left") << formatted(L"%-*d|", 5, 7) << "7    |";
    QTest::newRow("flag behind the star") << formatted(L"%*-d|", 5, 7) << "7    |";
    QTest::newRow("flags around the star") << formatted(L"%+*-d|", 5, 7) << "+7   |";
    QTest::newRow("0 is no width") << formatted(L"%*d", 0, 7) << "7";
    QTest::newRow("a negative width pads nothing") << formatted(L"%*d|", -5, 7) << "7|";
    QTest::newRow("a negative width pads no text") << formatted(L"%*s|", -5, L"a") << "a|";
    QTest::newRow("a negative width with left pads nothing") << formatted(L"%-*d|", -5, 7) << "7|";
    QTest::newRow("the lowest width pads nothing")
        << formatted(L"%*d|%*s|%*p|", INT_MIN, 7, INT_MIN, L"a", INT_MIN, nullptr) << "7|a|0|";
    QTest::newRow("the last of several stars counts") << formatted(L"%**d %d", 9, 4, 7, 8) << "   7 8";
    QTest::newRow("the last of several stars, apart") << formatted(L"%*-*d| %d", 9, 4, 7, 8) << "7   | 8";
    QTest::newRow("a last star of 0") << formatted(L"%**d %d", 9, 0, 7, 8) << "7 8";
    QTest::newRow("digits behind a star of 0 are the width") << formatted(L"%*5d %d", 0, 7, 8) << "    7 8";
    QTest::newRow("digits behind any other star end the conversion") << formatted(L"%*5d %d", 3, 7) << "  d 7";
    QTest::newRow("digits behind a negative star end it too") << formatted(L"%*5d %d", -3, 7) << "d 7";
    QTest::newRow("0 behind a star is a flag") << formatted(L"%*0d", 3, 7) << "  7";
    QTest::newRow("a star behind digits is the letter") << formatted(L"%5*d", 7) << "    d";
    QTest::newRow("precision") << formatted(L"%.*f", 2, 1.5) << "1.50";
    QTest::newRow("precision of 0") << formatted(L"%.*f", 0, 1.5) << "2";
    QTest::newRow("precision of -1 is 6") << formatted(L"%.*f", -1, 1.5) << "1.500000";
    QTest::newRow("negative precision is 6") << formatted(L"%.*f", -3, 1.5) << "1.500000";
    QTest::newRow("the lowest precision is 6") << formatted(L"%.*e", INT_MIN, 1.5) << "1.500000e+00";
    QTest::newRow("width and precision") << formatted(L"%*.*f|", 7, 2, 1.5) << "   1.50|";
    QTest::newRow("width 0, precision") << formatted(L"%*.*f|", 0, 2, 1.5) << "1.50|";
    QTest::newRow("digits behind the precision's star end the conversion") << formatted(L"%.*2f %d", 1, 7) << "f 7";
    QTest::newRow("two stars for the precision end the conversion") << formatted(L"%.**f %d", 1, 7) << "f 7";
}

void tst_FormatGrammar::precisions_data()
{
    columns();
    QTest::newRow("digits") << formatted(L"%.3f", 1.5) << "1.500";
    QTest::newRow("0") << formatted(L"%.0f", 1.5) << "2";
    QTest::newRow("no digits are 0") << formatted(L"%.f", 1.5) << "2";
    QTest::newRow("no digits before a prefix are 0") << formatted(L"%.lf", 1.5) << "2";
    QTest::newRow("leading zeros") << formatted(L"%.003f", 1.5) << "1.500";
    QTest::newRow("none is 6") << formatted(L"%f", 1.5) << "1.500000";
    QTest::newRow("a sign is no digit: the conversion ends there") << formatted(L"%.-3f|") << "3f|";
    QTest::newRow("a second point is the letter") << formatted(L"%..3f|") << "3f|";
    QTest::newRow("all bits of 32 are none") << formatted(L"%.4294967295f", 1.5) << "1.500000";
    QTest::newRow("width without digits behind it") << formatted(L"%8.f|", 1.5) << "       2|";
}

// The scan ends there; the arguments behind would tell if it read on.
void tst_FormatGrammar::endOfFormat_data()
{
    QTest::addColumn<QString>("format");
    for (const char* end : {"%",  "%-", "%+", "%0", "% ", "%#", "%-+0 #", "%5",   "%-5",    "%.",        "%.3", "%5.3",
                            "%l", "%L", "%w", "%h", "%F", "%N", "%ll",    "%I64", "%5.3ll", "%-08.3I64", "%+h"})
        QTest::newRow(end) << end;
}

void tst_FormatGrammar::endOfFormat()
{
    QFETCH(QString, format);
    // Behind the format's terminator stands text of another format, which must not come out.
    std::wstring memory = format.toStdWString();
    memory += std::wstring(1, L'\0') + L"read on %d %s %n";
    QCOMPARE(formatted(memory.c_str(), 7, 8, 9), QString());

    memory.insert(0, L"%d ");
    QCOMPARE(formatted(memory.c_str(), 7, 8, 9), QStringLiteral("7 "));

    const std::wstring exact = L"x" + format.toStdWString();
    const std::unique_ptr<wchar_t[]> heap(new wchar_t[exact.size() + 1]);
    std::copy_n(exact.c_str(), exact.size() + 1, heap.get());
    QCOMPARE(formatted(heap.get(), 7, 8), QStringLiteral("x"));
}

void tst_FormatGrammar::nullFormat()
{
    QCOMPARE(formatted(nullptr), QString());
    QCOMPARE(formatted(nullptr, 1, 2), QString());
}

void tst_FormatGrammar::longLiteral()
{
    std::wstring format, expected;
    for (int i = 0; i < 100000; ++i) {
        format += L"literal %% 日";
        expected += L"literal % 日";
    }
    QVERIFY(formatted(format.c_str()) == QString::fromStdWString(expected));
}

XE_APPLESS_TEST(tst_FormatGrammar)
#include "tst_formatgrammar.moc"
