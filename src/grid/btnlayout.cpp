// Where the controls of a cell are, and what is at a point.

#include "grid/btnlayout.h"

#include "XeGridBtnCellBase.h"
#include "XeGridCtrl.h"
#include "xeafxdc.h"

#include <QFontMetrics>

#include <algorithm>

namespace {

constexpr unsigned scrollBits = 0xF;

// A control's rectangle or none; a part of a cell in any case.
CRect partOf(const CRect& cell, int left, int right)
{
    return {std::clamp(left, cell.left, std::max(cell.left, cell.right)), cell.top,
            std::clamp(right, cell.left, std::max(cell.left, cell.right)), cell.bottom};
}

bool hasPixel(const CRect& rect, const CPoint& point)
{
    return point.x >= rect.left && point.x <= rect.right && point.y >= rect.top && point.y <= rect.bottom;
}

/// The widths of a cell's controls.
class Layout
{
public:
    Layout(const CGridBtnCellBase_X& cell, int width, int height)
        : m_cell(cell),
          m_count(std::min<int>(cell.GetDrawCtlNbr(), xe::mostControls)),
          m_rest(width)
    {
        findPartner();
        int automatic = 0;
        for (int i = 0; i < m_count; ++i) {
            if (isPartner(i))
                continue;
            if (cell.GetDrawCtlWidth(i) > 0)
                m_rest -= cell.GetDrawCtlWidth(i);
            else
                ++automatic;
        }
        shareOut(automatic, height);
    }

    int width(int i) const { return m_widths[static_cast<std::size_t>(i)]; }
    int rest() const { return m_rest; }
    int partner() const { return m_partner; }
    bool isPartner(int i) const { return i == m_partner; }

private:
    bool isScroll(int i, unsigned bit) const
    {
        const unsigned state = m_cell.GetDrawCtlState(i) & scrollBits;
        return m_cell.GetDrawCtlType(i) == DFC_SCROLL && (bit ? (state & bit) != 0 : state == 0);
    }

    void findPartner()
    {
        for (int i = 0; i + 1 < m_count && m_partner < 0; ++i) {
            if (isScroll(i, DFCS_SCROLLUP) && isScroll(i + 1, DFCS_SCROLLDOWN))
                m_partner = i + 1;
        }
    }

    bool isPush(int i) const
    {
        return m_cell.GetDrawCtlType(i) == DFC_BUTTON && (m_cell.GetDrawCtlState(i) & DFCS_BUTTONPUSH);
    }

    void shareOut(int automatic, int height)
    {
        int share = automatic ? m_rest / automatic : 0;
        for (int i = 0; i < m_count; ++i) {
            int& width = m_widths[static_cast<std::size_t>(i)];
            width = isPartner(i) ? 0 : m_cell.GetDrawCtlWidth(i);
            if (isPartner(i) || width > 0)
                continue;
            const bool isSquare = !isPush(i) && height < share;
            width = isSquare ? height : std::max(share, 0);
            m_rest -= width;
            --automatic;
            if (isSquare && automatic)
                share = m_rest / automatic;
        }
    }

    const CGridBtnCellBase_X& m_cell;
    const int m_count;
    int m_rest;
    int m_partner = -1;
    std::array<int, xe::mostControls> m_widths{};
};

} // namespace

int CGridBtnCellBase_X::CalcDrawCtlRects(CRect* rects, int count, const CRect& cell) const
{
    const int controls = std::min<int>(GetDrawCtlNbr(), xe::mostControls);
    if (!rects || GetDrawCtlNbrMax() > count || controls <= 0)
        return 0;
    const bool hasTextRect = controls < count;
    for (int i = 0; i < controls; ++i) {
        if (GetDrawCtlAlign(i) != CTL_ALIGN_FULLCELL)
            continue;
        std::fill_n(rects, controls, cell);
        if (hasTextRect)
            rects[controls] = CRect(0, 0, 0, 0);
        return 1;
    }

    const Layout layout(*this, cell.Width(), cell.Height());
    int left = cell.left;
    const auto place = [&](CTL_ALIGN align) {
        for (int i = 0; i < controls; ++i) {
            if (layout.isPartner(i) || GetDrawCtlAlign(i) != align)
                continue;
            rects[i] = partOf(cell, left, left + layout.width(i));
            left += layout.width(i);
        }
    };
    place(CTL_ALIGN_LEFT);
    const int margin = static_cast<int>(GetMargin());
    const int textRight = left + std::max(layout.rest(), 0);
    if (hasTextRect)
        rects[controls] = layout.rest() < margin ? CRect(0, 0, 0, 0) : partOf(cell, left + margin, textRight);
    left = textRight;
    place(CTL_ALIGN_RIGHT);
    if (layout.partner() > 0) {
        CRect& upper = rects[layout.partner() - 1];
        CRect& lower = rects[layout.partner()];
        lower = upper;
        upper.bottom = lower.top = upper.top + upper.Height() / 2;
    }
    return 1;
}

// The painting keeps off the sides of the cell by its margin, so a control may be at either of two places.
int CGridBtnCellBase_X::RelPointInCtl(const CPoint& point) const
{
    const CGridCtrl_X* const grid = GetGrid();
    CRect cell;
    if (!grid || !grid->GetCellRect(m_nBtnRow, m_nBtnCol, &cell))
        return -1;
    const CPoint place(cell.left + point.x, cell.top + point.y);
    const int margin = static_cast<int>(GetMargin());
    for (const CRect& area : {cell, CRect(cell.left + margin, cell.top, cell.right - margin, cell.bottom)}) {
        xe::ControlRects rects;
        if (!CalcDrawCtlRects(rects.data(), xe::mostControls, area))
            return -1;
        const auto end = rects.begin() + GetDrawCtlNbr();
        const auto hit = std::find_if(rects.begin(), end, [&](const CRect& rect) { return hasPixel(rect, place); });
        if (hit != end)
            return static_cast<int>(hit - rects.begin());
    }
    return -1;
}

// ------------------------------------------------------------------------------------------------------------ the text

int CGridBtnCellBase_X::GetTextRect(tagRECT* rect)
{
    xe::ControlRects rects;
    if (rect && CalcDrawCtlRects(rects.data(), xe::mostControls, CRect(*rect))) {
        CRect text = rects[static_cast<std::size_t>(GetDrawCtlNbr())];
        const int margin = text.Width() > 0 ? static_cast<int>(GetMargin()) : 0;
        text.left += margin;
        text.right -= margin;
        *rect = text;
    }
    return CGridCellBase_X::GetTextRect(rect);
}

int CGridBtnCellBase_X::HasCellText() const
{
    const CGridCtrl_X* const grid = GetGrid();
    CRect rect;
    if (!grid || !grid->GetCellRect(m_nBtnRow, m_nBtnCol, &rect))
        return 0;
    return const_cast<CGridBtnCellBase_X*>(this)->GetTextRect(&rect) && rect.Width() > 0;
}

int CGridBtnCellBase_X::GetTipTextRect(tagRECT* rect)
{
    if (!rect)
        return 0;
    if (HasCellText())
        return GetTextRect(rect);
    if (GetDrawCtlNbr() <= 0)
        *rect = {0, 0, 0, 0};
    return 1;
}

namespace {

constexpr int longestTip = 1022;

// Without the marks of hot keys: of two ampersands one stays.
void appendPlain(CString_X& to, const wchar_t* text)
{
    for (; *text && to.GetLength() < longestTip; ++text) {
        if (*text == L'&' && !*++text)
            return;
        to += *text;
    }
}

} // namespace

const wchar_t* CGridBtnCellBase_X::GetTipText() const
{
    if (HasCellText())
        return GetText();
    m_strTipText.Empty();
    for (int i = 0; i < GetDrawCtlNbr(); ++i) {
        const wchar_t* const text = GetDrawCtlBtnText(i);
        if (!text || !*text)
            continue;
        if (!m_strTipText.IsEmpty())
            m_strTipText += L' ';
        appendPlain(m_strTipText, text);
    }
    return m_strTipText.GetString();
}

CSize CGridBtnCellBase_X::GetCellExtent()
{
    CSize extent = CGridCellBase_X::GetCellExtent();
    if (GetDrawCtlNbr() <= 0)
        return extent;
    const QFont* const font = GetFont();
    const QFontMetrics metrics(font ? *font : QFont());
    const QRect nothing(QPoint(0, 0), QPoint(-1, -1));
    const int height = extent.cy;
    for (int i = 0; i < GetDrawCtlNbr(); ++i) {
        const wchar_t* const text = GetDrawCtlBtnText(i);
        if (GetDrawCtlWidth(i) > 0)
            extent.cx += GetDrawCtlWidth(i);
        else if (text && *text)
            extent.cx += metrics.boundingRect(nothing, ToQtTextFlag(GetFormat()), XeQString(text)).width();
        else
            extent.cx += height;
    }
    extent.cx += 4 * static_cast<int>(GetMargin());
    return extent;
}
