// A device context's lines and shapes.

#include "geometry/rectangle.h"
#include "xeafxdc.h"

// ------------------------------------------------------------------------------------------------------------- lines

int CDC_X::MoveTo(int x, int y)
{
    m_ptCurrent = CPoint(x, y);
    return 1;
}

int CDC_X::LineTo(int x, int y)
{
    drawLine(m_ptCurrent.x, m_ptCurrent.y, x, y);
    return MoveTo(x, y);
}

QColor CDC_X::SetPixel(int x, int y, QColor color)
{
    const QColor old = pen().color();
    setPen(color);
    drawPoint(x, y);
    setPen(old);
    return color;
}

int CDC_X::DrawEdge(const tagRECT* rect, UINT edge, UINT flags) { return DrawEdge_X(this, rect, edge, flags); }

int DrawEdge_X(CDC_X* dc, const tagRECT* rect, UINT, UINT flags)
{
    if (!dc || !rect)
        return 0;
    const auto& [left, top, right, bottom] = *rect;
    if (flags & BF_TOP)
        dc->drawLine(left, top, right, top);
    if (flags & BF_BOTTOM)
        dc->drawLine(left, bottom, right, bottom);
    if (flags & BF_LEFT)
        dc->drawLine(left, top, left, bottom);
    if (flags & BF_RIGHT)
        dc->drawLine(right, bottom, right, top);
    return 1;
}

// ------------------------------------------------------------------------------------------------------------ shapes

int CDC_X::Rectangle(const tagRECT* rect)
{
    if (!rect)
        return 0;
    drawRect(xe::toQRect(*rect));
    return 1;
}

int CDC_X::Rectangle(int left, int top, int right, int bottom)
{
    const tagRECT rect{left, top, right, bottom};
    return Rectangle(&rect);
}

int CDC_X::Ellipse(const tagRECT* rect)
{
    if (!rect)
        return 0;
    drawEllipse(xe::toQRect(*rect));
    return 1;
}

int CDC_X::Ellipse(int x, int y, int width, int height)
{
    drawEllipse(xe::sizedQRect(x, y, width, height));
    return 1;
}

void CDC_X::FrameRect(const tagRECT* rect, CBrush_X* brush)
{
    if (!brush || !brush->m_hObject)
        return;
    SelectObject(brush);
    Rectangle(rect);
}

// ------------------------------------------------------------------------------------------------------ solid colours

void CDC_X::FillSolidRect(int x, int y, int width, int height, QColor color)
{
    fillRect(xe::sizedQRect(x, y, width, height), color);
}

void CDC_X::FillSolidRect(const tagRECT* rect, QColor color)
{
    if (!rect)
        return;
    const LONG width = xe::difference(qMax(rect->left, rect->right), qMin(rect->left, rect->right));
    const LONG height = xe::difference(qMax(rect->top, rect->bottom), qMin(rect->top, rect->bottom));
    FillSolidRect(rect->left, rect->top, width, height, color);
}

void CDC_X::Draw3dRect(int x, int y, int width, int height, QColor topLeft, QColor bottomRight)
{
    FillSolidRect(x, y, xe::difference(width, 1), 1, topLeft);
    FillSolidRect(x, y, 1, xe::difference(height, 1), topLeft);
    FillSolidRect(xe::sum(x, width), y, -1, height, bottomRight);
    FillSolidRect(x, xe::sum(y, height), width, -1, bottomRight);
}

void CDC_X::Draw3dRect(const tagRECT* rect, QColor topLeft, QColor bottomRight)
{
    if (!rect)
        return;
    Draw3dRect(rect->left, rect->top, xe::difference(rect->right, rect->left), xe::difference(rect->bottom, rect->top),
               topLeft, bottomRight);
}

// ------------------------------------------------------------------------------------------------- raster operations

int CDC_X::PatBlt(int x, int y, int width, int height, UINT operation)
{
    const QRect rect = xe::sizedQRect(x, y, width, height);
    const auto drawWithBrush = [&](Qt::GlobalColor color) {
        const QBrush old = SelectObject(QBrush(color));
        drawRect(rect);
        setBrush(old);
    };
    const auto drawInMode = [&](CompositionMode mode) {
        const CompositionMode old = compositionMode();
        setCompositionMode(mode);
        drawRect(rect);
        setCompositionMode(old);
    };
    switch (operation) {
    case BLACKNESS:
        drawWithBrush(Qt::black);
        break;
    case WHITENESS:
        drawWithBrush(Qt::white);
        break;
    case DSTINVERT:
        drawInMode(RasterOp_NotDestination);
        break;
    case PATINVERT:
        drawInMode(RasterOp_SourceXorDestination);
        break;
    default:
        drawRect(rect);
    }
    return 1;
}
