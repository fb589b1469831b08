#include "testclass.h"

#include <QScreen>

#include <xeprocess.h>

// The fixed tables: colours, metrics, key codes.

class tst_SysTables : public QObject
{
    Q_OBJECT

private slots:
    void colours_data();
    void colours();
    void otherColoursAreBlack();
    void coloursIgnoreThePalette();
    void metrics_data();
    void metrics();
    void otherMetricsAreUnknown();
    void theScreenSize();
    void keys();
    void keysOutsideTheTable_data();
    void keysOutsideTheTable();
};

namespace {

const QMap<int, uint> colourTable = {
    {4, 0xF0F0F0},  {5, 0xFFFFFF},  {7, 0x000000},  {8, 0x000000},  {13, 0xD77800}, {14, 0xFFFFFF}, {15, 0xF0F0F0},
    {16, 0xA0A0A0}, {17, 0x6D6D6D}, {18, 0x000000}, {20, 0xFFFFFF}, {23, 0x000000}, {24, 0xE1FFFF},
};

const QMap<int, int> metricTable = {
    {2, 17}, {3, 17}, {20, 17}, {21, 17}, {4, 23},  {5, 1},   {6, 1},  {11, 32}, {12, 32}, {15, 20},
    {23, 0}, {89, 0}, {30, 36}, {31, 22}, {52, 22}, {53, 22}, {32, 4}, {33, 4},  {45, 2},  {46, 2},
};

} // namespace

void tst_SysTables::colours_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("published");
    QTest::addColumn<uint>("colour");

    QTest::newRow("menu") << COLOR_MENU << 4 << 0xF0F0F0U;
    QTest::newRow("window") << COLOR_WINDOW << 5 << 0xFFFFFFU;
    QTest::newRow("menu text") << COLOR_MENUTEXT << 7 << 0x000000U;
    QTest::newRow("window text") << COLOR_WINDOWTEXT << 8 << 0x000000U;
    QTest::newRow("highlight: a blue") << COLOR_HIGHLIGHT << 13 << 0xD77800U;
    QTest::newRow("highlighted text") << COLOR_HIGHLIGHTTEXT << 14 << 0xFFFFFFU;
    QTest::newRow("button face") << COLOR_BTNFACE << 15 << 0xF0F0F0U;
    QTest::newRow("3D face") << COLOR_3DFACE << 15 << 0xF0F0F0U;
    QTest::newRow("button shadow") << COLOR_BTNSHADOW << 16 << 0xA0A0A0U;
    QTest::newRow("3D shadow") << COLOR_3DSHADOW << 16 << 0xA0A0A0U;
    QTest::newRow("grey text") << COLOR_GRAYTEXT << 17 << 0x6D6D6DU;
    QTest::newRow("button text") << COLOR_BTNTEXT << 18 << 0x000000U;
    QTest::newRow("button highlight") << COLOR_BTNHIGHLIGHT << 20 << 0xFFFFFFU;
    QTest::newRow("3D highlight") << COLOR_3DHIGHLIGHT << 20 << 0xFFFFFFU;
    QTest::newRow("tip text") << COLOR_INFOTEXT << 23 << 0x000000U;
    QTest::newRow("tip background: a yellow") << COLOR_INFOBK << 24 << 0xE1FFFFU;
}

void tst_SysTables::colours()
{
    QFETCH(int, index);
    QFETCH(int, published);
    QFETCH(uint, colour);
    QCOMPARE(index, published);
    QCOMPARE(GetSysColor_X(index), colour);
}

void tst_SysTables::otherColoursAreBlack()
{
    for (int index = -2; index < 130; ++index)
        QCOMPARE(GetSysColor_X(index), colourTable.value(index, 0));
    QCOMPARE(GetSysColor_X(std::numeric_limits<int>::max()), 0U);
    QCOMPARE(GetSysColor_X(std::numeric_limits<int>::min()), 0U);
}

void tst_SysTables::coloursIgnoreThePalette()
{
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(Qt::red));
    QCOMPARE(GetSysColor_X(COLOR_BTNFACE), 0xF0F0F0U);
    QApplication::setPalette(before);
}

void tst_SysTables::metrics_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("published");
    QTest::addColumn<int>("size");

    QTest::newRow("width of a vertical scroll bar") << SM_CXVSCROLL << 2 << 17;
    QTest::newRow("height of a horizontal scroll bar") << SM_CYHSCROLL << 3 << 17;
    QTest::newRow("height of a vertical scroll bar's arrow") << SM_CYVSCROLL << 20 << 17;
    QTest::newRow("width of a horizontal scroll bar's arrow") << SM_CXHSCROLL << 21 << 17;
    QTest::newRow("caption") << SM_CYCAPTION << 4 << 23;
    QTest::newRow("border width") << SM_CXBORDER << 5 << 1;
    QTest::newRow("border height") << SM_CYBORDER << 6 << 1;
    QTest::newRow("icon width") << SM_CXICON << 11 << 32;
    QTest::newRow("icon height") << SM_CYICON << 12 << 32;
    QTest::newRow("menu") << SM_CYMENU << 15 << 20;
    QTest::newRow("mouse buttons are not swapped") << SM_SWAPBUTTON << 23 << 0;
    QTest::newRow("build number") << SM_SERVERR2 << 89 << 0;
    QTest::newRow("caption button width") << SM_CXSIZE << 30 << 36;
    QTest::newRow("caption button height") << SM_CYSIZE << 31 << 22;
    QTest::newRow("small caption button width") << SM_CXSMSIZE << 52 << 22;
    QTest::newRow("small caption button height") << SM_CYSMSIZE << 53 << 22;
    QTest::newRow("frame width") << SM_CXFRAME << 32 << 4;
    QTest::newRow("frame height") << SM_CYFRAME << 33 << 4;
    QTest::newRow("sizing frame width") << SM_CXSIZEFRAME << 32 << 4;
    QTest::newRow("sizing frame height") << SM_CYSIZEFRAME << 33 << 4;
    QTest::newRow("edge width") << SM_CXEDGE << 45 << 2;
    QTest::newRow("edge height") << SM_CYEDGE << 46 << 2;
    QTest::newRow("small icon width") << SM_CXSMICON << 49 << -1;
    QTest::newRow("small icon height") << SM_CYSMICON << 50 << -1;
}

void tst_SysTables::metrics()
{
    QFETCH(int, index);
    QFETCH(int, published);
    QFETCH(int, size);
    QCOMPARE(index, published);
    QCOMPARE(GetSystemMetrics_X(index), size);
}

void tst_SysTables::otherMetricsAreUnknown()
{
    for (int index = 2; index < 130; ++index)
        QCOMPARE(GetSystemMetrics_X(index), metricTable.value(index, -1));
    QCOMPARE(GetSystemMetrics_X(-1), -1);
    QCOMPARE(GetSystemMetrics_X(std::numeric_limits<int>::max()), -1);
}

void tst_SysTables::theScreenSize()
{
    const QSize screen = QGuiApplication::primaryScreen()->geometry().size();
    QVERIFY(!screen.isEmpty());
    QCOMPARE(SM_CXSCREEN, 0);
    QCOMPARE(SM_CYSCREEN, 1);
    QCOMPARE(QSize(GetSystemMetrics_X(0), GetSystemMetrics_X(1)), screen);
}

void tst_SysTables::keys()
{
    const QByteArray mapped = "\b\t\n\r !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                              "[\\]^_`abcdefghijklmnopqrstuvwxyz{|}~";
    QCOMPARE(mapped.size(), 4 + 95);
    for (uint code = 0; code < 128; ++code) {
        const uint expected = mapped.contains(char(code)) ? code : 0;
        for (const uint type : {0U, 1U, 2U, 3U, 4U, ~0U})
            QCOMPARE(MapVirtualKey_X(code, type), expected);
    }
    QCOMPARE(MapVirtualKey_X('A', 0), 65U);
}

void tst_SysTables::keysOutsideTheTable_data()
{
    QTest::addColumn<uint>("code");
    QTest::newRow("the first") << 128U;
    QTest::newRow("200") << 200U;
    QTest::newRow("a multiple of the table's size more than a letter") << 128U + 'A';
    QTest::newRow("a negative number") << ~0U;
}

void tst_SysTables::keysOutsideTheTable()
{
    QFETCH(uint, code);
    QCOMPARE(MapVirtualKey_X(code, 0), 0U);
}

XE_TEST(tst_SysTables)
#include "tst_systables.moc"
