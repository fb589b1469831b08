#include "xerect.h"

#include "geometry/rectangle.h"

#include <QRegion>

using xe::difference;
using xe::toQRect;
using xe::toRect;

BOOL IntersectRect_X(tagRECT* out, const tagRECT* a, const tagRECT* b)
{
    if (!out || !a || !b)
        return 0;
    const QRect left = toQRect(*a);
    const QRect right = toQRect(*b);
    *out = toRect(left & right);
    return left.intersects(right);
}

BOOL UnionRect_X(tagRECT* out, const tagRECT* a, const tagRECT* b)
{
    if (!out || !a || !b)
        return 0;
    const QRect both = toQRect(*a) | toQRect(*b);
    *out = toRect(both);
    return !both.isEmpty();
}

BOOL SubtractRect_X(tagRECT* out, const tagRECT* a, const tagRECT* b)
{
    if (!out || !a || !b)
        return 0;
    const QRegion rest = QRegion(toQRect(*a)) - QRegion(toQRect(*b));
    *out = toRect(rest.boundingRect());
    return !rest.isEmpty();
}

BOOL OffsetRect_X(tagRECT* rect, int dx, int dy)
{
    return rect
           && SetRect_X(rect, difference(rect->left, dx), difference(rect->top, dy), difference(rect->right, dx),
                        difference(rect->bottom, dy));
}

BOOL InflateRect_X(tagRECT* rect, int dx, int dy)
{
    return rect && SetRect_X(rect, rect->left, rect->top, difference(rect->right, dx), difference(rect->bottom, dy));
}

BOOL IsRectEmpty_X(const tagRECT* rect) { return rect && (rect->left >= rect->right || rect->top >= rect->bottom); }

BOOL EqualRect_X(const tagRECT* a, const tagRECT* b)
{
    return a && b && a->left == b->left && a->top == b->top && a->right == b->right && a->bottom == b->bottom;
}

BOOL PtInRect_X(const tagRECT* rect, tagPOINT point)
{
    return rect && toQRect(*rect).contains(QPoint(point.x, point.y), false);
}

BOOL CopyRect_X(tagRECT* dest, const tagRECT* source)
{
    return dest && source && SetRect_X(dest, source->left, source->top, source->right, source->bottom);
}

BOOL SetRectEmpty_X(tagRECT* rect) { return SetRect_X(rect, 0, 0, 0, 0); }

BOOL SetRect_X(tagRECT* rect, int left, int top, int right, int bottom)
{
    if (!rect)
        return 0;
    *rect = {left, top, right, bottom};
    return 1;
}
