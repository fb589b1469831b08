#include "xeafxframe.h"

IMPLEMENT_DYNCREATE_X(CMiniFrameWnd_X, CFrameWnd_X)
IMPLEMENT_DYNCREATE_X(CMiniDockFrameWnd_X, CMiniFrameWnd_X)

int CMiniFrameWnd_X::Create(const wchar_t* className, const wchar_t* title, unsigned style, const tagRECT& rect,
                            CWnd_X* parent, ...)
{
    return CreateEx(0, className, title, style, rect, parent);
}

int CMiniFrameWnd_X::CreateEx(unsigned exStyle, const wchar_t*, const wchar_t*, unsigned, const tagRECT& rect,
                              CWnd_X* parent, ...)
{
    return parent ? CWnd_X::Create(exStyle, rect, parent->GetSafeHwnd()) : 0;
}
