// A device context's clip, and its painting of regions.

#include "geometry/rectangle.h"
#include "gfx/gdivalue.h"
#include "xeafxdc.h"
#include "xeafxwin.h"

namespace {

void fill(QPainter& painter, const QRegion& region, const QBrush& brush)
{
    for (const QRect& rect : region)
        painter.fillRect(rect, brush);
}

} // namespace

// --------------------------------------------------------------------------------------------------------------- clip

int CDC_X::SelectClipRgn(CRgn_X* region)
{
    SelectClipRgn(region, Qt::ReplaceClip);
    return 0;
}

int CDC_X::SelectClipRgn(CRgn_X* region, int mode)
{
    const QRegion* const value = xe::gdiValue<QRegion>(region);
    if (!value)
        return -1;
    const bool isQtMode = mode >= Qt::NoClip && mode <= Qt::IntersectClip;
    setClipRegion(*value, isQtMode ? static_cast<Qt::ClipOperation>(mode) : Qt::ReplaceClip);
    return 0;
}

int CDC_X::IntersectClipRect(int left, int top, int right, int bottom)
{
    const tagRECT rect{left, top, right, bottom};
    return IntersectClipRect(&rect);
}

int CDC_X::IntersectClipRect(const tagRECT* rect)
{
    if (rect)
        setClipRegion(QRegion(xe::toQRect(*rect)), Qt::IntersectClip);
    return 0;
}

int CDC_X::ExcludeClipRect(int left, int top, int right, int bottom)
{
    const tagRECT rect{left, top, right, bottom};
    return ExcludeClipRect(&rect);
}

int CDC_X::ExcludeClipRect(const tagRECT* rect)
{
    if (rect)
        setClipRect(xe::toQRect(*rect), Qt::IntersectClip);
    return 0;
}

// Without a clip all that is painted on is what is left to paint.
int CDC_X::ExcludeUpdateRgn(CWnd_X* window)
{
    const QWidget* const widget = window ? window->GetSafeHwnd() : nullptr;
    if (!widget)
        return 0;
    const QRegion paintable = hasClipping() ? clipRegion() : QRegion(this->window());
    setClipRegion(paintable - widget->geometry(), Qt::ReplaceClip);
    return 0;
}

int CDC_X::OffsetClipRgn(int dx, int dy)
{
    translate(dx, dy);
    return 0;
}

// ------------------------------------------------------------------------------------------------------------ regions

int CDC_X::FillRgn(CRgn_X* region, CBrush_X* brush)
{
    const QRegion* const area = xe::gdiValue<QRegion>(region);
    const QBrush* const filling = xe::gdiValue<QBrush>(brush);
    if (!area || !filling)
        return 0;
    fill(*this, *area, *filling);
    return 1;
}

int CDC_X::PaintRgn(CRgn_X* region)
{
    const QRegion* const area = xe::gdiValue<QRegion>(region);
    if (!area)
        return 0;
    fill(*this, *area, brush());
    return 1;
}

int CDC_X::FrameRgn(CRgn_X* region, CBrush_X* brush, int width, int height)
{
    const QRegion* const area = xe::gdiValue<QRegion>(region);
    const QBrush* const filling = xe::gdiValue<QBrush>(brush);
    if (!area || !filling)
        return 0;
    const QRect bounds = area->boundingRect();
    const int left = xe::difference(bounds.left(), width);
    const int top = xe::difference(bounds.top(), height);
    const int right = xe::sum(bounds.right(), width);
    const int bottom = xe::sum(bounds.bottom(), height);
    fillRect(QRect(QPoint(left, top), QPoint(right, xe::difference(bounds.top(), 1))), *filling);
    fillRect(QRect(QPoint(left, bounds.bottom()), QPoint(right, xe::difference(bottom, 1))), *filling);
    fillRect(QRect(QPoint(left, top), QPoint(xe::difference(bounds.left(), 1), bottom)), *filling);
    fillRect(QRect(QPoint(bounds.right(), top), QPoint(xe::difference(right, 1), bottom)), *filling);
    return 1;
}

int CDC_X::InvertRgn(CRgn_X* region)
{
    const QRegion* const area = xe::gdiValue<QRegion>(region);
    if (!area)
        return 0;
    setClipRegion(*area, Qt::IntersectClip);
    setCompositionMode(RasterOp_NotSource);
    fillRect(window(), QBrush(Qt::SolidPattern));
    return 0;
}
