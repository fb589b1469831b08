/// @file xeatltypes.h
/// Points, sizes and rectangles: the published value types over the Win32 records. Right and bottom of a rectangle are one
/// past it. Sums beyond 32 bits are the caller's care.
///
/// The members behave as published. The free functions of xestrapi.h (OffsetRect_X, InflateRect_X) do not: they keep a
/// sense of their own.
#pragma once

#include "xedef.h"

#include <algorithm>

class CPoint;
class CRect;

class CSize : public tagSIZE
{
public:
    CSize() : tagSIZE{0, 0} {}
    CSize(int initCX, int initCY) : tagSIZE{initCX, initCY} {}
    CSize(const tagSIZE& size) : tagSIZE(size) {}
    explicit CSize(const tagPOINT& point) : tagSIZE{point.x, point.y} {}

    void SetSize(int width, int height) { *this = CSize(width, height); }

    CSize& operator+=(const tagSIZE& size) { return *this = CSize(cx + size.cx, cy + size.cy); }
    CSize& operator-=(const tagSIZE& size) { return *this = CSize(cx - size.cx, cy - size.cy); }
    CSize operator-() const { return {-cx, -cy}; }

    friend bool operator==(const CSize& a, const CSize& b) { return a.cx == b.cx && a.cy == b.cy; }
    friend bool operator!=(const CSize& a, const CSize& b) { return !(a == b); }
    friend CSize operator+(CSize a, const CSize& b) { return a += b; }
    friend CSize operator-(CSize a, const CSize& b) { return a -= b; }
};

/// Passed by value it fills one 64-bit word.
class CPoint : public tagPOINT
{
public:
    CPoint() : tagPOINT{0, 0} {}
    CPoint(int initX, int initY) : tagPOINT{initX, initY} {}
    CPoint(const tagPOINT& point) : tagPOINT(point) {}
    explicit CPoint(const tagSIZE& size) : tagPOINT{size.cx, size.cy} {}
    /// From the packed words of a message: both signed.
    explicit CPoint(LPARAM packed)
        : tagPOINT{static_cast<short>(LOWORD(static_cast<DWORD_PTR>(packed))),
                   static_cast<short>(HIWORD(static_cast<DWORD_PTR>(packed)))}
    {}

    void SetPoint(int newX, int newY) { *this = CPoint(newX, newY); }
    void Offset(int dx, int dy) { *this = CPoint(x + dx, y + dy); }
    void Offset(const tagPOINT& by) { Offset(by.x, by.y); }
    void Offset(const tagSIZE& by) { Offset(by.cx, by.cy); }

    CPoint& operator+=(const tagSIZE& by) { return *this = CPoint(x + by.cx, y + by.cy); }
    CPoint& operator+=(const tagPOINT& by) { return *this = CPoint(x + by.x, y + by.y); }
    CPoint& operator-=(const tagSIZE& by) { return *this = CPoint(x - by.cx, y - by.cy); }
    CPoint& operator-=(const tagPOINT& by) { return *this = CPoint(x - by.x, y - by.y); }
    CPoint operator-() const { return {-x, -y}; }
    CPoint operator+(const tagSIZE& by) const { return {x + by.cx, y + by.cy}; }
    CPoint operator+(const tagPOINT& by) const { return {x + by.x, y + by.y}; }
    CPoint operator-(const tagSIZE& by) const { return {x - by.cx, y - by.cy}; }
    CSize operator-(const tagPOINT& from) const { return {x - from.x, y - from.y}; }

    friend bool operator==(const CPoint& a, const CPoint& b) { return a.x == b.x && a.y == b.y; }
    friend bool operator!=(const CPoint& a, const CPoint& b) { return !(a == b); }
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
    BOOL EqualRect(const tagRECT* other) const { return other && *this == CRect(*other); }

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

    /// Becomes what both have in common; all 0, with result FALSE, if that is nothing. `a` or `b` may be this rectangle.
    BOOL IntersectRect(const tagRECT* a, const tagRECT* b) { return *this = CRect(a) & CRect(b), !IsRectEmpty(); }

    /// Becomes the smallest rectangle around both; an empty one is left out. FALSE, and all 0, if both are empty.
    BOOL UnionRect(const tagRECT* a, const tagRECT* b) { return *this = CRect(a) | CRect(b), !IsRectEmpty(); }

    // ------------------------------------------------------------------------------------------------------ operators

    CRect& operator+=(const tagPOINT& by) { return OffsetRect(by), *this; }
    CRect& operator+=(const tagSIZE& by) { return OffsetRect(by), *this; }
    CRect& operator+=(const tagRECT* by) { return InflateRect(by), *this; }
    CRect& operator-=(const tagPOINT& by) { return OffsetRect(-by.x, -by.y), *this; }
    CRect& operator-=(const tagSIZE& by) { return OffsetRect(-by.cx, -by.cy), *this; }
    CRect& operator-=(const tagRECT* by) { return DeflateRect(by), *this; }
    CRect& operator&=(const tagRECT& other) { return *this = *this & CRect(other); }
    CRect& operator|=(const tagRECT& other) { return *this = *this | CRect(other); }

    friend bool operator==(const CRect& a, const CRect& b)
    {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }
    friend bool operator!=(const CRect& a, const CRect& b) { return !(a == b); }
    friend CRect operator+(CRect rect, const tagPOINT& by) { return rect += by; }
    friend CRect operator+(CRect rect, const tagSIZE& by) { return rect += by; }
    friend CRect operator-(CRect rect, const tagPOINT& by) { return rect -= by; }
    friend CRect operator-(CRect rect, const tagSIZE& by) { return rect -= by; }

    friend CRect operator&(const CRect& a, const CRect& b)
    {
        const CRect common(std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                           std::min(a.bottom, b.bottom));
        return common.IsRectEmpty() ? CRect() : common;
    }

    friend CRect operator|(const CRect& a, const CRect& b)
    {
        if (a.IsRectEmpty() || b.IsRectEmpty())
            return !a.IsRectEmpty() ? a : !b.IsRectEmpty() ? b : CRect();
        return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                std::max(a.bottom, b.bottom)};
    }

private:
    void inflate(const tagRECT* by, int sign)
    {
        if (by)
            InflateRect(sign * by->left, sign * by->top, sign * by->right, sign * by->bottom);
    }
};
