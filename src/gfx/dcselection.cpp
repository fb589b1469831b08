// What is selected into a device context.

#include "gfx/defaultpalette.h"
#include "gfx/gdivalue.h"
#include "gfx/painterslots.h"
#include "xeafxdc.h"

#include <algorithm>
#include <iterator>

namespace {

// The value of an object, unless it is a painter's own pen or brush, which may even be gone.
template <class Value>
const Value* selectable(const CGdiObject_X* object)
{
    const auto* const value = xe::gdiValue<Value>(object);
    return xe::isPainterSlot(value) ? nullptr : value;
}

constexpr Qt::GlobalColor stockBrushes[] = {Qt::white, Qt::lightGray, Qt::gray, Qt::darkGray, Qt::black};
static_assert(std::size(stockBrushes) == NULL_BRUSH);

} // namespace

QFont CDC_X::SelectObject(CFont_X* font)
{
    const auto* const value = reinterpret_cast<const QFont*>(font);
    return SelectObject(value ? *value : QFont(this->font()));
}

QFont CDC_X::SelectObject(const QFont& font)
{
    const QFont old = this->font();
    setFont(font);
    return old;
}

QPen CDC_X::SelectObject(const QPen& pen)
{
    const QPen old = this->pen();
    setPen(pen);
    return old;
}

QBrush CDC_X::SelectObject(const QBrush& brush)
{
    const QBrush old = this->brush();
    setBrush(brush);
    return old;
}

CGdiObject_X* CDC_X::SelectObject(CPen_X* pen)
{
    if (const QPen* const value = selectable<QPen>(pen))
        setPen(*value);
    return handOut(&this->pen());
}

CGdiObject_X* CDC_X::SelectObject(CBrush_X* brush)
{
    if (const QBrush* const value = selectable<QBrush>(brush))
        setBrush(*value);
    return handOut(&this->brush());
}

CGdiObject_X* CDC_X::SelectObject(CGdiObject_X* object)
{
    if (auto* const pen = qobject_cast<CPen_X*>(object))
        return SelectObject(pen);
    if (auto* const brush = qobject_cast<CBrush_X*>(object))
        return SelectObject(brush);
    if (auto* const region = qobject_cast<CRgn_X*>(object))
        SelectObject(region);
    return nullptr;
}

CGdiObject_X* CDC_X::handOut(const void* slot)
{
    if (!m_slots.contains(slot))
        m_slots.append(slot);
    return xe::wrapPainterSlot(slot);
}

void CDC_X::takeBack(const void* slot)
{
    const auto known = std::find(m_slots.begin(), m_slots.end(), slot);
    if (known == m_slots.end())
        return;
    m_slots.erase(known);
    xe::forgetPainterSlot(slot);
}

int CDC_X::SelectObject(CRgn_X* region) { return SelectClipRgn(region, Qt::ReplaceClip); }

CGdiObject_X* CDC_X::SelectStockObject(int index)
{
    if (index >= WHITE_BRUSH && index <= BLACK_BRUSH)
        setBrush(stockBrushes[index]);
    else if (index == WHITE_PEN || index == BLACK_PEN)
        setPen(index == WHITE_PEN ? Qt::white : Qt::black);
    return nullptr;
}

// The palette may be the working palette itself: a host hands back what an earlier call gave.
CPalette_X* CDC_X::SelectPalette(CPalette_X* palette, BOOL)
{
    constexpr tagPALETTEENTRY white{0xFF, 0xFF, 0xFF, 0};
    m_palette.m_entries = palette ? palette->m_entries : xe::defaultPalette();
    while (m_palette.GetEntryCount() < xe::paletteSize)
        m_palette.m_entries.push_back(white);
    return &m_palette;
}
