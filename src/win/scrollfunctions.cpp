#include "xeafxwin.h"
#include "xewinuser.h"

#include <QScrollBar>

namespace {

// A window without a wrapper gets a temporary one, which has no bars.
QScrollBar* scrollBarOf(HWND window, int bar)
{
    const CWnd_X* const wrapper = CWnd_X::FromHandle(window);
    return wrapper ? wrapper->GetScrollBarCtrl(bar) : nullptr;
}

} // namespace

int GetScrollPos_X(HWND window, int bar)
{
    const QScrollBar* const scrollBar = scrollBarOf(window, bar);
    return scrollBar ? scrollBar->value() : 0;
}

int SetScrollPos_X(HWND window, int bar, int position, BOOL)
{
    QScrollBar* const scrollBar = scrollBarOf(window, bar);
    if (!scrollBar)
        return 0;
    const int before = scrollBar->value();
    scrollBar->setValue(position);
    return before;
}

BOOL GetScrollRange_X(HWND window, int bar, int* minimum, int* maximum)
{
    const QScrollBar* const scrollBar = scrollBarOf(window, bar);
    if (!scrollBar)
        return FALSE;
    if (minimum)
        *minimum = scrollBar->minimum();
    if (maximum)
        *maximum = scrollBar->maximum();
    return TRUE;
}

BOOL SetScrollRange_X(HWND window, int bar, int minimum, int maximum, BOOL)
{
    QScrollBar* const scrollBar = scrollBarOf(window, bar);
    if (!scrollBar)
        return FALSE;
    scrollBar->setMinimum(minimum);
    scrollBar->setMaximum(maximum);
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
