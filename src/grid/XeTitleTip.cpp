#include "XeTitleTip.h"

#include "geometry/colorref.h"
#include "geometry/rectangle.h"
#include "xeafxdc.h"

#include <QFontMetrics>

#include <algorithm>

BEGIN_MESSAGE_MAP_X(CTitleTip_X, CWnd_X)
    ON_WM_PAINT_X()
    ON_WM_MOUSEMOVE_X()
END_MESSAGE_MAP_X()

CTitleTip_X::CTitleTip_X() : CWnd_X(Control()) {}

CTitleTip_X::~CTitleTip_X() = default;

BOOL CTitleTip_X::Create(CWnd_X* parent)
{
    QWidget* const widget = parent ? parent->GetSafeHwnd() : nullptr;
    if (!widget || !CWnd_X::Create(WS_CHILD, widget))
        return FALSE;
    m_pParentWnd = parent;
    GetSafeHwnd()->setFocusPolicy(Qt::NoFocus);
    ShowWindow(SW_HIDE); // else it would come up with its parent
    return TRUE;
}

// ------------------------------------------------------------------------------------------------------ open and close

void CTitleTip_X::Show(CRect rect, const wchar_t* text, int xoffset, tagRECT* hover, const CFont_X* font,
                       COLORREF crText, COLORREF crBack)
{
    if (rect.IsRectEmpty() || !GetSafeHwnd() || !m_pParentWnd || IsWindowVisible())
        return;
    m_crText = crText;
    m_crBack = crBack;
    keepHover(hover ? *hover : rect);
    if (!GetFocus())
        return;

    m_rectTitle = CRect(-1 - xoffset, -1, rect.Width() - xoffset, rect.Height() + 1);
    m_strTitle = CString_X(L" ") + text + L" ";
    const auto* const qtFont = reinterpret_cast<const QFont*>(font);
    m_font = qtFont ? *qtFont : *m_pParentWnd->GetFont();

    CRect place = rect;
    m_pParentWnd->ClientToScreen(&place);
    const int left = place.left + xoffset;
    const int advance = QFontMetrics(m_font).horizontalAdvance(XeQString(text));
    m_rectDisplay = CRect(left, place.bottom, left + advance + 3 + xoffset, place.bottom + place.Height());
    if (m_rectDisplay.right > place.right - xoffset)
        openAt(rect);
}

void CTitleTip_X::keepHover(const tagRECT& hover)
{
    m_rectHover = hover;
    m_rectHover.right += 1;
    m_rectHover.bottom += 1;
    m_pParentWnd->ClientToScreen(&m_rectHover);
    ScreenToClient(&m_rectHover);
}

void CTitleTip_X::openAt(const CRect& place)
{
    m_pParentWnd->ScreenToClient(&m_rectDisplay);
    m_rectDisplay.InflateRect(1, 1);
    keepInside(place);
    CRect hover = m_rectHover;
    ClientToScreen(&hover);
    MoveWindow(&m_rectDisplay);
    ScreenToClient(&hover);
    m_rectHover = hover;
    GetSafeHwnd()->raise();
    ShowWindow(SW_SHOW);
    SetCapture();
    Invalidate();
}

// The tip is a child, so what stands out of the parent's client area would not be seen.
void CTitleTip_X::keepInside(const CRect& place)
{
    CRect client;
    m_pParentWnd->GetClientRect(&client);
    const int beyond = std::min(m_rectDisplay.right - client.right, m_rectDisplay.left);
    if (beyond > 0)
        m_rectDisplay.OffsetRect(-beyond, 0);
    const int above = place.top - m_rectDisplay.Height() + 1;
    if (m_rectDisplay.bottom > client.bottom && above >= 0)
        m_rectDisplay.MoveToY(above);
}

void CTitleTip_X::Hide()
{
    QWidget* const widget = GetSafeHwnd();
    if (!widget)
        return;
    if (GetCapture() == widget)
        ReleaseCapture();
    ShowWindow(SW_HIDE);
}

// ------------------------------------------------------------------------------------------------------------ messages

int CTitleTip_X::PreTranslateMessage(tagMSG* message) { return CWnd_X::PreTranslateMessage(message); }

void CTitleTip_X::OnMouseMove(UINT flags, CPoint point)
{
    if (m_rectHover.PtInRect(point))
        return;
    Hide();
    if (!m_pParentWnd)
        return;
    ClientToScreen(&point);
    m_pParentWnd->ScreenToClient(&point);
    CRect client;
    m_pParentWnd->GetClientRect(&client);
    if (client.PtInRect(point))
        m_pParentWnd->PostMessage(WM_MOUSEMOVE, flags, static_cast<LPARAM>(point.y) << 16 | point.x);
}

void CTitleTip_X::OnPaint()
{
    CClientDC_X dc(this);
    dc.setFont(m_font);
    CRect rect;
    GetClientRect(&rect);
    rect.DeflateRect(1, 1);
    const QRect inset = xe::toQRect(rect);
    dc.save();
    dc.setPen(QColor(100, 100, 100));
    dc.setBrush(xe::toQColor(m_crBack == CLR_DEFAULT ? m_crBackDefault : m_crBack));
    dc.drawRects(&inset, 1);
    dc.restore();
    dc.setPen(m_crText == CLR_DEFAULT ? QColor(Qt::black) : xe::toQColor(m_crText));
    dc.drawText(inset, Qt::AlignCenter, XeQString(m_strTitle));
}
