#pragma once

#include <xeatltypes.h>

#include <QString>

/// Points, sizes and rectangles as texts that a test can compare: "1 2", "1x2" and "1 2 3 4".
inline QString text(const tagPOINT& point) { return QStringLiteral("%1 %2").arg(point.x).arg(point.y); }
inline QString text(const tagSIZE& size) { return QStringLiteral("%1x%2").arg(size.cx).arg(size.cy); }
inline QString text(const tagRECT& rect)
{
    return QStringLiteral("%1 %2 %3 %4").arg(rect.left).arg(rect.top).arg(rect.right).arg(rect.bottom);
}
inline QString text(bool answer) { return answer ? QStringLiteral("yes") : QStringLiteral("no"); }

/// What a value is after a call that changes it.
template <class Value, class Change>
QString after(Value value, Change change)
{
    change(value);
    return text(value);
}
