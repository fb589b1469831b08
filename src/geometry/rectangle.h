// Between a Win32 rectangle, whose right and bottom are exclusive, and a QRect, which names its last pixel.
#pragma once

#include "xedef.h"

#include <QRect>

namespace xe {

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

} // namespace xe
