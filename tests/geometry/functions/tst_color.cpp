// Colours to and from hue, luminance and saturation, each on the published scale of 240.

#include "testclass.h"

#include <xestrapi.h>

#include <climits>

class tst_Color : public QObject
{
    Q_OBJECT

private slots:
    void bothWays_data();
    void bothWays();
    void nullResultsAreLeftOut();
    void highByteIsIgnored();
    void staysInRange();
    void hlsToRgb_data();
    void hlsToRgb();
    void adjustLuma_data();
    void adjustLuma();
};

void tst_Color::bothWays_data()
{
    QTest::addColumn<COLORREF>("color"); // 0x00BBGGRR
    QTest::addColumn<int>("hue");
    QTest::addColumn<int>("luminance");
    QTest::addColumn<int>("saturation");
    QTest::addColumn<COLORREF>("back");

    QTest::newRow("black") << 0x000000U << 160 << 0 << 0 << 0x000000U;
    QTest::newRow("white") << 0xFFFFFFU << 160 << 240 << 0 << 0xFFFFFFU;
    QTest::newRow("grey loses half a step") << 0x808080U << 160 << 120 << 0 << 0x7F7F7FU;
    QTest::newRow("red") << 0x0000FFU << 0 << 120 << 240 << 0x0000FFU;
    QTest::newRow("green") << 0x00FF00U << 80 << 120 << 240 << 0x00FF00U;
    QTest::newRow("blue") << 0xFF0000U << 160 << 120 << 240 << 0xFF0000U;
    QTest::newRow("yellow: red goes before green") << 0x00FFFFU << 40 << 120 << 240 << 0x00FFFFU;
    QTest::newRow("cyan: green goes before blue") << 0xFFFF00U << 120 << 120 << 240 << 0xFFFF00U;
    QTest::newRow("magenta: a hue below 0 comes around") << 0xFF00FFU << 200 << 120 << 240 << 0xFF00FFU;
    QTest::newRow("dark blue without a whole step of luminance") << 0x010000U << 160 << 0 << 240 << 0x000000U;
    QTest::newRow("dark blue") << 0x400000U << 160 << 30 << 240 << 0x400000U;
    QTest::newRow("mostly red") << 0x3264C8U << 13 << 118 << 144 << 0x3263C9U;
    QTest::newRow("mostly green") << 0x64C832U << 93 << 118 << 144 << 0x63C932U;
    QTest::newRow("mostly blue") << 0xC86432U << 147 << 118 << 144 << 0xC96332U;
    QTest::newRow("light, saturation by what is missing to white") << 0x55AACCU << 29 << 136 << 129 << 0x55ABCCU;
    QTest::newRow("the middle still counts as dark") << 0x0101FFU << 0 << 120 << 238 << 0x0101FEU;
    QTest::newRow("nearly white") << 0xFFFEFDU << 140 << 239 << 240 << 0xFFFEFDU;
    QTest::newRow("nearly grey") << 0x7F7F80U << 0 << 120 << 1 << 0x7E7E81U;
}

void tst_Color::bothWays()
{
    QFETCH(COLORREF, color);
    QFETCH(COLORREF, back);
    WORD hue = 999;
    WORD luminance = 999;
    WORD saturation = 999;
    ColorRGBToHLS_X(color, &hue, &luminance, &saturation);
    QTEST(int(hue), "hue");
    QTEST(int(luminance), "luminance");
    QTEST(int(saturation), "saturation");
    QCOMPARE(ColorHLSToRGB_X(hue, luminance, saturation), back);
}

void tst_Color::nullResultsAreLeftOut()
{
    WORD value = 999;
    ColorRGBToHLS_X(0x3264C8, &value, nullptr, nullptr);
    QCOMPARE(int(value), 13);
    ColorRGBToHLS_X(0x3264C8, nullptr, &value, nullptr);
    QCOMPARE(int(value), 118);
    ColorRGBToHLS_X(0x3264C8, nullptr, nullptr, &value);
    QCOMPARE(int(value), 144);
    ColorRGBToHLS_X(0x3264C8, nullptr, nullptr, nullptr);
}

void tst_Color::highByteIsIgnored()
{
    WORD hue = 999;
    WORD luminance = 999;
    WORD saturation = 999;
    ColorRGBToHLS_X(0xFF0000FF, &hue, &luminance, &saturation);
    QCOMPARE(int(hue), 0);
    QCOMPARE(int(luminance), 120);
    QCOMPARE(int(saturation), 240);
}

void tst_Color::staysInRange()
{
    constexpr int levels[] = {0, 1, 2, 15, 63, 64, 100, 127, 128, 129, 191, 200, 253, 254, 255};
    for (const int red : levels) {
        for (const int green : levels) {
            for (const int blue : levels) {
                WORD hue = 999;
                WORD luminance = 999;
                WORD saturation = 999;
                ColorRGBToHLS_X(static_cast<COLORREF>(red | green << 8 | blue << 16), &hue, &luminance, &saturation);
                QVERIFY(hue <= 240 && luminance <= 240 && saturation <= 240);
            }
        }
    }
}

void tst_Color::hlsToRgb_data()
{
    QTest::addColumn<int>("hue");
    QTest::addColumn<int>("luminance");
    QTest::addColumn<int>("saturation");
    QTest::addColumn<COLORREF>("expected");

    QTest::newRow("a hue of 240 is a hue of 0") << 240 << 120 << 240 << 0x0000FFU;
    QTest::newRow("between red and yellow") << 20 << 120 << 240 << 0x0080FFU;
    QTest::newRow("nearly yellow") << 38 << 120 << 240 << 0x00F2FFU;
    QTest::newRow("between cyan and blue") << 140 << 120 << 240 << 0xFF8000U;
    QTest::newRow("dark") << 100 << 60 << 120 << 0x406020U;
    QTest::newRow("light") << 230 << 200 << 80 << 0xCEC7E2U;
    QTest::newRow("very dark") << 7 << 33 << 211 << 0x040F42U;
    QTest::newRow("grey, truncated") << 160 << 120 << 0 << 0x7F7F7FU;
    QTest::newRow("the next grey") << 0 << 121 << 0 << 0x808080U;
    QTest::newRow("full luminance is white in any hue") << 0 << 240 << 240 << 0xFFFFFFU;
    QTest::newRow("no luminance is black in any hue") << 0 << 0 << 240 << 0x000000U;
    QTest::newRow("a hue beyond the circle") << 241 << 120 << 240 << 0x0006FFU;
    QTest::newRow("a hue around the circle twice") << 481 << 120 << 240 << 0x0006FFU;
    QTest::newRow("the largest hue") << 65535 << 120 << 240 << 0x0060FFU;
    QTest::newRow("the largest luminance of a grey") << 0 << 65535 << 0 << 0xFEFEFEU;
    QTest::newRow("the largest luminance and saturation") << 0 << 65535 << 65535 << 0xDEDE21U;
    QTest::newRow("the largest saturation") << 10 << 120 << 65535 << 0x808080U;
}

void tst_Color::hlsToRgb()
{
    QFETCH(int, hue);
    QFETCH(int, luminance);
    QFETCH(int, saturation);
    QTEST(ColorHLSToRGB_X(WORD(hue), WORD(luminance), WORD(saturation)), "expected");
}

void tst_Color::adjustLuma_data()
{
    QTest::addColumn<COLORREF>("color");
    QTest::addColumn<int>("n");
    QTest::addColumn<BOOL>("scale");
    QTest::addColumn<COLORREF>("expected");
    constexpr COLORREF red = 0x0000FF; // luminance 120

    QTest::newRow("raised by thousandths") << red << 30000 << 1 << 0x4040FFU;
    QTest::newRow("lowered by thousandths") << red << -30000 << 1 << 0x0000BFU;
    QTest::newRow("less than a thousandth") << red << 999 << 1 << red;
    QTest::newRow("less than a negative thousandth") << red << -999 << 1 << red;
    QTest::newRow("to the top") << red << 120000 << 1 << 0xFFFFFFU;
    QTest::newRow("beyond the top") << red << 500000 << 1 << 0xFFFFFFU;
    QTest::newRow("to the bottom") << red << -120000 << 1 << 0x000000U;
    QTest::newRow("below the bottom is the top") << red << -121000 << 1 << 0xFFFFFFU;
    QTest::newRow("any other number scales too") << red << 30000 << -1 << 0x4040FFU;
    QTest::newRow("cut to 16 bits") << red << 65536000 << 1 << red;
    QTest::newRow("the largest number, scaled") << red << INT_MAX << 1 << 0xFFFFFFU;

    QTest::newRow("raised by steps of 4.17") << red << 100 << 0 << 0x3131FFU;
    QTest::newRow("lowered by steps of 4.17") << red << -100 << 0 << 0x0000CCU;
    QTest::newRow("less than a step") << red << 4 << 0 << red;
    QTest::newRow("one step") << red << 5 << 0 << 0x0202FFU;
    QTest::newRow("a grey") << 0x808080U << 100 << 0 << 0x979797U;
    QTest::newRow("steps beyond the top") << red << 1000 << 0 << 0xFFFFFFU;
    QTest::newRow("steps to the bottom") << red << -501 << 0 << 0x000000U;
    QTest::newRow("steps below the bottom are the top") << red << -505 << 0 << 0xFFFFFFU;
    QTest::newRow("the largest number of steps") << red << INT_MAX << 0 << 0xFFFFFFU;
    QTest::newRow("the smallest number of steps") << red << INT_MIN << 0 << 0xFFFFFFU;
    QTest::newRow("no change takes the way there and back") << 0x3264C8U << 0 << 0 << 0x3263C9U;
}

void tst_Color::adjustLuma()
{
    QFETCH(COLORREF, color);
    QFETCH(int, n);
    QFETCH(BOOL, scale);
    QTEST(ColorAdjustLuma_X(color, n, scale), "expected");
}

XE_GUILESS_TEST(tst_Color)
#include "tst_color.moc"
