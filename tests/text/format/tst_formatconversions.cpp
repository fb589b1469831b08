#include "formatted.h"
#include "testclass.h"
#include "textrows.h"

/// Every letter that writes something other than a number for an integer or a double, with each size prefix.
class tst_FormatConversions : public QObject, private TextRows
{
    Q_OBJECT

private slots:
    void character_data();
    void character() { compare(); }
    void wideText_data();
    void wideText() { compare(); }
    void narrowText_data();
    void narrowText() { compare(); }
    void pointer_data();
    void pointer() { compare(); }
    void intBehindPointer_data();
    void intBehindPointer() { compare(); }
    void theIntBehindThePointerStays();
    void nothing_data();
    void nothing() { compare(); }
    void millionElements();
};

void tst_FormatConversions::character_data()
{
    columns();
    QTest::newRow("%c") << formatted(L"%c", 65) << "A";
    QTest::newRow("%C") << formatted(L"%C", 65) << "A";
    QTest::newRow("%lc") << formatted(L"%lc", 65) << "A";
    QTest::newRow("%lC") << formatted(L"%lC", 65) << "A";
    QTest::newRow("%wc") << formatted(L"%wc", 65) << "A";
    QTest::newRow("%wC") << formatted(L"%wC", 65) << "A";
    QTest::newRow("%Lc") << formatted(L"%Lc", 65) << "A";
    QTest::newRow("%LC") << formatted(L"%LC", 65) << "A";
    QTest::newRow("%Fc as %c") << formatted(L"%Fc", 65) << "A";
    QTest::newRow("%NC as %C") << formatted(L"%NC", 65) << "A";
    QTest::newRow("a code point of two QChars is one element") << formatted(L"%3c", 0x1F600) << QStringLiteral("  😀");
    QTest::newRow("padded on the left") << formatted(L"%4c|", L'x') << "   x|";
    QTest::newRow("padded on the right") << formatted(L"%-4c|", L'x') << "x   |";
    QTest::newRow("the precision is ignored") << formatted(L"%.0c", L'x') << "x";
    QTest::newRow("0 is an element") << formatted(L"a%cb", 0) << QString::fromLatin1("a\0b", 3);
    QTest::newRow("%hc is a number") << formatted(L"%hc", 65) << "65";
    QTest::newRow("%hC is a number") << formatted(L"%hC", 65) << "65";
    QTest::newRow("%hc of a negative value") << formatted(L"%hc", -65) << "-65";
    QTest::newRow("%hc with a sign") << formatted(L"%+hc", 65) << "+65";
    QTest::newRow("%hc with a width") << formatted(L"%5hc|%-5hC|", 65, 66) << "   65|66   |";
    QTest::newRow("%hc is decimal behind %#x") << formatted(L"%#x %hc", 65, 65) << "0x41 65";
    QTest::newRow("%hC is decimal behind %o") << formatted(L"%o %hC", 65, 65) << "101 65";
}

void tst_FormatConversions::wideText_data()
{
    columns();
    const wchar_t* const text = L"abc";
    const wchar_t* const null = nullptr;
    QTest::newRow("%s") << formatted(L"%s", text) << "abc";
    QTest::newRow("%ls") << formatted(L"%ls", text) << "abc";
    QTest::newRow("%lS") << formatted(L"%lS", text) << "abc";
    QTest::newRow("%ws") << formatted(L"%ws", text) << "abc";
    QTest::newRow("%wS") << formatted(L"%wS", text) << "abc";
    QTest::newRow("%Ls") << formatted(L"%Ls", text) << "abc";
    QTest::newRow("%LS") << formatted(L"%LS", text) << "abc";
    QTest::newRow("%Fs as %s") << formatted(L"%Fs", text) << "abc";
    QTest::newRow("%Ns as %s") << formatted(L"%Ns", text) << "abc";
    QTest::newRow("null") << formatted(L"%s %ls %LS", null, null, null) << "(null) (null) (null)";
    QTest::newRow("null with a width") << formatted(L"%8s|%-8s|", null, null) << "  (null)|(null)  |";
    QTest::newRow("empty") << formatted(L"<%s>", L"") << "<>";
    QTest::newRow("empty with a width") << formatted(L"<%3s>", L"") << "<   >";
    QTest::newRow("padded on the left") << formatted(L"%5s|", text) << "  abc|";
    QTest::newRow("padded on the right") << formatted(L"%-5s|", text) << "abc  |";
    QTest::newRow("never cut by the width") << formatted(L"%2s|", text) << "abc|";
    QTest::newRow("never cut by the precision") << formatted(L"%.2s|%.0ls|%.s", text, text, text) << "abc|abc|abc";
    QTest::newRow("the precision's star is taken") << formatted(L"%.*s %d", 1, text, 7) << "abc 7";
    QTest::newRow("the other flags are ignored") << formatted(L"%0+ #5s", text) << "  abc";
    QTest::newRow("not ASCII") << formatted(L"%4s", L"日本é") << QStringLiteral(" 日本é");
    QTest::newRow("above 0xFFFF each code point is one element")
        << formatted(L"%3s", L"\U0001F600\U0010FFFF") << QStringLiteral(" 😀\U0010FFFF");
    QTest::newRow("a percent sign in the text is only text") << formatted(L"%s", L"%d") << "%d";
}

void tst_FormatConversions::narrowText_data()
{
    columns();
    const char* const text = "abc";
    const char* const null = nullptr;
    QTest::newRow("%S") << formatted(L"%S", text) << "abc";
    QTest::newRow("%hs") << formatted(L"%hs", text) << "abc";
    QTest::newRow("%hS") << formatted(L"%hS", text) << "abc";
    QTest::newRow("%FS as %S") << formatted(L"%FS", text) << "abc";
    QTest::newRow("%NS as %S") << formatted(L"%NS", text) << "abc";
    QTest::newRow("null") << formatted(L"%S %hs %hS", null, null, null) << "(null) (null) (null)";
    QTest::newRow("null with a width") << formatted(L"%8S|%-8hs|", null, null) << "  (null)|(null)  |";
    QTest::newRow("empty with a width") << formatted(L"<%3S>", "") << "<   >";
    QTest::newRow("padded on the left") << formatted(L"%5S|", text) << "  abc|";
    QTest::newRow("padded on the right") << formatted(L"%-5hs|", text) << "abc  |";
    QTest::newRow("never cut by the precision") << formatted(L"%.2S|%.*hs", text, 0, text) << "abc|abc";
    QTest::newRow("the same as %s for ASCII") << formatted(L"%S", "I/O 7~") << formatted(L"%s", L"I/O 7~");
    // U+00E9 has two bytes in UTF-8.
    QTest::newRow("not decoded as UTF-8") << formatted(L"<%S>", "\xC3\xA9") << QStringLiteral("<\u00C3\u00A9>");
    QTest::newRow("each byte counts for the width")
        << formatted(L"%4S", "\xC3\xA9") << QStringLiteral("  \u00C3\u00A9");
    QTest::newRow("a byte that is no text in UTF-8")
        << formatted(L"%Sx", "\xFF\x80") << QStringLiteral("\u00FF\u0080x");
}

void tst_FormatConversions::pointer_data()
{
    columns();
    void* const null = nullptr;
    void* const address = reinterpret_cast<void*>(quintptr(0x00abcdef12));
    QTest::newRow("lower case, no leading zeros") << formatted(L"%p", address) << "0xabcdef12";
    QTest::newRow("all bits") << formatted(L"%p", reinterpret_cast<void*>(~quintptr(0))) << "0xffffffffffffffff";
    QTest::newRow("null") << formatted(L"%p", null) << "0";
    QTest::newRow("padded") << formatted(L"%12p|%-12p|%4p", address, address, null) << "  0xabcdef12|0xabcdef12  |   0";
    QTest::newRow("no sign") << formatted(L"%+p", address) << "0xabcdef12";
    QTest::newRow("the precision is ignored") << formatted(L"%.20p", address) << "0xabcdef12";
    QTest::newRow("lower case behind %X") << formatted(L"%X %p", 0xAB, address) << "AB 0xabcdef12";
    QTest::newRow("lower case behind %E") << formatted(L"%.0E %p", 1.0, address) << "1E+00 0xabcdef12";
    QTest::newRow("leaves base and case to the next")
        << formatted(L"%#X %p %#X %d", 255, address, 255, 9) << "0XFF 0xabcdef12 0XFF 9";
    for (const wchar_t* format : {L"%hp", L"%lp", L"%Lp", L"%wp", L"%Fp", L"%Np"})
        QTest::addRow("%ls as %%p", format) << formatted(format, address) << "0xabcdef12";
}

void tst_FormatConversions::intBehindPointer_data()
{
    columns();
    static const int value = 42, negative = -42;
    const int* const null = nullptr;
    QTest::newRow("is written") << formatted(L"abc%n", &value) << "abc42";
    QTest::newRow("negative") << formatted(L"%n", &negative) << "-42";
    QTest::newRow("with a sign") << formatted(L"%+n", &value) << "+42";
    QTest::newRow("padded") << formatted(L"%5n|%-5n|", &value, &value) << "   42|42   |";
    QTest::newRow("decimal behind %x") << formatted(L"%x %n", 42, &value) << "2a 42";
    QTest::newRow("decimal behind %#o") << formatted(L"%#o %n", 42, &value) << "052 42";
    QTest::newRow("null writes nothing and takes its argument") << formatted(L"<%n>%d", null, 5) << "<>5";
    QTest::newRow("null leaves its width to the next") << formatted(L"%4n%d", null, 5) << "   5";
    for (const wchar_t* format : {L"%hn", L"%ln", L"%Ln", L"%wn", L"%Fn", L"%Nn"})
        QTest::addRow("%ls as %%n", format) << formatted(format, &value) << "42";
}

void tst_FormatConversions::theIntBehindThePointerStays()
{
    int value = 42;
    formatted(L"abcdef%n", &value);
    QCOMPARE(value, 42);
}

// The conversion behind takes the first argument, so that the one in front has taken none.
void tst_FormatConversions::nothing_data()
{
    columns();
    for (const wchar_t letter : std::wstring(L"aAbBDHjJkKmMOPqQrRtTUvVWyYzZ_|\t\"é日")) {
        const std::wstring format = std::wstring(L"<%") + letter + L">%d";
        QTest::addRow("%%%s", qUtf8Printable(QString::fromStdWString(std::wstring(1, letter))))
            << formatted(format.c_str(), 7) << "<>7";
    }
    for (const wchar_t* prefix : {L"I64", L"ll"}) {
        for (const wchar_t letter : std::wstring(L"sScCeEfgGpnaAyzhlLwFN%")) {
            const std::wstring format = std::wstring(L"<%") + prefix + letter + L">%d";
            QTest::addRow("%%%ls%lc", prefix, wint_t(letter)) << formatted(format.c_str(), 7) << "<>7";
        }
    }
    QTest::newRow("%zu writes the u") << formatted(L"%zu %d", 7) << "u 7";
    QTest::newRow("%jd writes the d") << formatted(L"%jd %d", 7) << "d 7";
    QTest::newRow("%hhd writes the d") << formatted(L"%hhd %d", 7) << "d 7";
    QTest::newRow("%llld writes the d") << formatted(L"%llld %d", 7) << "d 7";
    QTest::newRow("%Id writes the d: I alone is no prefix") << formatted(L"%Id %d", 7) << "d 7";
    QTest::newRow("%I32d writes the 32d") << formatted(L"%I32d %d", 7) << "32d 7";
    QTest::newRow("%I6 at the end writes the 6") << formatted(L"%d%I6", 7) << "76";
    QTest::newRow("%F takes what follows as its letter") << formatted(L"%F %d", 7) << "7";
    QTest::newRow("with a star its int is taken") << formatted(L"<%*y>%d", 1, 7) << "<>7";
    QTest::newRow("with a precision's star too") << formatted(L"<%.*y>%d", 1, 7) << "<>7";
}

void tst_FormatConversions::millionElements()
{
    const std::wstring wide(1000000, L'\u4e2d');
    const QString text = formatted(L"<%s>", wide.c_str());
    QCOMPARE(text.size(), 1000002);
    QVERIFY(text == QLatin1Char('<') + QString(1000000, QChar(0x4e2d)) + QLatin1Char('>'));

    const std::string narrow(1000000, 'n');
    QVERIFY(formatted(L"%1000003S", narrow.c_str()) == QStringLiteral("   ") + QString(1000000, QLatin1Char('n')));
}

XE_APPLESS_TEST(tst_FormatConversions)
#include "tst_formatconversions.moc"
