/// @file xerect.h
/// Rectangle functions.
///
/// `right` and `bottom` are one past the last pixel. A null rectangle gives 0 and changes nothing. `out` may be one of
/// the operands. CRect (xeatltypes.h) has members for the same, which behave as published.
#pragma once

#include "xedef.h"

/// Writes what both rectangles have in common, {0, 0, 0, 0} if that is nothing. 1 if it is something.
XE_EXPORT BOOL IntersectRect_X(tagRECT* out, const tagRECT* a, const tagRECT* b);

/// Writes the smallest rectangle around both; one without width and height is left out. 1 if the result is not empty.
XE_EXPORT BOOL UnionRect_X(tagRECT* out, const tagRECT* a, const tagRECT* b);

/// Writes the smallest rectangle around what `b` leaves of `a`, {0, 0, 0, 0} if that is nothing. 1 if it is something.
XE_EXPORT BOOL SubtractRect_X(tagRECT* out, const tagRECT* a, const tagRECT* b);

/// Moves by (-dx, -dy), against the direction of the published function: pass the negated way, or use
/// CRect::OffsetRect. 1.
XE_EXPORT BOOL OffsetRect_X(tagRECT* rect, int dx, int dy);

/// Takes `dx` from `right` and `dy` from `bottom`, so that positive values shrink the rectangle towards its top left
/// corner, where the published function grows it on all sides, as CRect::InflateRect does. 1.
XE_EXPORT BOOL InflateRect_X(tagRECT* rect, int dx, int dy);

/// 1 if the width or the height is 0 or negative. A null rectangle is not empty.
XE_EXPORT BOOL IsRectEmpty_X(const tagRECT* rect);

/// 1 if all four fields are equal, otherwise 0.
XE_EXPORT BOOL EqualRect_X(const tagRECT* a, const tagRECT* b);

/// 1 if the point lies in the rectangle; its left and top edge belong to it. Of a rectangle whose edges are swapped it
/// tells as QRect::contains does.
XE_EXPORT BOOL PtInRect_X(const tagRECT* rect, tagPOINT point);

/// Write all four fields, as published. 1.
XE_EXPORT BOOL CopyRect_X(tagRECT* dest, const tagRECT* source);
XE_EXPORT BOOL SetRectEmpty_X(tagRECT* rect);
XE_EXPORT BOOL SetRect_X(tagRECT* rect, int left, int top, int right, int bottom);
