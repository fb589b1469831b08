/// @file xeatltypes.h
/// Points, sizes and rectangles: the published value types over the Win32 records.
///
/// The members behave as published; OffsetRect_X and InflateRect_X of xerect.h do not. Coordinates are signed numbers
/// of 32 bits, in whatever unit the caller has (pixels, as a rule); sums beyond them are the caller's care.
#pragma once

#include "xedef.h"

#include <algorithm>
#include <limits>
#include <utility>

class CPoint;
class CRect;

/// A width `cx` and a height `cy`, or a way in both directions.
///
///     CSize step(2, 1);
///     CPoint at = CPoint(10, 10) + step; // (12, 11)
///
/// A size is a value without invariants: either field may be negative.
class CSize : public tagSIZE
{
public:
    /// (0, 0).
    CSize() : tagSIZE{0, 0} {}
    CSize(int initCX, int initCY) : tagSIZE{initCX, initCY} {}
    CSize(const tagSIZE& size) : tagSIZE(size) {}
    /// The way from (0, 0) to the point.
    CSize(const tagPOINT& point) : tagSIZE{point.x, point.y} {}
    /// Width in the low word and height in the high word, both signed.
    CSize(DWORD packed) : tagSIZE{static_cast<short>(LOWORD(packed)), static_cast<short>(HIWORD(packed))} {}

    void SetSize(int width, int height) { *this = CSize(width, height); }

    /// Whether both fields are equal.
    bool operator==(const tagSIZE& other) const { return cx == other.cx && cy == other.cy; }
    bool operator!=(const tagSIZE& other) const { return !(*this == other); }

    /// Adds field by field.
    CSize& operator+=(const tagSIZE& by) { return *this = *this + by; }
    /// Subtracts field by field.
    CSize& operator-=(const tagSIZE& by) { return *this = *this - by; }
    /// Both fields negated.
    CSize operator-() const { return {-cx, -cy}; }
    /// The sum, field by field.
    CSize operator+(const tagSIZE& by) const { return {cx + by.cx, cy + by.cy}; }
    /// The difference, field by field.
    CSize operator-(const tagSIZE& by) const { return {cx - by.cx, cy - by.cy}; }
    /// The point moved by the size.
    CPoint operator+(const tagPOINT& point) const;
    /// This size less the point, field by field, as published.
    CPoint operator-(const tagPOINT& point) const;
    /// The rectangle moved by the size; null stands for one of zeros.
    CRect operator+(const tagRECT* rect) const;
    /// The rectangle moved by the negated size; null stands for one of zeros.
    CRect operator-(const tagRECT* rect) const;
};

/// A place: `x` to the right, `y` downwards.
///
///     CPoint at(lParam);   // the position in a mouse message
///     at.Offset(-5, 0);
///     CSize way = at - CPoint(3, 4);
///
/// By value it travels in one 64-bit word. It may be seen through other types as well: see CRect::TopLeft().
class [[gnu::may_alias]] CPoint : public tagPOINT
{
public:
    /// (0, 0).
    CPoint() : tagPOINT{0, 0} {}
    CPoint(int initX, int initY) : tagPOINT{initX, initY} {}
    CPoint(const tagPOINT& point) : tagPOINT(point) {}
    /// The point that the size leads to from (0, 0).
    CPoint(const tagSIZE& size) : tagPOINT{size.cx, size.cy} {}
    /// `x` in the low word and `y` in the high word, both signed: as the lParam of a mouse message has them.
    CPoint(LPARAM packed)
        : tagPOINT{static_cast<short>(LOWORD(static_cast<DWORD_PTR>(packed))),
                   static_cast<short>(HIWORD(static_cast<DWORD_PTR>(packed)))}
    {}

    void SetPoint(int newX, int newY) { *this = CPoint(newX, newY); }
    /// Moves to the right and downwards; negative values move the other way.
    void Offset(int dx, int dy) { *this = CPoint(x + dx, y + dy); }
    void Offset(const tagPOINT& by) { Offset(by.x, by.y); }
    void Offset(const tagSIZE& by) { Offset(by.cx, by.cy); }

    /// Whether both fields are equal.
    bool operator==(const tagPOINT& other) const { return x == other.x && y == other.y; }
    bool operator!=(const tagPOINT& other) const { return !(*this == other); }

    /// Moves by a size or a point.
    CPoint& operator+=(const tagSIZE& by) { return *this = *this + by; }
    CPoint& operator+=(const tagPOINT& by) { return *this = *this + by; }
    /// Moves by the negated size or point.
    CPoint& operator-=(const tagSIZE& by) { return *this = *this - by; }
    CPoint& operator-=(const tagPOINT& by) { return *this = CPoint(*this - by); }
    /// Both fields negated.
    CPoint operator-() const { return {-x, -y}; }
    /// The point moved by a size or another point.
    CPoint operator+(const tagSIZE& by) const { return {x + by.cx, y + by.cy}; }
    CPoint operator+(const tagPOINT& by) const { return {x + by.x, y + by.y}; }
    /// The point moved by the negated size.
    CPoint operator-(const tagSIZE& by) const { return {x - by.cx, y - by.cy}; }
    /// The way from the other point to this one.
    CSize operator-(const tagPOINT& from) const { return {x - from.x, y - from.y}; }
    /// The rectangle moved by the point; null stands for one of zeros.
    CRect operator+(const tagRECT* rect) const;
    /// The rectangle moved by the negated point; null stands for one of zeros.
    CRect operator-(const tagRECT* rect) const;
};

/// A rectangle by its edges. `right` and `bottom` are one past the last pixel, so that a width is `right - left`.
///
///     CRect area(0, 0, 100, 50);
///     area.DeflateRect(10, 10);       // (10, 10, 90, 40)
///     if (area.PtInRect(point))
///         view.InvalidateRect(area);  // a rectangle converts to a pointer to its record
///
/// The edges may be swapped; NormalizeRect() puts that right, and only functions that say so expect it. A null pointer
/// to another rectangle stands for one of zeros, unless a function says otherwise.
class CRect : public tagRECT
{
public:
    /// (0, 0, 0, 0).
    CRect() : tagRECT{0, 0, 0, 0} {}
    CRect(int l, int t, int r, int b) : tagRECT{l, t, r, b} {}
    CRect(const tagRECT& rect) : tagRECT(rect) {}
    /// Zeros for null.
    CRect(const tagRECT* rect) : tagRECT(rect ? *rect : tagRECT{0, 0, 0, 0}) {}
    /// From the top left corner and the size.
    CRect(const tagPOINT& point, const tagSIZE& size) : tagRECT{point.x, point.y, point.x + size.cx, point.y + size.cy}
    {}
    /// From two corners, the second one past the last pixel.
    CRect(const tagPOINT& topLeft, const tagPOINT& bottomRight)
        : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y}
    {}

    /// The rectangle itself, for functions that take a pointer to the record.
    operator tagRECT*() { return this; }
    operator const tagRECT*() const { return this; }

    // --------------------------------------------------------------------------------------------------- looking at it

    /// `right - left`: negative if the edges are swapped.
    int Width() const { return right - left; }
    /// `bottom - top`: negative if the edges are swapped.
    int Height() const { return bottom - top; }
    /// Width and height, with the sign that they have.
    CSize Size() const { return {Width(), Height()}; }
    /// The top left corner.
    CPoint TopLeft() const { return {left, top}; }
    /// The bottom right corner, one past the last pixel.
    CPoint BottomRight() const { return {right, bottom}; }
    /// The middle, rounded towards 0.
    CPoint CenterPoint() const { return {(left + right) / 2, (top + bottom) / 2}; }

    /// The corner itself, to be changed in place.
    CPoint& TopLeft() { return reinterpret_cast<CPoint&>(left); }
    CPoint& BottomRight() { return reinterpret_cast<CPoint&>(right); }

    /// Whether width or height is 0 or negative.
    BOOL IsRectEmpty() const { return left >= right || top >= bottom; }
    /// Whether all four edges are 0.
    BOOL IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    /// Whether the point lies in the rectangle, to which the left and top edge belong, the right and bottom edge not.
    /// No point lies in one with swapped edges.
    BOOL PtInRect(const tagPOINT& point) const
    {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
    /// Whether all four edges are equal; FALSE for null.
    BOOL EqualRect(const tagRECT* other) const { return other && *this == *other; }

    // ------------------------------------------------------------------------------------------------------ setting it

    void SetRect(int l, int t, int r, int b) { *this = CRect(l, t, r, b); }
    void SetRect(const tagPOINT& topLeft, const tagPOINT& bottomRight) { *this = CRect(topLeft, bottomRight); }
    /// Sets all four edges to 0.
    void SetRectEmpty() { *this = CRect(); }
    /// Takes over all four edges.
    void CopyRect(const tagRECT* source) { *this = CRect(source); }

    /// Moves the edges outwards, each by what is given for it; negative values move them inwards.
    void InflateRect(int l, int t, int r, int b) { *this = CRect(left - l, top - t, right + r, bottom + b); }
    /// Moves the left and right edge outwards by `dx`, the top and bottom edge by `dy`.
    void InflateRect(int dx, int dy) { InflateRect(dx, dy, dx, dy); }
    void InflateRect(const tagSIZE& by) { InflateRect(by.cx, by.cy); }
    /// Moves each edge outwards by the value in the field of its name; null moves nothing.
    void InflateRect(const tagRECT* by) { inflate(by, 1); }
    /// The reverse of InflateRect(), form by form: moves the edges inwards. Nothing stops them from crossing.
    void DeflateRect(int l, int t, int r, int b) { InflateRect(-l, -t, -r, -b); }
    void DeflateRect(int dx, int dy) { InflateRect(-dx, -dy); }
    void DeflateRect(const tagSIZE& by) { InflateRect(-by.cx, -by.cy); }
    void DeflateRect(const tagRECT* by) { inflate(by, -1); }

    /// Moves to the right and downwards; negative values move the other way. The size stays.
    void OffsetRect(int dx, int dy) { *this = CRect(left + dx, top + dy, right + dx, bottom + dy); }
    void OffsetRect(const tagPOINT& by) { OffsetRect(by.x, by.y); }
    void OffsetRect(const tagSIZE& by) { OffsetRect(by.cx, by.cy); }
    /// Moves so that the left edge is at `x`.
    void MoveToX(int x) { OffsetRect(x - left, 0); }
    /// Moves so that the top edge is at `y`.
    void MoveToY(int y) { OffsetRect(0, y - top); }
    /// Moves so that the top left corner is there.
    void MoveToXY(int x, int y) { OffsetRect(x - left, y - top); }
    void MoveToXY(const tagPOINT& point) { MoveToXY(point.x, point.y); }

    /// Swaps edges so that neither width nor height is negative.
    void NormalizeRect()
    {
        *this = CRect(std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom));
    }
    /// Swaps the left and the right edge, of this rectangle or of the one given; nothing for null.
    void SwapLeftRight() { SwapLeftRight(this); }
    static void SwapLeftRight(tagRECT* rect)
    {
        if (rect)
            std::swap(rect->left, rect->right);
    }

    // `a` or `b` may be this rectangle. Neither is to have swapped edges: such a one counts as empty.

    /// Becomes what both have in common; all 0, with the result FALSE, if that is nothing.
    BOOL IntersectRect(const tagRECT* a, const tagRECT* b) { return become(CRect(a) & CRect(b)); }

    /// Becomes the smallest rectangle around both; an empty one is left out. All 0, with the result FALSE, if both are
    /// empty.
    BOOL UnionRect(const tagRECT* a, const tagRECT* b) { return become(CRect(a) | CRect(b)); }

    /// Becomes `a` without the side that `b` covers from edge to edge; a `b` that would leave any other shape leaves
    /// `a` as it is. All 0, with the result FALSE, if nothing is left.
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

    // ------------------------------------------------------------------------------------------------------- operators

    /// Whether all four edges are equal.
    bool operator==(const tagRECT& other) const
    {
        return left == other.left && top == other.top && right == other.right && bottom == other.bottom;
    }
    bool operator!=(const tagRECT& other) const { return !(*this == other); }

    // A point or a size moves the rectangle, and a rectangle moves its edges.

    /// OffsetRect().
    CRect& operator+=(const tagPOINT& by) { return OffsetRect(by), *this; }
    CRect& operator+=(const tagSIZE& by) { return OffsetRect(by), *this; }
    /// InflateRect() by the fields.
    CRect& operator+=(const tagRECT* by) { return InflateRect(by), *this; }
    /// OffsetRect() by the negated point or size.
    CRect& operator-=(const tagPOINT& by) { return OffsetRect(-by.x, -by.y), *this; }
    CRect& operator-=(const tagSIZE& by) { return OffsetRect(-by.cx, -by.cy), *this; }
    /// DeflateRect() by the fields.
    CRect& operator-=(const tagRECT* by) { return DeflateRect(by), *this; }
    /// A copy, changed by `+=`.
    CRect operator+(const tagPOINT& by) const { return CRect(*this) += by; }
    CRect operator+(const tagSIZE& by) const { return CRect(*this) += by; }
    CRect operator+(const tagRECT* by) const { return CRect(*this) += by; }
    /// A copy, changed by `-=`.
    CRect operator-(const tagPOINT& by) const { return CRect(*this) -= by; }
    CRect operator-(const tagSIZE& by) const { return CRect(*this) -= by; }
    CRect operator-(const tagRECT* by) const { return CRect(*this) -= by; }
    /// The same. Without these forms a difference of two rectangles could be one of two addresses.
    CRect operator-(tagRECT* by) const { return CRect(*this) -= by; }
    CRect operator-(const CRect& by) const { return CRect(*this) -= &by; }

    /// Becomes what both have in common, as IntersectRect() says.
    CRect& operator&=(const tagRECT& other) { return *this = *this & other; }
    /// Becomes the smallest rectangle around both, as UnionRect() says.
    CRect& operator|=(const tagRECT& other) { return *this = *this | other; }
    /// What both have in common; all 0 if that is nothing.
    CRect operator&(const tagRECT& other) const
    {
        const CRect common(std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                           std::min(bottom, other.bottom));
        return common.IsRectEmpty() ? CRect() : common;
    }
    /// The smallest rectangle around both; an empty one is left out, and two empty ones give zeros.
    CRect operator|(const tagRECT& other) const
    {
        if (IsRectEmpty())
            return CRect(other).IsRectEmpty() ? CRect() : CRect(other);
        if (CRect(other).IsRectEmpty())
            return *this;
        return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
                std::max(bottom, other.bottom)};
    }

    /// Each edge times `multiplier` by `divisor`, rounded to the nearest, halves away from 0. An edge that does not
    /// fit, or a divisor of 0, gives -1.
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
