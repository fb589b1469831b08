// Between COLORREF, 0x00BBGGRR, and Qt's colours. The highest byte of a COLORREF is not looked at, and is 0 in results.
#pragma once

#include "xecolor.h"

#include <QColor>

namespace xe {

inline QColor toQColor(COLORREF color) { return {GetRValue(color), GetGValue(color), GetBValue(color)}; }
inline COLORREF toColorRef(const QColor& color) { return RGB(color.red(), color.green(), color.blue()); }

/// A colour of 0x00RRGGBB, which is how some calls read what is a COLORREF elsewhere: red and blue change places.
inline QColor exchangedQColor(COLORREF color) { return QColor(static_cast<QRgb>(color)); }

} // namespace xe
