// Between COLORREF, 0x00BBGGRR, and Qt's colours. The highest byte of a COLORREF is not looked at, and is 0 in results.
#pragma once

#include "xedef.h"

#include <QColor>

namespace xe {

inline QColor toQColor(COLORREF color)
{
    return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF), static_cast<int>(color >> 16 & 0xFF)};
}

constexpr COLORREF toColorRef(int red, int green, int blue)
{
    return static_cast<COLORREF>(red) | static_cast<COLORREF>(green) << 8 | static_cast<COLORREF>(blue) << 16;
}

inline COLORREF toColorRef(const QColor& color) { return toColorRef(color.red(), color.green(), color.blue()); }

/// A colour of 0x00RRGGBB, which is how some calls read what is a COLORREF elsewhere: red and blue change places.
inline QColor exchangedQColor(COLORREF color) { return QColor(static_cast<QRgb>(color)); }

} // namespace xe
