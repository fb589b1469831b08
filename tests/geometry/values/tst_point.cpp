// CPoint and CSize: what their members and operators give.

#include "testclass.h"
#include "values/samplevalues.h"
#include "valuetext.h"

#include <type_traits>

// They take the place of the records wherever those go: in registers, in memory, in a call.
static_assert(sizeof(CPoint) == 8 && sizeof(CSize) == 8);
static_assert(std::is_trivially_copyable_v<CPoint> && std::is_trivially_copyable_v<CSize>);
static_assert(std::is_standard_layout_v<CPoint> && std::is_standard_layout_v<CSize>);
static_assert(std::is_convertible_v<CPoint*, tagPOINT*> && std::is_convertible_v<CSize*, tagSIZE*>);

static_assert(std::is_same_v<decltype(CPoint() - CPoint()), CSize>, "the way between two points is a size");
static_assert(std::is_same_v<decltype(CPoint() - CSize()), CPoint>);
static_assert(std::is_same_v<decltype(CPoint() + CPoint()), CPoint>);
static_assert(std::is_same_v<decltype(CSize() - CSize()), CSize>);
static_assert(std::is_same_v<decltype(CSize() - CPoint()), CPoint>);
static_assert(std::is_same_v<decltype(CSize() + CPoint()), CPoint>);

namespace {

LPARAM packed(int low, int high) { return MAKELPARAM(static_cast<WORD>(low), static_cast<WORD>(high)); }

// Parameters as host functions declare them.
QString byValue(CPoint point) { return text(point); }
QString asRecord(tagPOINT point) { return text(point); }
QString byAddress(LPPOINT point) { return text(*point); }
QString sizeByValue(CSize size) { return text(size); }

} // namespace

class tst_Point : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void gives_data();
    void gives();
    void clientCode();

private:
    static void points();
    static void sizes();
    static void rectangles();
};

void tst_Point::points()
{
    const CPoint p(10, 20);
    QTest::newRow("point: default") << text(CPoint()) << "0 0";
    QTest::newRow("point: of two numbers") << text(CPoint(-1, 2)) << "-1 2";
    QTest::newRow("point: of a record") << text(CPoint(p34)) << "3 4";
    QTest::newRow("point: of a size") << text(CPoint(s56)) << "5 6";
    QTest::newRow("point: of a message parameter") << text(CPoint(packed(300, 200))) << "300 200";
    QTest::newRow("point: packed words are signed") << text(CPoint(packed(-5, -6))) << "-5 -6";
    QTest::newRow("point: packed extremes") << text(CPoint(packed(0x8000, 0x7FFF))) << "-32768 32767";
    QTest::newRow("point: the upper half of a parameter is not looked at")
        << text(CPoint(LPARAM(0x7FFF'FFFF'0002'0001))) << "1 2";

    QTest::newRow("point: SetPoint") << after(p, [](CPoint& q) { q.SetPoint(7, 8); }) << "7 8";
    QTest::newRow("point: Offset by numbers") << after(p, [](CPoint& q) { q.Offset(1, -2); }) << "11 18";
    QTest::newRow("point: Offset by a point") << after(p, [](CPoint& q) { q.Offset(p34); }) << "13 24";
    QTest::newRow("point: Offset by a size") << after(p, [](CPoint& q) { q.Offset(s56); }) << "15 26";
    QTest::newRow("point: Offset by itself") << after(p, [](CPoint& q) { q.Offset(q); }) << "20 40";
    QTest::newRow("point: += point") << after(p, [](CPoint& q) { q += p34; }) << "13 24";
    QTest::newRow("point: += size") << after(p, [](CPoint& q) { q += s56; }) << "15 26";
    QTest::newRow("point: -= point") << after(p, [](CPoint& q) { q -= p34; }) << "7 16";
    QTest::newRow("point: -= size") << after(p, [](CPoint& q) { q -= s56; }) << "5 14";
    QTest::newRow("point: += itself") << after(p, [](CPoint& q) { q += q; }) << "20 40";
    QTest::newRow("point: -= itself") << after(p, [](CPoint& q) { q -= q; }) << "0 0";
    QTest::newRow("point: + point") << text(p + p34) << "13 24";
    QTest::newRow("point: + size") << text(p + s56) << "15 26";
    QTest::newRow("point: - size") << text(p - s56) << "5 14";
    QTest::newRow("point: - point is a size") << text(p - p34) << "7x16";
    QTest::newRow("point: negated") << text(-CPoint(1, -2)) << "-1 2";

    QTest::newRow("point: equal") << text(p == CPoint(10, 20)) << "yes";
    QTest::newRow("point: equal to a record") << text(CPoint(3, 4) == p34) << "yes";
    QTest::newRow("point: other x") << text(p == CPoint(11, 20)) << "no";
    QTest::newRow("point: other y") << text(p == CPoint(10, 21)) << "no";
    QTest::newRow("point: differs in x") << text(p != CPoint(11, 20)) << "yes";
    QTest::newRow("point: differs in y") << text(p != CPoint(10, 21)) << "yes";
    QTest::newRow("point: does not differ") << text(p != CPoint(10, 20)) << "no";
}

void tst_Point::sizes()
{
    const CSize s(10, 20);
    QTest::newRow("size: default") << text(CSize()) << "0x0";
    QTest::newRow("size: of two numbers") << text(CSize(-1, 2)) << "-1x2";
    QTest::newRow("size: of a record") << text(CSize(s56)) << "5x6";
    QTest::newRow("size: of a point") << text(CSize(p34)) << "3x4";
    QTest::newRow("size: of packed words") << text(CSize(DWORD(0x0002'0001))) << "1x2";
    QTest::newRow("size: packed words are signed") << text(CSize(DWORD(0xFFFE'FFFF))) << "-1x-2";

    QTest::newRow("size: SetSize") << after(s, [](CSize& t) { t.SetSize(7, 8); }) << "7x8";
    QTest::newRow("size: += size") << after(s, [](CSize& t) { t += s56; }) << "15x26";
    QTest::newRow("size: -= size") << after(s, [](CSize& t) { t -= s56; }) << "5x14";
    QTest::newRow("size: += itself") << after(s, [](CSize& t) { t += t; }) << "20x40";
    QTest::newRow("size: -= itself") << after(s, [](CSize& t) { t -= t; }) << "0x0";
    QTest::newRow("size: + size") << text(s + s56) << "15x26";
    QTest::newRow("size: - size") << text(s - s56) << "5x14";
    QTest::newRow("size: + point is a point") << text(s + p34) << "13 24";
    QTest::newRow("size: - point is a point") << text(s - p34) << "7 16";
    QTest::newRow("size: negated") << text(-CSize(1, -2)) << "-1x2";

    QTest::newRow("size: equal to a record") << text(CSize(5, 6) == s56) << "yes";
    QTest::newRow("size: other width") << text(s == CSize(11, 20)) << "no";
    QTest::newRow("size: other height") << text(s == CSize(10, 21)) << "no";
    QTest::newRow("size: differs") << text(s != CSize(10, 21)) << "yes";
    QTest::newRow("size: does not differ") << text(s != CSize(10, 20)) << "no";
}

void tst_Point::rectangles()
{
    const CRect rect(r1234);
    QTest::newRow("point + rectangle") << text(CPoint(10, 20) + &r1234) << "11 22 13 24";
    QTest::newRow("point - rectangle moves it back") << text(CPoint(10, 20) - &r1234) << "-9 -18 -7 -16";
    QTest::newRow("size + rectangle") << text(CSize(10, 20) + rect) << "11 22 13 24";
    QTest::newRow("size - rectangle moves it back") << text(CSize(10, 20) - rect) << "-9 -18 -7 -16";
}

void tst_Point::gives_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");
    points();
    sizes();
    rectangles();
}

void tst_Point::gives()
{
    QFETCH(QString, value);
    QTEST(value, "expected");
}

void tst_Point::clientCode()
{
    const LPARAM lParam = packed(30, -40);
    CPoint point = lParam;
    QCOMPARE(byValue(lParam), QStringLiteral("30 -40"));
    QCOMPARE(asRecord(point), QStringLiteral("30 -40"));
    QCOMPARE(byAddress(&point), QStringLiteral("30 -40"));
    QCOMPARE(byValue(p34), QStringLiteral("3 4"));
    QCOMPARE(byValue({1, 2}), QStringLiteral("1 2"));
    QCOMPARE(sizeByValue(point), QStringLiteral("30x-40"));

    const CSize dragged = point - CPoint(10, 10);
    point = p34;
    point.x += dragged.cx;
    QCOMPARE(text(point), QStringLiteral("23 4"));
    const tagPOINT record = point;
    QCOMPARE(text(record), QStringLiteral("23 4"));
    QCOMPARE(text((point += s56) -= s56), QStringLiteral("23 4"));
}

XE_TEST(tst_Point)
#include "tst_point.moc"
