// A device context's colours, modes and saved states.

#include "geometry/colorref.h"
#include "xeafxdc.h"

namespace {

constexpr COLORREF noColor = 0xFFFFFFFF;

} // namespace

QColor CDC_X::colorOf(COLORREF color) { return xe::toQColor(color); }

// ----------------------------------------------------------------------------------------------------------- colours

const tagPALETTEENTRY* CDC_X::paletteEntry(int index) const
{
    const auto& entries = m_palette.m_entries;
    const bool isThere = index >= 0 && index <= 255 && index < m_palette.GetEntryCount();
    return isThere ? &entries.at(index) : nullptr;
}

QColor CDC_X::GetBkColor() const { return background().color(); }

QColor CDC_X::SetBkColor(const QColor& color)
{
    const QColor old = GetBkColor();
    setBackground(QBrush(color));
    return old;
}

QColor CDC_X::SetBkColor(COLORREF color) { return SetBkColor(colorOf(color)); }

QColor CDC_X::SetBkColor(int index)
{
    const tagPALETTEENTRY* const entry = paletteEntry(index);
    return entry ? SetBkColor(QColor(entry->peRed, entry->peGreen, entry->peBlue)) : GetBkColor();
}

QColor CDC_X::GetTextColor() const { return m_crText == noColor ? pen().color() : colorOf(m_crText); }

QColor CDC_X::SetTextColor(COLORREF color)
{
    const QColor old = GetTextColor();
    m_crText = color;
    return old;
}

QColor CDC_X::SetTextColor(const QColor& color) { return SetTextColor(xe::toColorRef(color)); }

QColor CDC_X::SetTextColor(int index)
{
    const tagPALETTEENTRY* const entry = paletteEntry(index);
    return entry ? SetTextColor(QColor(entry->peRed, entry->peGreen, entry->peBlue)) : GetTextColor();
}

// ------------------------------------------------------------------------------------------------- modes, saved states

int CDC_X::GetBkMode() const { return backgroundMode(); }

int CDC_X::SetBkMode(int mode)
{
    const int old = GetBkMode();
    setBackgroundMode(mode == TRANSPARENT ? Qt::TransparentMode : Qt::OpaqueMode);
    return old;
}

int CDC_X::SaveDC()
{
    save();
    return 0;
}

// The state that goes has the pen and the brush in it.
int CDC_X::RestoreDC(int)
{
    if (isActive()) {
        takeBack(&pen());
        takeBack(&brush());
    }
    restore();
    return 1;
}
