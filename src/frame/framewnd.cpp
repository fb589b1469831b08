#include "xeafxframe.h"

IMPLEMENT_DYNCREATE_X(CFrameWnd_X, CWnd_X)

int CFrameWnd_X::Create(const wchar_t*, const wchar_t*, unsigned style, const tagRECT& rect, CWnd_X* parent, ...)
{
    return parent ? CWnd_X::Create(style, rect, parent->GetSafeHwnd()) : 0;
}
