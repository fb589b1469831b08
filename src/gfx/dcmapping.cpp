// A device context's coordinates.

#include "geometry/rectangle.h"
#include "xeafxdc.h"

namespace {

void mapPoints(const QTransform& transform, tagPOINT* points, int count)
{
    for (int i = 0; points && i < count; ++i)
        points[i] = xe::toWinPoint(transform.map(xe::toQPoint(points[i])));
}

void mapRect(const QTransform& transform, tagRECT* rect)
{
    if (!rect)
        return;
    const QPoint topLeft = transform.map(QPoint(rect->left, rect->top));
    const QPoint bottomRight = transform.map(QPoint(rect->right, rect->bottom));
    *rect = {topLeft.x(), topLeft.y(), bottomRight.x(), bottomRight.y()};
}

void mapSize(const QTransform& transform, tagSIZE* size)
{
    if (!size)
        return;
    const QPoint point = transform.map(QPoint(size->cx, size->cy));
    *size = {point.x(), point.y()};
}

// The way from device to logical coordinates; the identity, which leaves them alone, if there is none.
QTransform toLogical(const QPainter& painter) { return painter.deviceTransform().inverted(); }

} // namespace

CPoint CDC_X::SetViewportOrg(int x, int y)
{
    const QRect old = viewport();
    if (!isActive())
        return {};
    setViewport(QRect(QPoint(x, y), old.size()));
    return xe::toWinPoint(old.topLeft());
}

CPoint CDC_X::GetViewportOrg() const { return xe::toWinPoint(viewport().topLeft()); }

void CDC_X::LPtoDP(tagPOINT* points, int count) const { mapPoints(deviceTransform(), points, count); }

void CDC_X::LPtoDP(tagRECT* rect) const { mapRect(deviceTransform(), rect); }

void CDC_X::LPtoDP(tagSIZE* size) const { mapSize(deviceTransform(), size); }

void CDC_X::DPtoLP(tagPOINT* points, int count) const { mapPoints(toLogical(*this), points, count); }

void CDC_X::DPtoLP(tagRECT* rect) const { mapRect(toLogical(*this), rect); }

void CDC_X::DPtoLP(tagSIZE* size) const { mapSize(toLogical(*this), size); }
