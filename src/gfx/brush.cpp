#include "geometry/colorref.h"
#include "gfx/gdivalue.h"
#include "xeafxgdi.h"
#include "xehost.h"

#include <QBrush>
#include <QPixmap>
#include <QWidget>

#include <algorithm>
#include <iterator>

IMPLEMENT_DYNCREATE_X(CBrush_X, CGdiObject_X)

namespace {

// By HS_ number.
constexpr Qt::BrushStyle hatches[] = {
    Qt::HorPattern, Qt::VerPattern, Qt::FDiagPattern, Qt::BDiagPattern, Qt::CrossPattern, Qt::DiagCrossPattern,
};

} // namespace

CBrush_X::CBrush_X(COLORREF color) { CreateSolidBrush(color); }

CBrush_X::CBrush_X(int hatch, COLORREF color) { CreateHatchBrush(hatch, color); }

CBrush_X::CBrush_X(CBitmap_X* bitmap) { CreatePatternBrush(bitmap); }

CBrush_X::~CBrush_X() { DeleteObject(); }

BOOL CBrush_X::CreateSolidBrush(COLORREF color) { return Attach(new QBrush(xe::toQColor(color))); }

BOOL CBrush_X::CreateHatchBrush(int hatch, COLORREF color)
{
    return Attach(new QBrush(xe::toQColor(color), mapToBrushStyle(hatch)));
}

BOOL CBrush_X::CreatePatternBrush(CBitmap_X* bitmap)
{
    const auto* const picture = xe::gdiValue<QImage>(bitmap);
    return picture ? Attach(new QBrush(QPixmap::fromImage(*picture))) : FALSE;
}

BOOL CBrush_X::CreateBrushIndirect(const tagLOGBRUSH* brush)
{
    if (brush && brush->lbStyle == BS_SOLID)
        return CreateSolidBrush(brush->lbColor);
    if (brush && brush->lbStyle == BS_HATCHED)
        return CreateHatchBrush(static_cast<int>(brush->lbHatch), brush->lbColor);
    return FALSE;
}

BOOL CBrush_X::CreateSysColorBrush(int)
{
    const QWidget* const frame = TavoGetMainFrame();
    return Attach(frame ? new QBrush(frame->palette().brush(QPalette::Current, QPalette::Window).color()) : new QBrush);
}

BOOL CBrush_X::GetLogBrush(tagLOGBRUSH* brush) const
{
    const auto* const value = xe::gdiValue<QBrush>(this);
    if (!value || !brush)
        return FALSE;
    int style = 0;
    int hatch = 0;
    mapToHatchStyle(value->style(), style, hatch);
    *brush = {static_cast<UINT>(style), xe::toColorRef(value->color()), static_cast<ULONG_PTR>(hatch)};
    return TRUE;
}

Qt::BrushStyle CBrush_X::mapToBrushStyle(int hatch)
{
    return hatch >= HS_HORIZONTAL && hatch < static_cast<int>(std::size(hatches)) ? hatches[hatch] : Qt::NoBrush;
}

void CBrush_X::mapToHatchStyle(Qt::BrushStyle brushStyle, int& style, int& hatch)
{
    const auto* const found = std::find(std::begin(hatches), std::end(hatches), brushStyle);
    if (found != std::end(hatches)) {
        style = BS_HATCHED;
        hatch = static_cast<int>(found - std::begin(hatches));
    } else if (brushStyle == Qt::NoBrush) {
        style = BS_NULL;
    } else if (brushStyle == Qt::SolidPattern) {
        style = BS_SOLID;
    } else if (brushStyle == Qt::TexturePattern) {
        style = BS_PATTERN;
    }
}
