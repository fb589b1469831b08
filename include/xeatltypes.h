/// @file xeatltypes.h
/// Points, sizes and rectangles: the published value types over the Win32 records. Right and bottom of a rectangle are one
/// past it. Sums beyond 32 bits are the caller's care.
///
/// The members behave as published. The free functions of xestrapi.h (OffsetRect_X, InflateRect_X) do not: they keep a
/// sense of their own.
#pragma once

#include "xedef.h"

#include <algorithm>
#include <limits>

class CPoint;
class CRect;

class CSize : public tagSIZE
{
public:
    CSize() : tagSIZE{0, 0} {}
    CSize(int initCX, int initCY) : tagSIZE{initCX, initCY} {}
    CSize(const tagSIZE& size) : tagSIZE(size) {}
    CSize(const tagPOINT& point) : tagSIZE{point.x, point.y} {}
    /// From the low and the high word, both signed.
    CSize(DWORD packed) : tagSIZE{static_cast<short>(LOWORD(packed)), static_cast<short>(HIWORD(packed))} {}

    void SetSize(int width, int height) { *this = CSize(width, height); }

    bool operator==(const tagSIZE& other) const { return cx == other.cx && cy == other.cy; }
    bool operator!=(const tagSIZE& other) const { return !(*this == other); }

    CSize& operator+=(const tagSIZE& by) { return *this = *this + by; }
    CSize& operator-=(const tagSIZE& by) { return *this = *this - by; }
    CSize operator-() const { return {-cx, -cy}; }
    CSize operator+(const tagSIZE& by) const { return {cx + by.cx, cy + by.cy}; }
    CSize operator-(const tagSIZE& by) const { return {cx - by.cx, cy - by.cy}; }
    CPoint operator+(const tagPOINT& point) const;
    CPoint operator-(const tagPOINT& point) const;
    /// The rectangle, moved by the size.
    CRect operator+(const tagRECT* rect) const;
    CRect operator-(const tagRECT* rect) const;
};

/// Passed by value it fills one 64-bit word. Seen through other types as well: see CRect::TopLeft().
class [[gnu::may_alias]] CPoint : public tagPOINT
{
public:
    CPoint() : tagPOINT{0, 0} {}
    CPoint(int initX, int initY) : tagPOINT{initX, initY} {}
    CPoint(const tagPOINT& point) : tagPOINT(point) {}
    CPoint(const tagSIZE& size) : tagPOINT{size.cx, size.cy} {}
    /// From the packed words of a message: both signed.
    CPoint(LPARAM packed)
        : tagPOINT{static_cast<short>(LOWORD(static_cast<DWORD_PTR>(packed))),
                   static_cast<short>(HIWORD(static_cast<DWORD_PTR>(packed)))}
    {}

    void SetPoint(int newX, int newY) { *this = CPoint(newX, newY); }
    void Offset(int dx, int dy) { *this = CPoint(x + dx, y + dy); }
    void Offset(const tagPOINT& by) { Offset(by.x, by.y); }
    void Offset(const tagSIZE& by) { Offset(by.cx, by.cy); }

    bool operator==(const tagPOINT& other) const { return x == other.x && y == other.y; }
    bool operator!=(const tagPOINT& other) const { return !(*this == other); }

    CPoint& operator+=(const tagSIZE& by) { return *this = *this + by; }
    CPoint& operator+=(const tagPOINT& by) { return *this = *this + by; }
    CPoint& operator-=(const tagSIZE& by) { return *this = *this - by; }
    CPoint& operator-=(const tagPOINT& by) { return *this = CPoint(*this - by); }
    CPoint operator-() const { return {-x, -y}; }
    CPoint operator+(const tagSIZE& by) const { return {x + by.cx, y + by.cy}; }
    CPoint operator+(const tagPOINT& by) const { return {x + by.x, y + by.y}; }
    CPoint operator-(const tagSIZE& by) const { return {x - by.cx, y - by.cy}; }
    CSize operator-(const tagPOINT& from) const { return {x - from.x, y - from.y}; }
    /// The rectangle, moved by the point.
    CRect operator+(const tagRECT* rect) const;
    CRect operator-(const tagRECT* rect) const;
};

class CRect : public tagRECT
{
public:
    CRect() : tagRECT{0, 0, 0, 0} {}
    CRect(int l, int t, int r, int b) : tagRECT{l, t, r, b} {}
    CRect(const tagRECT& rect) : tagRECT(rect) {}
    /// An empty rectangle for null.
    CRect(const tagRECT* rect) : tagRECT(rect ? *rect : tagRECT{0, 0, 0, 0}) {}
    CRect(const tagPOINT& point, const tagSIZE& size) : tagRECT{point.x, point.y, point.x + size.cx, point.y + size.cy}
    {}
    CRect(const tagPOINT& topLeft, const tagPOINT& bottomRight)
        : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y}
    {}

    operator tagRECT*() { return this; }
    operator const tagRECT*() const { return this; }

    // -------------------------------------------------------------------------------------------------- looking at it

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    CPoint TopLeft() const { return {left, top}; }
    CPoint BottomRight() const { return {right, bottom}; }
    CPoint CenterPoint() const { return {(left + right) / 2, (top + bottom) / 2}; }

    /// The corner itself, to be changed in place.
    CPoint& TopLeft() { return reinterpret_cast<CPoint&>(left); }
    CPoint& BottomRight() { return reinterpret_cast<CPoint&>(right); }

    /// Width or height is 0 or negative.
    BOOL IsRectEmpty() const { return left >= right || top >= bottom; }
    /// All four values are 0.
    BOOL IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    /// The left and top edge belong to the rectangle, the right and bottom edge do not.
    BOOL PtInRect(const tagPOINT& point) const
    {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
    BOOL EqualRect(const tagRECT* other) const { return other && *this == *other; }

    // ----------------------------------------------------------------------------------------------------- setting it

    void SetRect(int l, int t, int r, int b) { *this = CRect(l, t, r, b); }
    void SetRect(const tagPOINT& topLeft, const tagPOINT& bottomRight) { *this = CRect(topLeft, bottomRight); }
    void SetRectEmpty() { *this = CRect(); }
    void CopyRect(const tagRECT* source) { *this = CRect(source); }

    /// Moves the edges outwards, each by what is given for it; negative values move them inwards.
    void InflateRect(int l, int t, int r, int b) { *this = CRect(left - l, top - t, right + r, bottom + b); }
    void InflateRect(int dx, int dy) { InflateRect(dx, dy, dx, dy); }
    void InflateRect(const tagSIZE& by) { InflateRect(by.cx, by.cy); }
    void InflateRect(const tagRECT* by) { inflate(by, 1); }
    /// Moves the edges inwards.
    void DeflateRect(int l, int t, int r, int b) { InflateRect(-l, -t, -r, -b); }
    void DeflateRect(int dx, int dy) { InflateRect(-dx, -dy); }
    void DeflateRect(const tagSIZE& by) { InflateRect(-by.cx, -by.cy); }
    void DeflateRect(const tagRECT* by) { inflate(by, -1); }

    void OffsetRect(int dx, int dy) { *this = CRect(left + dx, top + dy, right + dx, bottom + dy); }
    void OffsetRect(const tagPOINT& by) { OffsetRect(by.x, by.y); }
    void OffsetRect(const tagSIZE& by) { OffsetRect(by.cx, by.cy); }
    void MoveToX(int x) { OffsetRect(x - left, 0); }
    void MoveToY(int y) { OffsetRect(0, y - top); }
    void MoveToXY(int x, int y) { OffsetRect(x - left, y - top); }
    void MoveToXY(const tagPOINT& point) { MoveToXY(point.x, point.y); }

    /// Swaps edges so that neither width nor height is negative.
    void NormalizeRect()
    {
        *this = CRect(std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom));
    }
    void SwapLeftRight() { SwapLeftRight(this); }
    static void SwapLeftRight(tagRECT* rect)
    {
        if (rect)
            std::swap(rect->left, rect->right);
    }

    /// Becomes what both have in common; all 0, with result FALSE, if that is nothing. `a` or `b` may be this rectangle.
    BOOL IntersectRect(const tagRECT* a, const tagRECT* b) { return become(CRect(a) & CRect(b)); }

    /// Becomes the smallest rectangle around both; an empty one is left out. FALSE, and all 0, if both are empty.
    BOOL UnionRect(const tagRECT* a, const tagRECT* b) { return become(CRect(a) | CRect(b)); }

    /// Becomes `a` without the side that `b` covers from edge to edge; a `b` that would leave any other shape leaves `a`
    /// as it is. FALSE, and all 0, if nothing is left.
    BOOL SubtractRect(const tagRECT* a, const tagRECT* b)
    {
        CRect rest(a);
        const CRect common = rest & CRect(b);
        if (common.top == rest.top && common.bottom == rest.bottom)
            cut(rest.left, rest.right, common.left, common.right);
        else if (common.left == rest.left && common.right == rest.right)
            cut(rest.top, rest.bottom, common.top, common.bottom);
        return become(rest);
    }

    // ------------------------------------------------------------------------------------------------------ operators

    bool operator==(const tagRECT& other) const
    {
        return left == other.left && top == other.top && right == other.right && bottom == other.bottom;
    }
    bool operator!=(const tagRECT& other) const { return !(*this == other); }

    // A point or a size moves the rectangle, and a rectangle moves its edges.
    CRect& operator+=(const tagPOINT& by) { return OffsetRect(by), *this; }
    CRect& operator+=(const tagSIZE& by) { return OffsetRect(by), *this; }
    CRect& operator+=(const tagRECT* by) { return InflateRect(by), *this; }
    CRect& operator-=(const tagPOINT& by) { return OffsetRect(-by.x, -by.y), *this; }
    CRect& operator-=(const tagSIZE& by) { return OffsetRect(-by.cx, -by.cy), *this; }
    CRect& operator-=(const tagRECT* by) { return DeflateRect(by), *this; }
    CRect operator+(const tagPOINT& by) const { return CRect(*this) += by; }
    CRect operator+(const tagSIZE& by) const { return CRect(*this) += by; }
    CRect operator+(const tagRECT* by) const { return CRect(*this) += by; }
    CRect operator-(const tagPOINT& by) const { return CRect(*this) -= by; }
    CRect operator-(const tagSIZE& by) const { return CRect(*this) -= by; }
    CRect operator-(const tagRECT* by) const { return CRect(*this) -= by; }
    // Without these a difference of two rectangles could be one of two addresses.
    CRect operator-(tagRECT* by) const { return CRect(*this) -= by; }
    CRect operator-(const CRect& by) const { return CRect(*this) -= &by; }

    // IntersectRect() and UnionRect().
    CRect& operator&=(const tagRECT& other) { return *this = *this & other; }
    CRect& operator|=(const tagRECT& other) { return *this = *this | other; }
    CRect operator&(const tagRECT& other) const
    {
        const CRect common(std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                           std::min(bottom, other.bottom));
        return common.IsRectEmpty() ? CRect() : common;
    }
    CRect operator|(const tagRECT& other) const
    {
        if (IsRectEmpty())
            return CRect(other).IsRectEmpty() ? CRect() : CRect(other);
        if (CRect(other).IsRectEmpty())
            return *this;
        return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
                std::max(bottom, other.bottom)};
    }

    /// Each edge times `multiplier` by `divisor`, rounded to the nearest, halves away from 0. An edge that does not fit,
    /// or a divisor of 0, gives -1.
    CRect MulDiv(int multiplier, int divisor) const
    {
        return {scaled(left, multiplier, divisor), scaled(top, multiplier, divisor), scaled(right, multiplier, divisor),
                scaled(bottom, multiplier, divisor)};
    }

private:
    void inflate(const tagRECT* by, int sign)
    {
        if (by)
            InflateRect(sign * by->left, sign * by->top, sign * by->right, sign * by->bottom);
    }

    BOOL become(const CRect& rect)
    {
        *this = rect.IsRectEmpty() ? CRect() : rect;
        return !IsRectEmpty();
    }

    // Takes the part from `first` to `last` off whichever end it lies at.
    static void cut(LONG& low, LONG& high, LONG first, LONG last)
    {
        if (first == low)
            low = last;
        else if (last == high)
            high = first;
    }

    static LONG scaled(LONG edge, qint64 multiplier, qint64 divisor)
    {
        if (divisor == 0)
            return -1;
        const qint64 product = edge * multiplier;
        const qint64 half = qAbs(divisor) / 2;
        const qint64 result = (product < 0 ? product - half : product + half) / divisor;
        const bool fits = qAbs(result) <= std::numeric_limits<LONG>::max();
        return fits ? static_cast<LONG>(result) : -1;
    }
};

inline CPoint CSize::operator+(const tagPOINT& point) const { return {cx + point.x, cy + point.y}; }
inline CPoint CSize::operator-(const tagPOINT& point) const { return {cx - point.x, cy - point.y}; }
inline CRect CSize::operator+(const tagRECT* rect) const { return CRect(rect) + *this; }
inline CRect CSize::operator-(const tagRECT* rect) const { return CRect(rect) - *this; }
inline CRect CPoint::operator+(const tagRECT* rect) const { return CRect(rect) + *this; }
inline CRect CPoint::operator-(const tagRECT* rect) const { return CRect(rect) - *this; }
