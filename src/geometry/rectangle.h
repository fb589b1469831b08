// Between Win32 points and rectangles and Qt's. A rectangle has one of three meanings:
//
//  - right and bottom are one past the last pixel, as published: toQRect(), toRect();
//  - its numbers are the first and the last column and row, as in regions and in the cells of a grid: cornersToQRect(),
//    toCorners();
//  - a place, a width and a height: sizedQRect().
#pragma once

#include "xedef.h"

#include <QPoint>
#include <QRect>

namespace xe {

inline QPoint toQPoint(const tagPOINT& point) { return {point.x, point.y}; }
inline tagPOINT toWinPoint(const QPoint& point) { return {point.x(), point.y()}; }

/// The sum and the difference of two coordinates, cut to 32 bits.
constexpr LONG sum(LONG a, LONG b) { return static_cast<LONG>(static_cast<ULONG>(a) + static_cast<ULONG>(b)); }
constexpr LONG difference(LONG a, LONG b) { return static_cast<LONG>(static_cast<ULONG>(a) - static_cast<ULONG>(b)); }

inline QRect toQRect(const tagRECT& rect)
{
    return {QPoint(rect.left, rect.top), QPoint(difference(rect.right, 1), difference(rect.bottom, 1))};
}

inline tagRECT toRect(const QRect& rect)
{
    return {rect.left(), rect.top(), sum(rect.right(), 1), sum(rect.bottom(), 1)};
}

/// QRect(x, y, width, height) for numbers of any size.
inline QRect sizedQRect(LONG x, LONG y, LONG width, LONG height)
{
    return {QPoint(x, y), QPoint(difference(sum(x, width), 1), difference(sum(y, height), 1))};
}

inline QRect cornersToQRect(const tagRECT& rect)
{
    return {QPoint(rect.left, rect.top), QPoint(rect.right, rect.bottom)};
}

inline tagRECT toCorners(const QRect& rect) { return {rect.left(), rect.top(), rect.right(), rect.bottom()}; }

} // namespace xe
