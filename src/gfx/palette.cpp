#include "xeafxgdi.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <new>

IMPLEMENT_DYNCREATE_X(CPalette_X, CGdiObject_X)

namespace {

constexpr UINT maxEntries = std::numeric_limits<int>::max() / (2 * sizeof(tagPALETTEENTRY));

int distance(const tagPALETTEENTRY& entry, COLORREF color)
{
    const auto channel = [color](int shift) { return static_cast<int>(color >> shift & 0xFF); };
    return std::abs(entry.peRed - channel(0)) + std::abs(entry.peGreen - channel(8))
           + std::abs(entry.peBlue - channel(16));
}

} // namespace

CPalette_X::~CPalette_X() { DeleteObject(); }

BOOL CPalette_X::CreatePalette(const tagLOGPALETTE* palette)
{
    if (!palette)
        return FALSE;
    const int count = palette->palNumEntries;
    const tagPALETTEENTRY* const entries = palette->palPalEntry;
    m_entries.reserve(m_entries.size() + count);
    std::copy_n(entries, count, std::back_inserter(m_entries));
    return TRUE;
}

BOOL CPalette_X::CreateHalftonePalette(CDC_X*) { return FALSE; }

BOOL CPalette_X::ResizePalette(UINT count)
{
    if (count > maxEntries)
        throw std::bad_alloc();
    m_entries.resize(static_cast<int>(count));
    return TRUE;
}

UINT CPalette_X::GetPaletteEntries(UINT start, UINT count, tagPALETTEENTRY* entries) const
{
    const auto size = static_cast<UINT>(m_entries.size());
    return entries && start < size ? std::min(count, size - start) : 0;
}

UINT CPalette_X::SetPaletteEntries(UINT start, UINT count, const tagPALETTEENTRY* entries)
{
    const auto size = static_cast<UINT>(m_entries.size());
    if (!entries || start >= size)
        return 0;
    const UINT copied = count == 0 ? size - start : std::min(count, size - start);
    std::copy_n(entries, copied, m_entries.begin() + static_cast<int>(start));
    return copied;
}

void CPalette_X::AnimatePalette(UINT, UINT, const tagPALETTEENTRY*) {}

UINT CPalette_X::GetNearestPaletteIndex(COLORREF color) const
{
    const auto nearest = std::min_element(m_entries.begin(), m_entries.end(),
                                          [color](const tagPALETTEENTRY& a, const tagPALETTEENTRY& b) {
                                              return distance(a, color) < distance(b, color);
                                          });
    return static_cast<UINT>(nearest - m_entries.begin());
}
