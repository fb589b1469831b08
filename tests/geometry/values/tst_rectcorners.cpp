// The corners of a CRect as points that are changed in place. Compiled with optimisation: a compiler that takes the
// corner for something else than the rectangle keeps values of one over a change of the other.

#include "testclass.h"
#include "valuetext.h"

#include <algorithm>

#if defined(__OPTIMIZE__)
constexpr bool optimised = true;
#else
constexpr bool optimised = false;
#endif

namespace {

#define NO_INLINE __attribute__((noinline)) // the compiler is not to see where the corner comes from

NO_INLINE int edgeAfterCornerIsWritten(CRect& rect, CPoint& corner)
{
    rect.left = 1;
    corner.x = 2;
    return rect.left;
}

NO_INLINE int cornerAfterEdgeIsWritten(CRect& rect, CPoint& corner)
{
    corner.x = 1;
    rect.left = 2;
    return corner.x;
}

NO_INLINE int recordAfterCornerIsWritten(tagRECT& rect, tagPOINT& corner)
{
    rect.left = 1;
    corner.x = 2;
    return rect.left;
}

NO_INLINE int edgeAfterCornerIsAssigned(CRect& rect, CPoint& corner)
{
    rect.left = 1;
    corner = CPoint(2, 3);
    return rect.left;
}

NO_INLINE CPoint cornerAfterRectIsAssigned(CRect& rect, CPoint& corner)
{
    corner = CPoint(1, 1);
    rect = CRect(2, 3, 4, 5);
    return corner;
}

NO_INLINE CRect rectAfterCornerIsMoved(CRect& rect, CPoint& corner)
{
    rect = CRect(1, 1, 9, 9);
    corner.Offset(1, 2);
    return rect;
}

NO_INLINE CRect rectAfterOperators(CRect& rect, CPoint& topLeft, CPoint& bottomRight)
{
    rect.SetRect(10, 10, 20, 20);
    topLeft += CSize(1, 2);
    bottomRight -= CPoint(3, 4);
    rect.OffsetRect(100, 100);
    topLeft -= CSize(1, 2);
    bottomRight += CPoint(3, 4);
    return rect;
}

NO_INLINE CRect rectAfterSwap(CRect& rect, CPoint& topLeft, CPoint& bottomRight)
{
    rect = CRect(1, 2, 3, 4);
    std::swap(topLeft, bottomRight);
    return rect;
}

} // namespace

class tst_RectCorners : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void compiledWithOptimisation() { QVERIFY(optimised); }

    void oneSeesTheOther()
    {
        CRect rect;
        QCOMPARE(edgeAfterCornerIsWritten(rect, rect.TopLeft()), 2);
        QCOMPARE(cornerAfterEdgeIsWritten(rect, rect.TopLeft()), 2);
        QCOMPARE(recordAfterCornerIsWritten(rect, rect.TopLeft()), 2);
        QCOMPARE(edgeAfterCornerIsAssigned(rect, rect.TopLeft()), 2);
        QCOMPARE(text(cornerAfterRectIsAssigned(rect, rect.TopLeft())), QStringLiteral("2 3"));
        QCOMPARE(text(cornerAfterRectIsAssigned(rect, rect.BottomRight())), QStringLiteral("4 5"));
        QCOMPARE(text(rectAfterCornerIsMoved(rect, rect.TopLeft())), QStringLiteral("2 3 9 9"));
        QCOMPARE(text(rectAfterCornerIsMoved(rect, rect.BottomRight())), QStringLiteral("1 1 10 11"));
        QCOMPARE(text(rectAfterOperators(rect, rect.TopLeft(), rect.BottomRight())), QStringLiteral("110 110 120 120"));
        QCOMPARE(text(rectAfterSwap(rect, rect.TopLeft(), rect.BottomRight())), QStringLiteral("3 4 1 2"));
    }

    void cornersAreThoseOfTheRectangle()
    {
        CRect rect(1, 2, 3, 4);
        QCOMPARE(static_cast<void*>(&rect.TopLeft()), static_cast<void*>(&rect.left));
        QCOMPARE(static_cast<void*>(&rect.BottomRight()), static_cast<void*>(&rect.right));
        const CRect& constant = rect;
        const CPoint copy = constant.TopLeft();
        rect.TopLeft() = CPoint(7, 8);
        QCOMPARE(text(copy), QStringLiteral("1 2"));
        QCOMPARE(text(constant.TopLeft()), QStringLiteral("7 8"));
    }
};

XE_TEST(tst_RectCorners)
#include "tst_rectcorners.moc"
