#include "XeGridCtrl.h"

void CGridCtrl_X::OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers)
{
    CWnd_X::OnKeyDown(vk, repeatCount, modifiers);
}

void CGridCtrl_X::OnSysKeyDown(UINT vk, UINT repeatCount, UINT modifiers)
{
    CWnd_X::OnSysKeyDown(vk, repeatCount, modifiers);
}

void CGridCtrl_X::OnChar(UINT character, UINT repeatCount, UINT modifiers)
{
    CWnd_X::OnChar(character, repeatCount, modifiers);
}

bool CGridCtrl_X::eventFilter(QObject* target, QEvent* event) { return CWnd_X::eventFilter(target, event); }
