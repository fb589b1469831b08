// Between Win32 points and rectangles, whose right and bottom are one past the last pixel, and Qt's.
#pragma once

#include "sys/rectangle.h"

#include <QPoint>

namespace xe {

inline QPoint toQPoint(const tagPOINT& point) { return {point.x, point.y}; }
inline tagPOINT toWinPoint(const QPoint& point) { return {point.x(), point.y()}; }

} // namespace xe
