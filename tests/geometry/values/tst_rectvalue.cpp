// CRect: what its members and operators give, with right and bottom one past the rectangle.

#include "testclass.h"
#include "values/samplevalues.h"
#include "valuetext.h"

#include <climits>
#include <type_traits>

static_assert(sizeof(CRect) == 16 && std::is_trivially_copyable_v<CRect> && std::is_standard_layout_v<CRect>);
static_assert(std::is_convertible_v<CRect*, tagRECT*>);

namespace {

const tagRECT* const noRect = nullptr;

const CRect square(10, 10, 20, 20);
const CRect swapped(20, 20, 10, 10);

using Combine = BOOL (CRect::*)(const tagRECT*, const tagRECT*);

// The result of a combination and the rectangle that it leaves: "1: 1 2 3 4".
QString combined(Combine combine, const tagRECT* a, const tagRECT* b)
{
    CRect rect(-7, -7, -7, -7);
    const BOOL result = (rect.*combine)(a, b);
    return QStringLiteral("%1: %2").arg(result).arg(text(rect));
}

} // namespace

class tst_RectValue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void gives_data();
    void gives();
    void combinations_data();
    void combinations();
    void subtractions_data();
    void subtractions();
    void nullIsAnEmptyRectangle();
    void clientCode();

private:
    static void making();
    static void asking();
    static void changing();
    static void operators();
    static void scaling();
};

void tst_RectValue::making()
{
    QTest::newRow("default") << text(CRect()) << "0 0 0 0";
    QTest::newRow("of numbers") << text(CRect(4, 3, 2, 1)) << "4 3 2 1";
    QTest::newRow("of a record") << text(CRect(r1234)) << "1 2 3 4";
    QTest::newRow("of an address") << text(CRect(&r1234)) << "1 2 3 4";
    QTest::newRow("of a null address") << text(CRect(noRect)) << "0 0 0 0";
    QTest::newRow("of a point and a size") << text(CRect(p34, s56)) << "3 4 8 10";
    QTest::newRow("of two points") << text(CRect(p34, CPoint(30, 40))) << "3 4 30 40";
    QTest::newRow("of two points, not normalised") << text(CRect(CPoint(30, 40), p34)) << "30 40 3 4";
}

void tst_RectValue::asking()
{
    const CRect rect(1, 2, 31, 44);
    QTest::newRow("width") << QString::number(rect.Width()) << "30";
    QTest::newRow("height") << QString::number(rect.Height()) << "42";
    QTest::newRow("width of a swapped one is negative") << QString::number(swapped.Width()) << "-10";
    QTest::newRow("size") << text(rect.Size()) << "30x42";
    QTest::newRow("top left") << text(rect.TopLeft()) << "1 2";
    QTest::newRow("bottom right") << text(rect.BottomRight()) << "31 44";
    QTest::newRow("centre") << text(rect.CenterPoint()) << "16 23";
    QTest::newRow("an odd centre is cut towards 0") << text(CRect(0, -3, 5, 0).CenterPoint()) << "2 -1";

    QTest::newRow("empty: it is not") << text(square.IsRectEmpty()) << "no";
    QTest::newRow("empty: no width") << text(CRect(1, 1, 1, 9).IsRectEmpty()) << "yes";
    QTest::newRow("empty: no height") << text(CRect(1, 1, 9, 1).IsRectEmpty()) << "yes";
    QTest::newRow("empty: negative width") << text(CRect(2, 1, 1, 9).IsRectEmpty()) << "yes";
    QTest::newRow("empty: negative height") << text(CRect(1, 2, 9, 1).IsRectEmpty()) << "yes";
    QTest::newRow("null: all 0") << text(CRect().IsRectNull()) << "yes";
    QTest::newRow("null: empty is not enough") << text(CRect(1, 1, 1, 1).IsRectNull()) << "no";
    QTest::newRow("null: each value counts") << text(CRect(0, 0, 0, 1).IsRectNull()) << "no";

    QTest::newRow("inside: top left corner") << text(square.PtInRect({10, 10})) << "yes";
    QTest::newRow("inside: last pixel") << text(square.PtInRect({19, 19})) << "yes";
    QTest::newRow("outside: right edge") << text(square.PtInRect({20, 15})) << "no";
    QTest::newRow("outside: bottom edge") << text(square.PtInRect({15, 20})) << "no";
    QTest::newRow("outside: left of it") << text(square.PtInRect({9, 15})) << "no";
    QTest::newRow("outside: above it") << text(square.PtInRect({15, 9})) << "no";
    QTest::newRow("outside: within a swapped one") << text(swapped.PtInRect({15, 15})) << "no";

    QTest::newRow("EqualRect: it is") << text(CRect(1, 2, 3, 4).EqualRect(&r1234)) << "yes";
    QTest::newRow("EqualRect: empty ones differ too") << text(CRect().EqualRect(CRect(1, 1, 1, 1))) << "no";
    QTest::newRow("EqualRect: null") << text(CRect().EqualRect(nullptr)) << "no";
    QTest::newRow("==") << text(CRect(1, 2, 3, 4) == r1234) << "yes";
    QTest::newRow("== other left") << text(CRect(0, 2, 3, 4) == r1234) << "no";
    QTest::newRow("== other top") << text(CRect(1, 0, 3, 4) == r1234) << "no";
    QTest::newRow("== other right") << text(CRect(1, 2, 0, 4) == r1234) << "no";
    QTest::newRow("== other bottom") << text(CRect(1, 2, 3, 0) == r1234) << "no";
    QTest::newRow("!=") << text(CRect(1, 2, 3, 0) != r1234) << "yes";
    QTest::newRow("!= for equal ones") << text(CRect(1, 2, 3, 4) != r1234) << "no";
}

void tst_RectValue::changing()
{
    const auto changed = [](auto change) { return after(CRect(10, 20, 30, 50), change); };
    QTest::newRow("SetRect") << changed([](CRect& r) { r.SetRect(4, 3, 2, 1); }) << "4 3 2 1";
    QTest::newRow("SetRect of points") << changed([](CRect& r) { r.SetRect(p34, CPoint(7, 8)); }) << "3 4 7 8";
    QTest::newRow("SetRectEmpty") << changed([](CRect& r) { r.SetRectEmpty(); }) << "0 0 0 0";
    QTest::newRow("CopyRect") << changed([](CRect& r) { r.CopyRect(&r1234); }) << "1 2 3 4";
    QTest::newRow("InflateRect") << changed([](CRect& r) { r.InflateRect(1, 2); }) << "9 18 31 52";
    QTest::newRow("InflateRect by less than 0") << changed([](CRect& r) { r.InflateRect(-1, -2); }) << "11 22 29 48";
    QTest::newRow("InflateRect by a size") << changed([](CRect& r) { r.InflateRect(s56); }) << "5 14 35 56";
    QTest::newRow("InflateRect by edges") << changed([](CRect& r) { r.InflateRect(1, 2, 3, 4); }) << "9 18 33 54";
    QTest::newRow("InflateRect by a rectangle") << changed([](CRect& r) { r.InflateRect(&r1234); }) << "9 18 33 54";
    QTest::newRow("InflateRect by itself") << changed([](CRect& r) { r.InflateRect(&r); }) << "0 0 60 100";
    QTest::newRow("DeflateRect") << changed([](CRect& r) { r.DeflateRect(1, 2); }) << "11 22 29 48";
    QTest::newRow("DeflateRect by a size") << changed([](CRect& r) { r.DeflateRect(s56); }) << "15 26 25 44";
    QTest::newRow("DeflateRect by edges") << changed([](CRect& r) { r.DeflateRect(1, 2, 3, 4); }) << "11 22 27 46";
    QTest::newRow("DeflateRect by a rectangle") << changed([](CRect& r) { r.DeflateRect(&r1234); }) << "11 22 27 46";
    QTest::newRow("DeflateRect past the middle") << changed([](CRect& r) { r.DeflateRect(15, 0); }) << "25 20 15 50";
    QTest::newRow("OffsetRect") << changed([](CRect& r) { r.OffsetRect(1, -2); }) << "11 18 31 48";
    QTest::newRow("OffsetRect by a point") << changed([](CRect& r) { r.OffsetRect(p34); }) << "13 24 33 54";
    QTest::newRow("OffsetRect by a size") << changed([](CRect& r) { r.OffsetRect(s56); }) << "15 26 35 56";
    QTest::newRow("OffsetRect by its own corner")
        << changed([](CRect& r) { r.OffsetRect(r.TopLeft()); }) << "20 40 40 70";
    QTest::newRow("OffsetRect back to the origin")
        << changed([](CRect& r) { r.OffsetRect(-r.TopLeft()); }) << "0 0 20 30";
    QTest::newRow("MoveToX") << changed([](CRect& r) { r.MoveToX(3); }) << "3 20 23 50";
    QTest::newRow("MoveToY") << changed([](CRect& r) { r.MoveToY(3); }) << "10 3 30 33";
    QTest::newRow("MoveToXY") << changed([](CRect& r) { r.MoveToXY(3, 4); }) << "3 4 23 34";
    QTest::newRow("MoveToXY of a point") << changed([](CRect& r) { r.MoveToXY(p34); }) << "3 4 23 34";
    QTest::newRow("MoveToXY of its own corner")
        << changed([](CRect& r) { r.MoveToXY(r.BottomRight()); }) << "30 50 50 80";
    QTest::newRow("NormalizeRect: nothing to do") << changed([](CRect& r) { r.NormalizeRect(); }) << "10 20 30 50";
    QTest::newRow("SwapLeftRight") << changed([](CRect& r) { r.SwapLeftRight(); }) << "30 20 10 50";
    QTest::newRow("SwapLeftRight of an address") << changed([](CRect& r) { CRect::SwapLeftRight(r); }) << "30 20 10 50";
    QTest::newRow("NormalizeRect: both ways") << after(swapped, [](CRect& r) { r.NormalizeRect(); }) << "10 10 20 20";
    QTest::newRow("NormalizeRect: one way")
        << after(CRect(5, 9, 1, 12), [](CRect& r) { r.NormalizeRect(); }) << "1 9 5 12";
}

void tst_RectValue::operators()
{
    const CRect rect(10, 20, 30, 50);
    const auto changed = [&rect](auto change) { return after(rect, change); };
    QTest::newRow("+= point") << changed([](CRect& r) { r += p34; }) << "13 24 33 54";
    QTest::newRow("+= size") << changed([](CRect& r) { r += s56; }) << "15 26 35 56";
    QTest::newRow("+= rectangle moves the edges out") << changed([](CRect& r) { r += &r1234; }) << "9 18 33 54";
    QTest::newRow("-= point") << changed([](CRect& r) { r -= p34; }) << "7 16 27 46";
    QTest::newRow("-= size") << changed([](CRect& r) { r -= s56; }) << "5 14 25 44";
    QTest::newRow("-= rectangle moves the edges in") << changed([](CRect& r) { r -= &r1234; }) << "11 22 27 46";
    QTest::newRow("+= its own corner") << changed([](CRect& r) { r += r.TopLeft(); }) << "20 40 40 70";
    QTest::newRow("-= its own corner") << changed([](CRect& r) { r -= r.TopLeft(); }) << "0 0 20 30";
    QTest::newRow("+ point") << text(rect + p34) << "13 24 33 54";
    QTest::newRow("+ size") << text(rect + s56) << "15 26 35 56";
    QTest::newRow("+ address") << text(rect + &r1234) << "9 18 33 54";
    QTest::newRow("+ rectangle") << text(rect + CRect(r1234)) << "9 18 33 54";
    QTest::newRow("- point") << text(rect - p34) << "7 16 27 46";
    QTest::newRow("- size") << text(rect - s56) << "5 14 25 44";
    QTest::newRow("- address") << text(rect - &r1234) << "11 22 27 46";
    QTest::newRow("- rectangle") << text(rect - CRect(r1234)) << "11 22 27 46";
    QTest::newRow("&") << text(rect & CRect(15, 0, 90, 45)) << "15 20 30 45";
    QTest::newRow("|") << text(rect | CRect(15, 0, 90, 45)) << "10 0 90 50";
    QTest::newRow("&=") << changed([](CRect& r) { r &= tagRECT{15, 0, 90, 45}; }) << "15 20 30 45";
    QTest::newRow("|=") << changed([](CRect& r) { r |= tagRECT{15, 0, 90, 45}; }) << "10 0 90 50";
    QTest::newRow("&= itself") << changed([](CRect& r) { r &= r; }) << "10 20 30 50";
    QTest::newRow("|= itself") << changed([](CRect& r) { r |= r; }) << "10 20 30 50";
    QTest::newRow("a chain") << changed([](CRect& r) { (r += p34) -= s56; }) << "8 18 28 48";
}

void tst_RectValue::scaling()
{
    QTest::newRow("MulDiv rounds to the nearest") << text(CRect(1, 2, 4, 5).MulDiv(1, 3)) << "0 1 1 2";
    QTest::newRow("MulDiv rounds halves away from 0") << text(CRect(-3, -1, 1, 3).MulDiv(1, 2)) << "-2 -1 1 2";
    QTest::newRow("MulDiv by a negative divisor") << text(CRect(-3, -1, 1, 3).MulDiv(1, -2)) << "2 1 -1 -2";
    QTest::newRow("MulDiv through more than 32 bits")
        << text(CRect(INT_MIN, 0, 10, INT_MAX).MulDiv(1000, 2000)) << "-1073741824 0 5 1073741824";
    QTest::newRow("MulDiv of what does not fit gives -1")
        << text(CRect(INT_MIN, 0, 10, INT_MAX).MulDiv(2, 1)) << "-1 0 20 -1";
    QTest::newRow("MulDiv by 0 gives -1") << text(CRect(1, 2, 3, 0).MulDiv(1, 0)) << "-1 -1 -1 -1";
}

void tst_RectValue::gives_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");
    making();
    asking();
    changing();
    operators();
    scaling();
}

void tst_RectValue::gives()
{
    QFETCH(QString, value);
    QTEST(value, "expected");
}

// ------------------------------------------------------------------------------------------------------ of two

void tst_RectValue::combinations_data()
{
    QTest::addColumn<QString>("second");
    QTest::addColumn<QString>("common");
    QTest::addColumn<QString>("both");
    const auto row = [](const char* name, const CRect& second, const char* common, const char* both) {
        QTest::newRow(name) << text(second) << common << both;
    };
    // The first is 10 10 20 20.
    row("overlapping", {15, 5, 30, 18}, "1: 15 10 20 18", "1: 10 5 30 20");
    row("equal", square, "1: 10 10 20 20", "1: 10 10 20 20");
    row("within", {12, 13, 14, 15}, "1: 12 13 14 15", "1: 10 10 20 20");
    row("one pixel in common", {19, 19, 40, 40}, "1: 19 19 20 20", "1: 10 10 40 40");
    row("touching at an edge", {20, 10, 30, 20}, "0: 0 0 0 0", "1: 10 10 30 20");
    row("touching at a corner", {20, 20, 30, 30}, "0: 0 0 0 0", "1: 10 10 30 30");
    row("apart", {50, 60, 70, 80}, "0: 0 0 0 0", "1: 10 10 70 80");
    row("an empty one has no part in it", {15, 15, 15, 90}, "0: 0 0 0 0", "1: 10 10 20 20");
    row("a swapped one has no part in it", {18, 18, 12, 12}, "0: 0 0 0 0", "1: 10 10 20 20");
    row("negative coordinates", {-5, -5, 12, 13}, "1: 10 10 12 13", "1: -5 -5 20 20");
}

void tst_RectValue::combinations()
{
    QFETCH(QString, second);
    const QStringList numbers = second.split(QLatin1Char(' '));
    const CRect other(numbers[0].toInt(), numbers[1].toInt(), numbers[2].toInt(), numbers[3].toInt());

    QTEST(combined(&CRect::IntersectRect, &square, &other), "common");
    QTEST(combined(&CRect::IntersectRect, &other, &square), "common");
    QTEST(combined(&CRect::UnionRect, &square, &other), "both");
    QTEST(combined(&CRect::UnionRect, &other, &square), "both");

    // Either may be the rectangle itself.
    for (const Combine combine : {&CRect::IntersectRect, &CRect::UnionRect}) {
        const QString expected = combined(combine, &square, &other);
        CRect first = square;
        BOOL result = (first.*combine)(&first, &other);
        QCOMPARE(QStringLiteral("%1: %2").arg(result).arg(text(first)), expected);
        first = square;
        result = (first.*combine)(&other, &first);
        QCOMPARE(QStringLiteral("%1: %2").arg(result).arg(text(first)), expected);
    }
}

void tst_RectValue::subtractions_data()
{
    QTest::addColumn<QString>("difference");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const CRect& second, const char* expected) {
        QTest::newRow(name) << combined(&CRect::SubtractRect, &square, &second) << expected;
    };
    row("the left side", {0, 0, 13, 30}, "1: 13 10 20 20");
    row("the right side", {15, 10, 20, 20}, "1: 10 10 15 20");
    row("the upper side", {10, 0, 20, 13}, "1: 10 13 20 20");
    row("the lower side", {0, 15, 30, 30}, "1: 10 10 20 15");
    row("a corner leaves it whole", {15, 15, 30, 30}, "1: 10 10 20 20");
    row("a hole leaves it whole", {13, 13, 15, 15}, "1: 10 10 20 20");
    row("a strip through the middle leaves it whole", {13, 0, 15, 30}, "1: 10 10 20 20");
    row("a strip across leaves it whole", {0, 13, 30, 15}, "1: 10 10 20 20");
    row("part of a side leaves it whole", {0, 12, 13, 18}, "1: 10 10 20 20");
    row("apart", {50, 50, 60, 60}, "1: 10 10 20 20");
    row("empty", {15, 10, 15, 20}, "1: 10 10 20 20");
    row("all of it", square, "0: 0 0 0 0");
    row("more than all", {0, 0, 90, 90}, "0: 0 0 0 0");
    QTest::newRow("from an empty one") << combined(&CRect::SubtractRect, &swapped, &square) << "0: 0 0 0 0";

    CRect self = square;
    const BOOL result = self.SubtractRect(&self, CRect(0, 0, 13, 30));
    QTest::newRow("from itself") << QStringLiteral("%1: %2").arg(result).arg(text(self)) << "1: 13 10 20 20";
}

void tst_RectValue::subtractions()
{
    QFETCH(QString, difference);
    QTEST(difference, "expected");
}

void tst_RectValue::nullIsAnEmptyRectangle()
{
    QCOMPARE(combined(&CRect::IntersectRect, nullptr, &square), QStringLiteral("0: 0 0 0 0"));
    QCOMPARE(combined(&CRect::UnionRect, nullptr, &square), QStringLiteral("1: 10 10 20 20"));
    QCOMPARE(combined(&CRect::UnionRect, nullptr, nullptr), QStringLiteral("0: 0 0 0 0"));
    QCOMPARE(combined(&CRect::SubtractRect, &square, nullptr), QStringLiteral("1: 10 10 20 20"));
    QCOMPARE(after(square, [](CRect& r) { r.CopyRect(nullptr); }), QStringLiteral("0 0 0 0"));
    QCOMPARE(after(square, [](CRect& r) { r.InflateRect(noRect); }), QStringLiteral("10 10 20 20"));
    QCOMPARE(after(square, [](CRect& r) { r.DeflateRect(noRect); }), QStringLiteral("10 10 20 20"));
    CRect::SwapLeftRight(nullptr);
}

// ------------------------------------------------------------------------------------------------ as hosts write it

namespace {

// Parameters as Win32 functions and host functions declare them.
void grow(LPRECT rect) { ++rect->right; }
QString read(LPCRECT rect) { return text(*rect); }
QString byReference(const RECT& rect) { return text(rect); }
QString byValue(CRect rect) { return text(rect); }

} // namespace

void tst_RectValue::clientCode()
{
    CRect rect(1, 2, 3, 4);
    const CRect constant = rect;
    grow(rect);
    grow(&rect);
    QCOMPARE(read(rect), QStringLiteral("1 2 5 4"));
    QCOMPARE(read(&rect), QStringLiteral("1 2 5 4"));
    QCOMPARE(read(constant), QStringLiteral("1 2 3 4"));
    QCOMPARE(read(&constant), QStringLiteral("1 2 3 4"));
    QCOMPARE(byReference(rect), QStringLiteral("1 2 5 4"));
    QCOMPARE(byValue(&r1234), QStringLiteral("1 2 3 4"));
    QCOMPARE(byValue(r1234), QStringLiteral("1 2 3 4"));

    rect = r1234;
    rect = &r1234;
    rect = CRect(CPoint(0, 0), CSize(100, 50));
    rect = rect + CPoint(1, 1) - CSize(2, 2);
    QCOMPARE(text(rect), QStringLiteral("-1 -1 99 49"));
    CRect edges(1, 2, 3, 4);
    const LPRECT address = edges;
    QCOMPARE(text(rect - edges), QStringLiteral("0 1 96 45"));
    QCOMPARE(text(rect - address), QStringLiteral("0 1 96 45"));
    QCOMPARE(text(constant - edges), QStringLiteral("2 4 0 0"));
    QCOMPARE(text(edges - constant), QStringLiteral("2 4 0 0"));
    QCOMPARE(text(rect + edges), text(rect + address));
    const tagRECT record = rect;
    QVERIFY(rect == record && rect == CRect(record) && !(rect != constant && rect == constant));
    rect.UnionRect(rect, constant);
    rect.IntersectRect(&rect, constant);
    QCOMPARE(text(rect), QStringLiteral("1 2 3 4"));
    rect.TopLeft() -= CPoint(1, 2);
    rect.BottomRight() = rect.TopLeft() + CSize(20, 10);
    QCOMPARE(text(rect), QStringLiteral("0 0 20 10"));
    QVERIFY(rect.PtInRect(rect.CenterPoint()));
    QCOMPARE(text(CRect(rect.CenterPoint(), rect.CenterPoint()) | constant), QStringLiteral("1 2 3 4"));
}

XE_TEST(tst_RectValue)
#include "tst_rectvalue.moc"
