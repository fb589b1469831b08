// The scroll functions on window handles.

#include "xeafxwin.h"
#include "xewinuser.h"

#include <QScrollBar>

namespace {

// The wrapper of a window that has the bar. A window without a wrapper has none.
CWnd_X* windowWithBar(HWND window, int bar)
{
    CWnd_X* const wrapper = CWnd_X::FromHandlePermanent(window);
    return wrapper && wrapper->GetScrollBarCtrl(bar) ? wrapper : nullptr;
}

} // namespace

int GetScrollPos_X(HWND window, int bar)
{
    const CWnd_X* const wrapper = windowWithBar(window, bar);
    return wrapper ? wrapper->GetScrollPos(bar) : 0;
}

int SetScrollPos_X(HWND window, int bar, int position, BOOL redraw)
{
    CWnd_X* const wrapper = windowWithBar(window, bar);
    return wrapper ? wrapper->SetScrollPos(bar, position, redraw) : 0;
}

BOOL GetScrollRange_X(HWND window, int bar, int* minimum, int* maximum)
{
    const CWnd_X* const wrapper = windowWithBar(window, bar);
    if (!wrapper)
        return FALSE;
    wrapper->GetScrollRange(bar, minimum, maximum);
    return TRUE;
}

BOOL SetScrollRange_X(HWND window, int bar, int minimum, int maximum, BOOL redraw)
{
    CWnd_X* const wrapper = windowWithBar(window, bar);
    if (!wrapper)
        return FALSE;
    wrapper->SetScrollRange(bar, minimum, maximum, redraw);
    return TRUE;
}

BOOL EnableScrollBar_X(HWND window, UINT bar, UINT arrows)
{
    CWnd_X* const wrapper = CWnd_X::FromHandle(window);
    if (!wrapper)
        return FALSE;
    wrapper->ShowScrollBar(bar, arrows == ESB_ENABLE_BOTH);
    return TRUE;
}
