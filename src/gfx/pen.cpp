#include "geometry/colorref.h"
#include "gfx/gdivalue.h"
#include "xeafxgdi.h"

#include <QPen>

#include <algorithm>
#include <iterator>

IMPLEMENT_DYNCREATE_X(CPen_X, CGdiObject_X)

namespace {

// By PS_ number.
constexpr Qt::PenStyle penStyles[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine};

QPen* newPen(int style, int width, const QColor& color)
{
    return new QPen(color, std::max(width, 0), CPen_X::mapToQtPenStyle(style));
}

} // namespace

CPen_X::CPen_X(int style, int width, COLORREF color) { CreatePen(style, width, color); }

CPen_X::CPen_X(int style, int width, const tagLOGBRUSH* brush, int count, const DWORD* styles)
{
    CreatePen(style, width, brush, count, styles);
}

CPen_X::~CPen_X() { DeleteObject(); }

BOOL CPen_X::CreatePen(int style, int width, COLORREF color)
{
    return Attach(newPen(style, width, xe::toQColor(color)));
}

BOOL CPen_X::CreatePen(int style, int width, const tagLOGBRUSH* brush, int, const DWORD*)
{
    return brush ? Attach(newPen(style, width, xe::exchangedQColor(brush->lbColor))) : FALSE;
}

BOOL CPen_X::CreatePenIndirect(const tagLOGPEN* pen)
{
    return pen ? CreatePen(static_cast<int>(pen->lopnStyle), pen->lopnWidth.x, pen->lopnColor) : FALSE;
}

BOOL CPen_X::GetLogPen(tagLOGPEN* pen) const
{
    const auto* const value = xe::gdiValue<QPen>(this);
    if (!value || !pen)
        return FALSE;
    *pen = {static_cast<UINT>(mapToMfcPenStyle(value->style())), {value->width(), 0}, xe::toColorRef(value->color())};
    return TRUE;
}

BOOL CPen_X::GetExtLogPen(tagEXTLOGPEN*) const { return FALSE; }

Qt::PenStyle CPen_X::mapToQtPenStyle(int style)
{
    return style >= PS_SOLID && style < static_cast<int>(std::size(penStyles)) ? penStyles[style] : Qt::NoPen;
}

int CPen_X::mapToMfcPenStyle(Qt::PenStyle style)
{
    const auto* const found = std::find(std::begin(penStyles), std::end(penStyles), style);
    return found != std::end(penStyles) ? static_cast<int>(found - std::begin(penStyles)) : PS_NULL;
}
