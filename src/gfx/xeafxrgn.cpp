#include "xeafxrgn.h"

#include "geometry/rectangle.h"
#include "gfx/gdivalue.h"
#include "xeafxdc.h"

#include <QPainterPath>
#include <QRegion>

#include <algorithm>

IMPLEMENT_DYNCREATE_X(CRgn_X, CGdiObject_X)

namespace {

QRegion* valueOf(const CRgn_X* region) { return xe::gdiValue<QRegion>(region); }

const QRegion& regionOf(const CRgn_X* region)
{
    static const QRegion empty;
    const QRegion* const value = valueOf(region);
    return value ? *value : empty;
}

QPolygon polygonOf(const tagPOINT* points, int count)
{
    QPolygon polygon;
    polygon.reserve(count);
    for (int i = 0; i < count; ++i)
        polygon.append(xe::toQPoint(points[i]));
    return polygon;
}

QRegion combined(const QRegion& a, const QRegion& b, int mode)
{
    switch (mode) {
    case RGN_AND:
        return a.intersected(b);
    case RGN_OR:
    case RGN_COPY:
        return a.united(b);
    case RGN_XOR:
        return a.xored(b);
    case RGN_DIFF:
        return a.subtracted(b);
    default:
        return {};
    }
}

} // namespace

CRgn_X::~CRgn_X() { DeleteObject(); }

// ------------------------------------------------------------------------------------------------------------- making

BOOL CRgn_X::CreateRectRgn(int left, int top, int right, int bottom)
{
    return Attach(new QRegion(xe::cornersToQRect({left, top, right, bottom})));
}

BOOL CRgn_X::CreateRectRgnIndirect(const tagRECT* rect)
{
    return rect ? CreateRectRgn(rect->left, rect->top, rect->right, rect->bottom) : FALSE;
}

BOOL CRgn_X::CreateEllipticRgn(int left, int top, int right, int bottom)
{
    return Attach(new QRegion(xe::cornersToQRect({left, top, right, bottom}), QRegion::Ellipse));
}

BOOL CRgn_X::CreateEllipticRgnIndirect(const tagRECT* rect)
{
    return rect ? CreateEllipticRgn(rect->left, rect->top, rect->right, rect->bottom) : FALSE;
}

BOOL CRgn_X::CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height)
{
    QPainterPath path;
    path.addRoundedRect(QRectF(left, top, qreal(right) - left + 1, qreal(bottom) - top + 1), width, height,
                        Qt::AbsoluteSize);
    return Attach(new QRegion(path.toFillPolygon().toPolygon(), Qt::OddEvenFill));
}

BOOL CRgn_X::CreatePolygonRgn(const tagPOINT* points, int count, int)
{
    return Attach(new QRegion(polygonOf(points, points ? std::max(count, 0) : 0), Qt::OddEvenFill));
}

BOOL CRgn_X::CreatePolyPolygonRgn(const tagPOINT* points, const int* counts, int count, int mode)
{
    if (!points || !counts || count < 1)
        return TRUE;
    const int* const last = counts + count - 1;
    for (const int* skipped = counts; skipped != last; ++skipped)
        points += std::max(*skipped, 0);
    return CreatePolygonRgn(points, *last, mode);
}

BOOL CRgn_X::CreateFromPath(CDC_X* dc)
{
    if (!dc)
        return FALSE;
    // An idle painter would warn.
    return Attach(dc->isActive() ? new QRegion(dc->clipRegion()) : new QRegion);
}

BOOL CRgn_X::CreateFromData(const tagXFORM*, int, const _RGNDATA*) { return FALSE; }

int CRgn_X::GetRegionData(_RGNDATA*, int) const { return -1; }

BOOL CRgn_X::SetRectRgn(int left, int top, int right, int bottom)
{
    DeleteObject();
    return CreateRectRgn(left, top, right, bottom);
}

BOOL CRgn_X::SetRectRgn(const tagRECT* rect)
{
    return rect ? SetRectRgn(rect->left, rect->top, rect->right, rect->bottom) : FALSE;
}

int CRgn_X::CombineRgn(const CRgn_X* a, const CRgn_X* b, int mode)
{
    auto* const result = new QRegion(combined(regionOf(a), regionOf(b), mode));
    DeleteObject(); // may be one of the two
    return Attach(result);
}

int CRgn_X::CopyRgn(const CRgn_X* other)
{
    if (other == this)
        return TRUE;
    Detach();
    return Attach(valueOf(other));
}

// ------------------------------------------------------------------------------------------------- asking and moving

BOOL CRgn_X::EqualRgn(const CRgn_X* other) const { return m_hObject == valueOf(other); }

int CRgn_X::OffsetRgn(int dx, int dy)
{
    QRegion* const region = valueOf(this);
    if (!region)
        return -1;
    region->translate(dx, dy);
    return 0;
}

int CRgn_X::OffsetRgn(tagPOINT by) { return OffsetRgn(by.x, by.y); }

int CRgn_X::GetRgnBox(tagRECT* rect) const
{
    const QRegion* const region = valueOf(this);
    if (!region)
        return 0;
    if (rect)
        *rect = xe::toRect(region->boundingRect());
    return SIMPLEREGION;
}

BOOL CRgn_X::PtInRegion(int x, int y) const { return regionOf(this).contains(QPoint(x, y)); }

BOOL CRgn_X::PtInRegion(tagPOINT point) const { return PtInRegion(point.x, point.y); }

BOOL CRgn_X::RectInRegion(const tagRECT* rect) const
{
    return rect && regionOf(this).contains(xe::cornersToQRect(*rect));
}
