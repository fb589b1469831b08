#include "messageview.h"

#include "messagepainter.h"
#include "text.h"

#include <xeprocess.h>

namespace {

constexpr UINT_PTR pulseTimer = 1002;
constexpr UINT pulseTime = 1000; // milliseconds

long long keyboardHook(int code, unsigned long vk, long long lParam)
{
    const bool released = lParam & 0x80000000;
    QWidget* const frame = TavoGetMainFrame();
    CWnd_X* const window = CWnd_X::FromHandlePermanent(frame ? frame->findChild<CTavoView*>() : nullptr);
    if (auto* const view = qobject_cast<CMessageView*>(window); view && !released)
        view->CountKey();
    return CallNextHookEx_X(nullptr, code, vk, lParam);
}

} // namespace

CTavoView::CTavoView(QWidget* parent) : QWidget(parent, Qt::Window)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    resize(640, 480);
}

IMPLEMENT_DYNAMIC_X(CMessageView, CWnd_X)

BEGIN_MESSAGE_MAP_X(CMessageView, CWnd_X)
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
    ON_WM_DESTROY_X()
END_MESSAGE_MAP_X()

bool CMessageView::AttachDefault(QWidget* parent) { return Attach(new CTavoView(parent), parent, false); }

int CMessageView::OnCreate(tagCREATESTRUCTW* createStruct)
{
    if (CWnd_X::OnCreate(createStruct))
        return -1;
    SetWindowText(loadText(IDS_MESSAGES));
    SetTimer(pulseTimer, pulseTime);
    m_hook = SetWindowsHookEx_X(WH_KEYBOARD, keyboardHook);
    return 0;
}

void CMessageView::OnDestroy()
{
    UnhookWindowsHookEx_X(m_hook);
    CWnd_X::OnDestroy();
}

void CMessageView::Open(CWnd_X* frame)
{
    if (GetSafeHwnd() || Create(frame->GetSafeHwnd()))
        ShowWindow(SW_SHOW);
}

void CMessageView::Show(const MessageLine& line)
{
    if (GetSafeHwnd())
        report(line);
}

void CMessageView::CountKey()
{
    ++m_keys;
    GetSafeHwnd()->update();
}

// ------------------------------------------------------------------------------------------------------------- mouse

void CMessageView::OnLButtonDown(UINT flags, CPoint point) { report(mouseLine(WM_LBUTTONDOWN, flags, point)); }

void CMessageView::OnLButtonUp(UINT flags, CPoint point) { report(mouseLine(WM_LBUTTONUP, flags, point)); }

void CMessageView::OnLButtonDblClk(UINT flags, CPoint point) { report(mouseLine(WM_LBUTTONDBLCLK, flags, point)); }

void CMessageView::OnRButtonDown(UINT flags, CPoint point) { report(mouseLine(WM_RBUTTONDOWN, flags, point)); }

void CMessageView::OnRButtonUp(UINT flags, CPoint point) { report(mouseLine(WM_RBUTTONUP, flags, point)); }

void CMessageView::OnRButtonDblClk(UINT flags, CPoint point) { report(mouseLine(WM_RBUTTONDBLCLK, flags, point)); }

void CMessageView::OnMButtonDown(UINT flags, CPoint point) { report(mouseLine(WM_MBUTTONDOWN, flags, point)); }

void CMessageView::OnMButtonUp(UINT flags, CPoint point) { report(mouseLine(WM_MBUTTONUP, flags, point)); }

void CMessageView::OnMButtonDblClk(UINT flags, CPoint point) { report(mouseLine(WM_MBUTTONDBLCLK, flags, point)); }

void CMessageView::OnMouseMove(UINT flags, CPoint point) { report(mouseLine(WM_MOUSEMOVE, flags, point)); }

BOOL CMessageView::OnMouseWheel(UINT flags, short delta, CPoint point)
{
    report(wheelLine(flags, delta, point));
    return TRUE;
}

// ---------------------------------------------------------------------------------------------------------- keyboard

void CMessageView::OnKeyDown(UINT vk, UINT, UINT modifiers) { report(keyLine(WM_KEYDOWN, vk, modifiers)); }

void CMessageView::OnKeyUp(UINT vk, UINT, UINT modifiers) { report(keyLine(WM_KEYUP, vk, modifiers)); }

void CMessageView::OnChar(UINT character, UINT, UINT modifiers)
{
    report(characterLine(WM_CHAR, character, modifiers));
}

void CMessageView::OnSysKeyDown(UINT vk, UINT, UINT modifiers) { report(keyLine(WM_SYSKEYDOWN, vk, modifiers)); }

void CMessageView::OnSysKeyUp(UINT vk, UINT, UINT modifiers) { report(keyLine(WM_SYSKEYUP, vk, modifiers)); }

void CMessageView::OnSysChar(UINT character, UINT, UINT modifiers)
{
    report(characterLine(WM_SYSCHAR, character, modifiers));
}

// --------------------------------------------------------------------------------------------- timer, size and paint

void CMessageView::OnTimer(UINT_PTR id) { report(timerLine(id)); }

void CMessageView::OnSize(UINT type, int width, int height)
{
    CWnd_X::OnSize(type, width, height);
    report(sizeLine(width, height));
}

void CMessageView::OnPaint()
{
    CRect client;
    GetClientRect(client);
    CClientDC_X dc(this);
    paintMessages(dc, client, m_log, formatText(loadText(IDS_RECEIVED), m_log.total(), m_keys));
}

void CMessageView::report(const MessageLine& line)
{
    m_log.append(line);
    GetSafeHwnd()->update();
}
