#include "partsview.h"

#include "messagelog.h"

#include <QPainter>

#include <algorithm>

namespace {

const QColor leftColour(0x1f, 0x6f, 0xd0);
const QColor rightColour(0xd9, 0x77, 0x06);
const QColor middleColour(0x2e, 0x9e, 0x5b);
constexpr int initialRadius = 24;

} // namespace

CTavoView::CTavoView(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(480, 240);
}

IMPLEMENT_DYNAMIC_X(CPartsView, CWnd_X)

BEGIN_MESSAGE_MAP_X(CPartsView, CWnd_X)
    ON_WM_LBUTTONDOWN_X()
    ON_WM_LBUTTONUP_X()
    ON_WM_LBUTTONDBLCLK_X()
    ON_WM_RBUTTONDOWN_X()
    ON_WM_RBUTTONUP_X()
    ON_WM_RBUTTONDBLCLK_X()
    ON_WM_MBUTTONDOWN_X()
    ON_WM_MBUTTONUP_X()
    ON_WM_MBUTTONDBLCLK_X()
    ON_WM_MOUSEMOVE_X()
    ON_WM_MOUSEWHEEL_X()
    ON_WM_KEYDOWN_X()
    ON_WM_KEYUP_X()
    ON_WM_CHAR_X()
    ON_WM_SYSKEYDOWN_X()
    ON_WM_SYSKEYUP_X()
    ON_WM_SYSCHAR_X()
    ON_WM_TIMER_X()
    ON_WM_SIZE_X()
    ON_WM_PAINT_X()
END_MESSAGE_MAP_X()

CPartsView::CPartsView(MessageLog& log) : m_log(log), m_marker{{240, 240}, initialRadius, leftColour} {}

bool CPartsView::AttachDefault(QWidget* parent) { return Attach(new CTavoView(parent), parent, false); }

int CPartsView::OnCreate(tagCREATESTRUCTW* createStruct)
{
    if (CWnd_X::OnCreate(createStruct))
        return -1;
    GetSafeHwnd()->startTimer(1000);
    return 0;
}

// ------------------------------------------------------------------------------------------------------------- mouse

void CPartsView::OnLButtonDown(UINT flags, CPoint point)
{
    placeMarker(point, leftColour);
    report(mouseLine(WM_LBUTTONDOWN, flags, point));
}

void CPartsView::OnLButtonUp(UINT flags, CPoint point) { report(mouseLine(WM_LBUTTONUP, flags, point)); }

void CPartsView::OnLButtonDblClk(UINT flags, CPoint point)
{
    m_marker.radius = initialRadius;
    report(mouseLine(WM_LBUTTONDBLCLK, flags, point));
}

void CPartsView::OnRButtonDown(UINT flags, CPoint point)
{
    placeMarker(point, rightColour);
    report(mouseLine(WM_RBUTTONDOWN, flags, point));
}

void CPartsView::OnRButtonUp(UINT flags, CPoint point) { report(mouseLine(WM_RBUTTONUP, flags, point)); }

void CPartsView::OnRButtonDblClk(UINT flags, CPoint point) { report(mouseLine(WM_RBUTTONDBLCLK, flags, point)); }

void CPartsView::OnMButtonDown(UINT flags, CPoint point)
{
    placeMarker(point, middleColour);
    report(mouseLine(WM_MBUTTONDOWN, flags, point));
}

void CPartsView::OnMButtonUp(UINT flags, CPoint point) { report(mouseLine(WM_MBUTTONUP, flags, point)); }

void CPartsView::OnMButtonDblClk(UINT flags, CPoint point) { report(mouseLine(WM_MBUTTONDBLCLK, flags, point)); }

void CPartsView::OnMouseMove(UINT flags, CPoint point) { report(mouseLine(WM_MOUSEMOVE, flags, point)); }

BOOL CPartsView::OnMouseWheel(UINT flags, short delta, CPoint point)
{
    m_marker.radius = std::clamp(m_marker.radius + delta / 20, 6, 120);
    report(wheelLine(flags, delta, point));
    return TRUE;
}

// ---------------------------------------------------------------------------------------------------------- keyboard

void CPartsView::OnKeyDown(UINT vk, UINT, UINT modifiers) { report(keyLine(WM_KEYDOWN, vk, modifiers)); }

void CPartsView::OnKeyUp(UINT vk, UINT, UINT modifiers) { report(keyLine(WM_KEYUP, vk, modifiers)); }

void CPartsView::OnChar(UINT character, UINT, UINT modifiers) { report(characterLine(WM_CHAR, character, modifiers)); }

void CPartsView::OnSysKeyDown(UINT vk, UINT, UINT modifiers) { report(keyLine(WM_SYSKEYDOWN, vk, modifiers)); }

void CPartsView::OnSysKeyUp(UINT vk, UINT, UINT modifiers) { report(keyLine(WM_SYSKEYUP, vk, modifiers)); }

void CPartsView::OnSysChar(UINT character, UINT, UINT modifiers)
{
    report(characterLine(WM_SYSCHAR, character, modifiers));
}

// --------------------------------------------------------------------------------------------- timer, size and paint

void CPartsView::OnTimer(UINT_PTR id) { report(timerLine(id)); }

void CPartsView::OnSize(UINT type, int width, int height)
{
    CWnd_X::OnSize(type, width, height);
    report(sizeLine(width, height));
}

void CPartsView::OnPaint()
{
    QPainter painter(GetSafeHwnd());
    const QRect all = GetSafeHwnd()->rect();
    const QRect left = surface();
    paintSurface(painter, left, m_marker);
    paintMessages(painter, all.adjusted(left.width(), 0, 0, 0), m_log);
}

// ------------------------------------------------------------------------------------------------------------ helpers

QRect CPartsView::surface() const
{
    const QRect all = GetSafeHwnd()->rect();
    return {0, 0, all.width() * 9 / 20, all.height()};
}

void CPartsView::placeMarker(CPoint point, const QColor& colour)
{
    const QPoint centre(point.x, point.y);
    if (!surface().contains(centre))
        return;
    m_marker.centre = centre;
    m_marker.colour = colour;
}

void CPartsView::report(const MessageLine& line)
{
    m_log.append(line);
    GetSafeHwnd()->update();
}
