#include "ctrl/creation.h"
#include "xerangectrl.h"

IMPLEMENT_DYNCREATE_X(CScrollBar_X, CWnd_X)

bool CScrollBar_X::AttachDefault(QWidget* parent) { return Attach(new QScrollBar(parent), parent, false); }

int CScrollBar_X::Create(DWORD style, const tagRECT& rect, QWidget* parent, UINT)
{
    const auto create = [&] { return CWnd_X::Create(style & ~WS_VSCROLL, rect, parent); };
    return xe::createAndFinish<QScrollBar>(*this, create, [style](QScrollBar& bar) {
        bar.setOrientation(style & SBS_VERT ? Qt::Vertical : Qt::Horizontal);
    });
}

int CScrollBar_X::GetScrollPos() const
{
    const auto* const bar = Imp<QScrollBar>();
    return bar ? bar->sliderPosition() : 0;
}

int CScrollBar_X::SetScrollPos(int position, BOOL)
{
    const int before = GetScrollPos();
    if (auto* const bar = Imp<QScrollBar>())
        bar->setSliderPosition(position);
    return before;
}

void CScrollBar_X::GetScrollRange(int* minimum, int* maximum) const
{
    const auto* const bar = Imp<QScrollBar>();
    if (bar && minimum)
        *minimum = bar->minimum();
    if (bar && maximum)
        *maximum = bar->maximum();
}

void CScrollBar_X::SetScrollRange(int minimum, int maximum, BOOL)
{
    if (auto* const bar = Imp<QScrollBar>())
        bar->setRange(minimum, maximum);
}

void CScrollBar_X::ShowScrollBar(BOOL show)
{
    if (auto* const bar = Imp<QScrollBar>())
        bar->setVisible(show);
}

BOOL CScrollBar_X::EnableScrollBar(UINT arrows)
{
    if (!GetSafeHwnd())
        return FALSE;
    ShowScrollBar(arrows == ESB_ENABLE_BOTH);
    return TRUE;
}
