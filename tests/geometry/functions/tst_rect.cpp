// The rectangle functions, whose right and bottom are exclusive.

#include "testclass.h"

#include <xestrapi.h>

#include <climits>

Q_DECLARE_METATYPE(tagRECT)
Q_DECLARE_METATYPE(tagPOINT)

namespace QTest {

template <>
inline char* toString(const tagRECT& rect)
{
    return toString(QStringLiteral("{%1, %2, %3, %4}").arg(rect.left).arg(rect.top).arg(rect.right).arg(rect.bottom));
}

} // namespace QTest

static bool operator==(const tagRECT& a, const tagRECT& b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

namespace {

constexpr tagRECT nothing = {0, 0, 0, 0};
constexpr tagRECT square = {10, 10, 20, 20};
constexpr tagRECT untouched = {-7, -7, -7, -7};

using Combine = BOOL (*)(tagRECT*, const tagRECT*, const tagRECT*);

} // namespace

class tst_Rect : public QObject
{
    Q_OBJECT

private slots:
    void combine_data();
    void combine();
    void combineIntoOperand();
    void combineNull();
    void subtract_data();
    void subtract();
    void move_data();
    void move();
    void empty_data();
    void empty();
    void equal();
    void point_data();
    void point();
    void set();
    void nullGivesNothing();
};

void tst_Rect::combine_data()
{
    QTest::addColumn<tagRECT>("a");
    QTest::addColumn<tagRECT>("b");
    QTest::addColumn<tagRECT>("common");
    QTest::addColumn<bool>("intersects");
    QTest::addColumn<tagRECT>("both");
    QTest::addColumn<bool>("bothAreSomething");

    QTest::newRow("overlapping") << square << tagRECT{15, 5, 30, 18} << tagRECT{15, 10, 20, 18} << true
                                 << tagRECT{10, 5, 30, 20} << true;
    QTest::newRow("equal") << square << square << square << true << square << true;
    QTest::newRow("within") << square << tagRECT{12, 13, 14, 15} << tagRECT{12, 13, 14, 15} << true << square << true;
    QTest::newRow("one pixel in common") << square << tagRECT{19, 19, 40, 40} << tagRECT{19, 19, 20, 20} << true
                                         << tagRECT{10, 10, 40, 40} << true;
    QTest::newRow("touching at an edge") << square << tagRECT{20, 10, 30, 20} << nothing << false
                                         << tagRECT{10, 10, 30, 20} << true;
    QTest::newRow("touching at a corner")
        << square << tagRECT{20, 20, 30, 30} << nothing << false << tagRECT{10, 10, 30, 30} << true;
    QTest::newRow("apart") << square << tagRECT{50, 60, 70, 80} << nothing << false << tagRECT{10, 10, 70, 80} << true;
    QTest::newRow("negative coordinates") << tagRECT{-10, -10, 5, 5} << tagRECT{-3, -20, 8, 0} << tagRECT{-3, -10, 5, 0}
                                          << true << tagRECT{-10, -20, 8, 5} << true;
    QTest::newRow("one is nothing") << square << nothing << nothing << false << square << true;
    QTest::newRow("one has no size elsewhere")
        << square << tagRECT{50, 50, 50, 50} << nothing << false << square << true;
    QTest::newRow("both are nothing") << nothing << nothing << nothing << false << nothing << false;
}

void tst_Rect::combine()
{
    QFETCH(tagRECT, a);
    QFETCH(tagRECT, b);
    QFETCH(tagRECT, common);
    QFETCH(bool, intersects);
    QFETCH(tagRECT, both);
    QFETCH(bool, bothAreSomething);
    tagRECT out = untouched;
    QCOMPARE(IntersectRect_X(&out, &a, &b), intersects ? 1 : 0);
    QCOMPARE(out, common);
    QCOMPARE(IntersectRect_X(&out, &b, &a), intersects ? 1 : 0);
    QCOMPARE(out, common);
    QCOMPARE(UnionRect_X(&out, &a, &b), bothAreSomething ? 1 : 0);
    QCOMPARE(out, both);
    QCOMPARE(UnionRect_X(&out, &b, &a), bothAreSomething ? 1 : 0);
    QCOMPARE(out, both);
}

void tst_Rect::combineIntoOperand()
{
    const tagRECT other = {15, 15, 30, 30};
    tagRECT rect = square;
    QCOMPARE(IntersectRect_X(&rect, &rect, &other), 1);
    QCOMPARE(rect, (tagRECT{15, 15, 20, 20}));
    rect = square;
    QCOMPARE(UnionRect_X(&rect, &other, &rect), 1);
    QCOMPARE(rect, (tagRECT{10, 10, 30, 30}));
    rect = square;
    QCOMPARE(SubtractRect_X(&rect, &rect, &rect), 0);
    QCOMPARE(rect, nothing);
}

void tst_Rect::combineNull()
{
    for (const Combine operation : {IntersectRect_X, UnionRect_X, SubtractRect_X}) {
        tagRECT out = untouched;
        QCOMPARE(operation(nullptr, &square, &square), 0);
        QCOMPARE(operation(&out, nullptr, &square), 0);
        QCOMPARE(operation(&out, &square, nullptr), 0);
        QCOMPARE(out, untouched);
    }
}

void tst_Rect::subtract_data()
{
    QTest::addColumn<tagRECT>("b"); // from square
    QTest::addColumn<tagRECT>("rest");

    QTest::newRow("apart") << tagRECT{50, 50, 60, 60} << square;
    QTest::newRow("nothing") << nothing << square;
    QTest::newRow("a corner leaves the frame as it is") << tagRECT{15, 15, 30, 30} << square;
    QTest::newRow("a hole leaves the frame as it is") << tagRECT{12, 12, 14, 14} << square;
    QTest::newRow("the right side") << tagRECT{16, 0, 30, 30} << tagRECT{10, 10, 16, 20};
    QTest::newRow("the left side") << tagRECT{0, 0, 16, 30} << tagRECT{16, 10, 20, 20};
    QTest::newRow("the top") << tagRECT{10, 10, 20, 11} << tagRECT{10, 11, 20, 20};
    QTest::newRow("the bottom") << tagRECT{0, 12, 30, 40} << tagRECT{10, 10, 20, 12};
    QTest::newRow("all of it") << square << nothing;
    QTest::newRow("more than it") << tagRECT{0, 0, 30, 30} << nothing;
}

void tst_Rect::subtract()
{
    QFETCH(tagRECT, b);
    QFETCH(tagRECT, rest);
    tagRECT out = untouched;
    QCOMPARE(SubtractRect_X(&out, &square, &b), rest == nothing ? 0 : 1);
    QCOMPARE(out, rest);
    QCOMPARE(SubtractRect_X(&out, &nothing, &b), 0);
    QCOMPARE(out, nothing);
}

void tst_Rect::move_data()
{
    QTest::addColumn<tagRECT>("rect");
    QTest::addColumn<int>("dx");
    QTest::addColumn<int>("dy");
    QTest::addColumn<tagRECT>("offset");
    QTest::addColumn<tagRECT>("inflated");

    QTest::newRow("positive") << square << 1 << 2 << tagRECT{9, 8, 19, 18} << tagRECT{10, 10, 19, 18};
    QTest::newRow("negative") << square << -1 << -2 << tagRECT{11, 12, 21, 22} << tagRECT{10, 10, 21, 22};
    QTest::newRow("none") << square << 0 << 0 << square << square;
    QTest::newRow("beyond 32 bits comes around")
        << tagRECT{0, 0, INT_MIN, -2} << 1 << INT_MIN << tagRECT{-1, INT_MIN, INT_MAX, INT_MAX - 1}
        << tagRECT{0, 0, INT_MAX, INT_MAX - 1};
}

void tst_Rect::move()
{
    QFETCH(tagRECT, rect);
    QFETCH(int, dx);
    QFETCH(int, dy);
    tagRECT moved = rect;
    QCOMPARE(OffsetRect_X(&moved, dx, dy), 1);
    QTEST(moved, "offset");
    tagRECT inflated = rect;
    QCOMPARE(InflateRect_X(&inflated, dx, dy), 1);
    QTEST(inflated, "inflated");
}

void tst_Rect::empty_data()
{
    QTest::addColumn<tagRECT>("rect");
    QTest::addColumn<int>("expected");

    QTest::newRow("a square") << square << 0;
    QTest::newRow("one pixel") << tagRECT{0, 0, 1, 1} << 0;
    QTest::newRow("no width") << tagRECT{10, 10, 10, 20} << 1;
    QTest::newRow("no height") << tagRECT{10, 10, 20, 10} << 1;
    QTest::newRow("negative width") << tagRECT{10, 10, 9, 20} << 1;
    QTest::newRow("negative height") << tagRECT{10, 10, 20, 9} << 1;
    QTest::newRow("wider than 32 bits") << tagRECT{INT_MIN, INT_MIN, INT_MAX, INT_MAX} << 0;
}

void tst_Rect::empty()
{
    QFETCH(tagRECT, rect);
    QTEST(IsRectEmpty_X(&rect), "expected");
}

void tst_Rect::equal()
{
    const tagRECT copy = square;
    QCOMPARE(EqualRect_X(&square, &copy), 1);
    for (const tagRECT& other : {tagRECT{9, 10, 20, 20}, {10, 9, 20, 20}, {10, 10, 19, 20}, {10, 10, 20, 19}})
        QCOMPARE(EqualRect_X(&square, &other), 0);
}

void tst_Rect::point_data()
{
    QTest::addColumn<tagRECT>("rect");
    QTest::addColumn<tagPOINT>("point");
    QTest::addColumn<int>("expected");

    QTest::newRow("inside") << square << tagPOINT{15, 15} << 1;
    QTest::newRow("top left corner") << square << tagPOINT{10, 10} << 1;
    QTest::newRow("last pixel") << square << tagPOINT{19, 19} << 1;
    QTest::newRow("right edge") << square << tagPOINT{20, 15} << 0;
    QTest::newRow("bottom edge") << square << tagPOINT{15, 20} << 0;
    QTest::newRow("left of it") << square << tagPOINT{9, 15} << 0;
    QTest::newRow("above it") << square << tagPOINT{15, 9} << 0;
    QTest::newRow("an empty rectangle") << tagRECT{10, 10, 10, 10} << tagPOINT{10, 10} << 0;
}

void tst_Rect::point()
{
    QFETCH(tagRECT, rect);
    QFETCH(tagPOINT, point);
    QTEST(PtInRect_X(&rect, point), "expected");
}

void tst_Rect::set()
{
    tagRECT rect = untouched;
    QCOMPARE(SetRect_X(&rect, 4, 3, 2, 1), 1);
    QCOMPARE(rect, (tagRECT{4, 3, 2, 1}));
    QCOMPARE(CopyRect_X(&rect, &square), 1);
    QCOMPARE(rect, square);
    QCOMPARE(SetRectEmpty_X(&rect), 1);
    QCOMPARE(rect, nothing);
}

void tst_Rect::nullGivesNothing()
{
    tagRECT rect = untouched;
    QCOMPARE(OffsetRect_X(nullptr, 1, 2), 0);
    QCOMPARE(InflateRect_X(nullptr, 1, 2), 0);
    QCOMPARE(IsRectEmpty_X(nullptr), 0);
    QCOMPARE(EqualRect_X(nullptr, &square), 0);
    QCOMPARE(EqualRect_X(&square, nullptr), 0);
    QCOMPARE(EqualRect_X(nullptr, nullptr), 0);
    QCOMPARE(PtInRect_X(nullptr, {0, 0}), 0);
    QCOMPARE(CopyRect_X(nullptr, &square), 0);
    QCOMPARE(CopyRect_X(&rect, nullptr), 0);
    QCOMPARE(SetRectEmpty_X(nullptr), 0);
    QCOMPARE(SetRect_X(nullptr, 1, 2, 3, 4), 0);
    QCOMPARE(rect, untouched);
}

XE_GUILESS_TEST(tst_Rect)
#include "tst_rect.moc"
