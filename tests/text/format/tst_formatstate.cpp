#include "formatted.h"
#include "testclass.h"
#include "textrows.h"

/// What one conversion leaves to those behind it in the same format, and what it does not.
class tst_FormatState : public QObject, private TextRows
{
    Q_OBJECT

private slots:
    void notation_data();
    void notation() { compare(); }
    void settingsOfOneConversion_data();
    void settingsOfOneConversion() { compare(); }
    void widthLeftOver_data();
    void widthLeftOver() { compare(); }
    void eachCallStartsAnew();
};

// %g and %G write as the last %f, %e or %E did.
void tst_FormatState::notation_data()
{
    columns();
    QTest::newRow("%g alone") << formatted(L"%g", 1.5) << "1.5";
    QTest::newRow("%G alone") << formatted(L"%G", 1e-10) << "1E-10";
    QTest::newRow("%f %g") << formatted(L"%f %g", 1.5, 1.5) << "1.500000 1.500000";
    QTest::newRow("%e %g") << formatted(L"%e %g", 1.5, 1.5) << "1.500000e+00 1.500000e+00";
    QTest::newRow("%E %g %G") << formatted(L"%E %g %G", 1.5, 1.5, 1.5) << "1.500000E+00 1.500000e+00 1.500000E+00";
    QTest::newRow("%f %G") << formatted(L"%f %G", 1e10, 1e10) << "10000000000.000000 10000000000.000000";
    QTest::newRow("%g %f %g") << formatted(L"%g %f %g", 0.5, 0.5, 0.5) << "0.5 0.500000 0.500000";
    QTest::newRow("%f %e %g") << formatted(L"%f %e %g", 2.0, 2.0, 2.0) << "2.000000 2.000000e+00 2.000000e+00";
    QTest::newRow("%e %f %g") << formatted(L"%e %f %g", 2.0, 2.0, 2.0) << "2.000000e+00 2.000000 2.000000";
    QTest::newRow("%g %g") << formatted(L"%g %g", 1e20, 0.25) << "1e+20 0.25";
    QTest::newRow("the precision of %g counts as decimals then")
        << formatted(L"%f %.2g %.0g", 1.5, 12.345, 2.5) << "1.500000 12.35 2";
    QTest::newRow("over all other conversions")
        << formatted(L"%f %d%s%c%x%p %g", 1.5, 1, L"s", 'c', 10, nullptr, 1.5) << "1.500000 1sca0 1.500000";
    QTest::newRow("%f of infinity, too") << formatted(L"%f %g", qInf(), 1.5) << "inf 1.500000";
    QTest::newRow("%llf sets nothing") << formatted(L"%llf%g", 1.5) << "1.5";
    QTest::newRow("%f with a prefix sets it") << formatted(L"%lf %Lg", 1.5, 1.5) << "1.500000 1.500000";
}

void tst_FormatState::settingsOfOneConversion_data()
{
    columns();
    QTest::newRow("precision") << formatted(L"%.2f %f", 1.5, 1.5) << "1.50 1.500000";
    QTest::newRow("precision of another letter") << formatted(L"%.2d %f", 1, 1.5) << "1 1.500000";
    QTest::newRow("point of #") << formatted(L"%#.0f %.0f", 2.0, 2.0) << "2. 2";
    QTest::newRow("point of # for %g") << formatted(L"%#g %g", 2.0, 2.0) << "2.00000 2";
    QTest::newRow("point of # is not for an integer") << formatted(L"%#d %g", 2, 2.0) << "2 2";
    QTest::newRow("sign") << formatted(L"%+d %f %+f %d", 1, 1.5, 1.5, 1) << "+1 1.500000 +1.500000 1";
    QTest::newRow("case of %X") << formatted(L"%X %x", 171, 171) << "AB ab";
    QTest::newRow("case of %X is not that of %e") << formatted(L"%X %e", 171, 1.0) << "AB 1.000000e+00";
    QTest::newRow("case of %X is not that of %g") << formatted(L"%X %g", 171, 1e-9) << "AB 1e-09";
    QTest::newRow("case of %X is not that of %f") << formatted(L"%X %f", 171, qInf()) << "AB inf";
    QTest::newRow("case of %E is not that of %x") << formatted(L"%.0E %x", 1.0, 171) << "1E+00 ab";
    QTest::newRow("case of %G is not that of %f") << formatted(L"%G %f %g", qInf(), qInf(), qInf()) << "INF inf inf";
    QTest::newRow("base of %x") << formatted(L"%x %d %o %i %X %u", 255, 255, 255, 255, 255, 255)
                                << "ff 255 377 255 FF 255";
    QTest::newRow("base of %x for 64 bits")
        << formatted(L"%x %lld %llo %I64u", 255, 255LL, 255LL, 255LL) << "ff 255 377 255";
    QTest::newRow("shown base") << formatted(L"%#x %llx %#llo %o", 255, 255LL, 8LL, 8) << "0xff ff 010 10";
    QTest::newRow("shown base is not for %d") << formatted(L"%#x %d", 255, 255) << "0xff 255";
    QTest::newRow("adjustment") << formatted(L"%-4s|%4s|%-4d|%4d|", L"a", L"b", 1, 2) << "a   |   b|1   |   2|";
}

// A width whose conversion wrote nothing pads whatever is written next.
void tst_FormatState::widthLeftOver_data()
{
    columns();
    QTest::newRow("to a literal") << formatted(L"%5yab") << "    ab";
    QTest::newRow("to the first element of a literal alone") << formatted(L"%3yabc%3yd") << "  abc  d";
    QTest::newRow("to an element above 0xFFFF") << formatted(L"%3y😀") << QStringLiteral("  😀");
    QTest::newRow("to a percent sign") << formatted(L"%5y%%") << "    %";
    QTest::newRow("to text") << formatted(L"%5y%s", L"abc") << "  abc";
    QTest::newRow("to narrow text") << formatted(L"%5y%S", "abc") << "  abc";
    QTest::newRow("to a character") << formatted(L"%5y%c", 'c') << "    c";
    QTest::newRow("to an integer") << formatted(L"%5y%d", 42) << "   42";
    QTest::newRow("to a pattern") << formatted(L"%6y%#x", 255) << "  0xff";
    QTest::newRow("to 64 bits") << formatted(L"%5y%lld", 42LL) << "   42";
    QTest::newRow("to a double") << formatted(L"%5y%.1f", 1.5) << "  1.5";
    QTest::newRow("to a pointer") << formatted(L"%5y%p", nullptr) << "    0";
    QTest::newRow("to (null)") << formatted(L"%8y%s", static_cast<const wchar_t*>(nullptr)) << "  (null)";
    QTest::newRow("to empty text, and ends there") << formatted(L"%3y%s|", L"") << "   |";
    QTest::newRow("over others that write nothing") << formatted(L"%5y%z%lls%d", 42) << "   42";
    QTest::newRow("of the last of two") << formatted(L"%9y%5y%d", 42) << "   42";
    QTest::newRow("gives way to a width of its own") << formatted(L"%9y%5d", 42) << "   42";
    QTest::newRow("gives way to a negative width from a star") << formatted(L"%9y%*d", -5, 42) << "42";
    QTest::newRow("stays for a width of 0") << formatted(L"%5y%0d", 42) << "   42";
    QTest::newRow("from a star") << formatted(L"%*y%d", 5, 42) << "   42";
    QTest::newRow("of a letter that does not go with 64 bits") << formatted(L"%5lls%d", 42) << "   42";
    QTest::newRow("of a percent sign behind a width") << formatted(L"%5%d") << "    d";
    QTest::newRow("ends with the format") << formatted(L"a%5y") << "a";

    QTest::newRow("left, to a literal") << formatted(L"%-5yab") << "a    b";
    QTest::newRow("left, to a percent sign") << formatted(L"%-5y%%|") << "%    |";
    QTest::newRow("left, to text, which sets right again") << formatted(L"%-5y%s|", L"abc") << "  abc|";
    QTest::newRow("left, to a number, which sets right again") << formatted(L"%-5y%d|", 42) << "   42|";
    QTest::newRow("right, to a conversion that sets left") << formatted(L"%5y%-d|", 42) << "42   |";
    QTest::newRow("left of a conversion that wrote, to a literal") << formatted(L"%-2d%5y|%-y|", 1) << "1     ||";
}

void tst_FormatState::eachCallStartsAnew()
{
    QCOMPARE(formatted(L"%#+.2E %9y", 1.5), QStringLiteral("+1.50E+00 "));
    QCOMPARE(formatted(L"a%g %g", 1.5, 2.0), QStringLiteral("a1.5 2"));
    QCOMPARE(formatted(L"%#X", 171), QStringLiteral("0XAB"));
    QCOMPARE(formatted(L"%hc %lld", 171, 171LL), QStringLiteral("171 171"));
}

XE_APPLESS_TEST(tst_FormatState)
#include "tst_formatstate.moc"
