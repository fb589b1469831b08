#include "formatted.h"
#include "testclass.h"

#include <cfloat>
#include <cstdio>

namespace {

// The C library's text of one double, which a stream's is.
QString byPrintf(const QString& format, double value)
{
    const QByteArray narrow = format.toLatin1();
    std::string text(static_cast<std::size_t>(std::snprintf(nullptr, 0, narrow.constData(), value)), '\0');
    std::snprintf(text.data(), text.size() + 1, narrow.constData(), value);
    return QString::fromStdString(text);
}

struct NamedDouble
{
    const char* name;
    double value;
};

const NamedDouble doubles[] = {
    {"0", 0.0},
    {"-0", -0.0},
    {"1", 1.0},
    {"-1.5", -1.5},
    {"0.1", 0.1},
    {"0.5", 0.5},
    {"2.5", 2.5},
    {"9.9999995", 9.9999995},
    {"999999.4", 999999.4},
    {"0.0001", 0.0001},
    {"0.00009999995", 0.00009999995},
    {"100000", 100000.0},
    {"1000000", 1000000.0},
    {"1e15", 1e15},
    {"1e22", 1e22},
    {"1e23", 1e23},
    {"2^53 + 1", 9007199254740993.0},
    {"1e100", 1e100},
    {"-1e-100", -1e-100},
    {"the largest", DBL_MAX},
    {"the smallest normal", DBL_MIN},
    {"the smallest", 4.9406564584124654e-324},
    {"a denormal", 2.2250738585072009e-308},
    {"infinity", qInf()},
    {"-infinity", -qInf()},
    {"not a number", qQNaN()},
    {"-not a number", -qQNaN()},
};

} // namespace

/// The floating letters: exact rows, and every interesting double with every setting against the C library.
class tst_FormatFloats : public QObject
{
    Q_OBJECT

private slots:
    void rows_data();
    void rows();
    void everyDouble_data();
    void everyDouble();
};

void tst_FormatFloats::rows_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("%f") << formatted(L"%f", 1.5) << "1.500000";
    QTest::newRow("%e") << formatted(L"%e", 12345.678) << "1.234568e+04";
    QTest::newRow("%E") << formatted(L"%E", 12345.678) << "1.234568E+04";
    QTest::newRow("%g") << formatted(L"%g %g %g", 100000.0, 1000000.0, 0.0001) << "100000 1e+06 0.0001";
    QTest::newRow("%g that rounds up to an exponent") << formatted(L"%g", 999999.5) << "1e+06";
    QTest::newRow("%G") << formatted(L"%G %G", 0.00001, 1.5) << "1E-05 1.5";
    for (const wchar_t* prefix : {L"l", L"L", L"w", L"h", L"F", L"N"}) {
        const std::wstring before = std::wstring(L"%") + prefix;
        QTest::addRow("%%%lsf as %%f", prefix) << formatted((before + L"f").c_str(), 1.5) << "1.500000";
        QTest::addRow("%%%lse as %%e", prefix) << formatted((before + L"e").c_str(), 1.5) << "1.500000e+00";
        QTest::addRow("%%%lsE as %%E", prefix) << formatted((before + L"E").c_str(), 1.5) << "1.500000E+00";
        QTest::addRow("%%%lsg as %%g", prefix) << formatted((before + L"g").c_str(), 1e-9) << "1e-09";
        QTest::addRow("%%%lsG as %%G", prefix) << formatted((before + L"G").c_str(), 1e-9) << "1E-09";
    }
    QTest::newRow("precision") << formatted(L"%.2g %.2f %.2e", 3.14159, 3.14159, 3.14159) << "3.1 3.14 3.14e+00";
    QTest::newRow("precision of %g") << formatted(L"%.3g %.10g", 3.14159, 0.1) << "3.14 0.1";
    QTest::newRow("halves go to even") << formatted(L"%.0f %.0f %.0f", 0.5, 1.5, 2.5) << "0 2 2";
    QTest::newRow("plus") << formatted(L"%+f %+g %+.0e", 1.5, -1.5, 1.0) << "+1.500000 -1.500000 +1e+00";
    QTest::newRow("blank is ignored") << formatted(L"% f", 1.5) << "1.500000";
    QTest::newRow("0 pads with blanks") << formatted(L"%08.2f|%-08.2f|", 1.5, -1.5) << "    1.50|-1.50   |";
    QTest::newRow("0 pads infinity with blanks") << formatted(L"%06f", qInf()) << "   inf";
    QTest::newRow("# shows the point") << formatted(L"%#.0f %#.0e", 2.0, 2.0) << "2. 2.e+00";
    QTest::newRow("# of %g keeps the zeros") << formatted(L"%#g %#.3G", 1.5, 1.0) << "1.50000 1.00";
    QTest::newRow("# has no meaning for infinity") << formatted(L"%#f %#g", qInf(), qInf()) << "inf inf";
    QTest::newRow("padded") << formatted(L"%8.2f|%-8.2f|", 1.5, 1.5) << "    1.50|1.50    |";
    QTest::newRow("the sign is part of the field") << formatted(L"%+8.2f|%8.2f|", 1.5, -1.5) << "   +1.50|   -1.50|";
    QTest::newRow("upper case") << formatted(L"%E %G", qInf(), -qInf()) << "INF -INF";
    QTest::newRow("%f is never in upper case") << formatted(L"%G %f", qInf(), qInf()) << "INF inf";
    QTest::newRow("-0") << formatted(L"%f %g %.0e", -0.0, -0.0, -0.0) << "-0.000000 -0.000000 -0e+00";
    QTest::newRow("a negative number that rounds to 0") << formatted(L"%.1f", -0.01) << "-0.0";
    QTest::newRow("a float is passed as a double") << formatted(L"%f", 0.5F) << "0.500000";
    QTest::newRow("5000 decimals") << formatted(L"%.5000f", 1.0) << "1." + QString(5000, QLatin1Char('0'));
    QTest::newRow("width over 5000 decimals")
        << formatted(L"%5003.5000f", 1.0) << " 1." + QString(5000, QLatin1Char('0'));
    QTest::newRow("400 decimals and an exponent")
        << formatted(L"%.400e", 1.0) << "1." + QString(400, QLatin1Char('0')) + "e+00";
    QTest::newRow("800 digits with #") << formatted(L"%#.800g", 1.0) << "1." + QString(799, QLatin1Char('0'));
    QTest::newRow("800 digits without #") << formatted(L"%.800g", 1.0) << "1";
    QTest::newRow("a million decimals") << formatted(L"%.1000000f", 0.5) << "0.5" + QString(999999, QLatin1Char('0'));
}

void tst_FormatFloats::rows()
{
    QFETCH(QString, text);
    QTEST(text, "expected");
}

void tst_FormatFloats::everyDouble_data()
{
    QTest::addColumn<double>("value");
    for (const auto& [name, value] : doubles)
        QTest::newRow(name) << value;
}

void tst_FormatFloats::everyDouble()
{
    QFETCH(double, value);
    const char* const precisions[] = {"",     ".",    ".0",   ".1",    ".2",    ".5",    ".6",    ".15",
                                      ".16",  ".17",  ".20",  ".50",   ".308",  ".309",  ".400",  ".766",
                                      ".767", ".768", ".800", ".1073", ".1074", ".1075", ".1200", ".5000"};
    for (const char* flags : {"", "+", "#", "-", "#+-"}) {
        for (const char* width : {"", "1", "30"}) {
            for (const char* precision : precisions) {
                for (const char letter : {'f', 'e', 'E', 'g', 'G'}) {
                    const QString format = QLatin1Char('%') + QLatin1String(flags) + QLatin1String(width)
                                           + QLatin1String(precision) + QLatin1Char(letter);
                    const QString text = formatted(format.toStdWString().c_str(), value);
                    if (text != byPrintf(format, value))
                        QCOMPARE(format + QLatin1Char(' ') + text, format + QLatin1Char(' ') + byPrintf(format, value));
                }
            }
        }
    }
}

XE_APPLESS_TEST(tst_FormatFloats)
#include "tst_formatfloats.moc"
