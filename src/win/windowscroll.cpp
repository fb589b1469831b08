#include "win/columns.h"
#include "win/going.h"
#include "win/menubar.h"
#include "xeafxwin.h"
#include "xesysinfo.h"

#include <QMenuBar>

namespace {

bool names(UINT bar, int which) { return bar == SB_BOTH || bar == static_cast<UINT>(which); }

int thickness() { return GetSystemMetrics_X(SM_CXVSCROLL); }

} // namespace

QScrollBar* CWnd_X::GetScrollBarCtrl(int bar) const { return bar ? m_verticalBar : m_horizontalBar; }

BOOL CWnd_X::IsScrollBarEnabled(int bar) const
{
    const QScrollBar* const scrollBar = GetScrollBarCtrl(bar);
    return scrollBar && !scrollBar->isHidden();
}

void CWnd_X::ShowScrollBar(UINT bar, BOOL show)
{
    QWidget* const widget = GetSafeHwnd();
    if (!widget || xe::makesColumns(*widget))
        return;
    const auto showOrHide = [=](QPointer<QScrollBar>& scrollBar, Qt::Orientation orientation, const QRect& place) {
        if (!scrollBar && show && !xe::isGoing(*widget))
            scrollBar = new QScrollBar(orientation, widget);
        if (!scrollBar)
            return;
        if (show)
            scrollBar->setGeometry(place);
        scrollBar->setVisible(show);
    };
    if (names(bar, SB_HORZ))
        showOrHide(m_horizontalBar, Qt::Horizontal, {0, widget->height() - thickness(), widget->width(), thickness()});
    if (names(bar, SB_VERT))
        showOrHide(m_verticalBar, Qt::Vertical, {widget->width() - thickness(), 0, thickness(), widget->height()});
    RecalcLayout();
}

void CWnd_X::RecalcLayout()
{
    const QWidget* const widget = GetSafeHwnd();
    if (!widget)
        return;
    const bool horizontal = IsScrollBarEnabled(SB_HORZ);
    const bool vertical = IsScrollBarEnabled(SB_VERT);
    const int width = widget->width();
    const int height = widget->height();
    if (m_menuBar && !m_menuBar->isHidden())
        xe::placeMenuBar(*m_menuBar, width);
    const int corner = horizontal && vertical ? thickness() : 0;
    if (horizontal)
        GetScrollBarCtrl(SB_HORZ)->setGeometry(0, height - thickness(), width - corner, thickness());
    if (vertical)
        GetScrollBarCtrl(SB_VERT)->setGeometry(width - thickness(), 0, thickness(), height - corner);
}

BOOL CWnd_X::EnableScrollBar(int bar, UINT arrows)
{
    if (!GetSafeHwnd())
        return FALSE;
    ShowScrollBar(static_cast<UINT>(bar), arrows == ESB_ENABLE_BOTH);
    return TRUE;
}

int CWnd_X::GetScrollPos(int bar) const
{
    const QScrollBar* const scrollBar = GetScrollBarCtrl(bar);
    return scrollBar ? scrollBar->value() : 0;
}

int CWnd_X::SetScrollPos(int bar, int position, BOOL)
{
    QScrollBar* const scrollBar = GetScrollBarCtrl(bar);
    if (!scrollBar)
        return 0;
    const int before = scrollBar->value();
    scrollBar->setValue(position);
    return before;
}

void CWnd_X::GetScrollRange(int bar, int* minimum, int* maximum) const
{
    const QScrollBar* const scrollBar = GetScrollBarCtrl(bar);
    if (scrollBar && minimum)
        *minimum = scrollBar->minimum();
    if (scrollBar && maximum)
        *maximum = scrollBar->maximum();
}

void CWnd_X::SetScrollRange(int bar, int minimum, int maximum, BOOL)
{
    QScrollBar* const scrollBar = GetScrollBarCtrl(bar);
    if (!scrollBar)
        return;
    scrollBar->setMinimum(minimum);
    scrollBar->setMaximum(maximum);
}

int CWnd_X::GetScrollLimit(int bar) const
{
    const QScrollBar* const scrollBar = GetScrollBarCtrl(bar);
    return scrollBar ? scrollBar->maximum() - 1 : 0;
}

BOOL CWnd_X::SetScrollInfo(int bar, tagSCROLLINFO* info, BOOL)
{
    QScrollBar* const scrollBar = GetScrollBarCtrl(bar);
    if (!scrollBar || !info)
        return FALSE;
    if (info->fMask & SIF_RANGE) {
        scrollBar->setMinimum(info->nMin);
        scrollBar->setMaximum(info->nMax);
    }
    if (info->fMask & SIF_PAGE)
        scrollBar->setPageStep(static_cast<int>(info->nPage));
    if (info->fMask & SIF_POS)
        scrollBar->setSliderPosition(info->nPos);
    if (info->fMask & SIF_TRACKPOS)
        scrollBar->setSliderPosition(info->nTrackPos);
    return (info->fMask & SIF_ALL) != 0;
}

BOOL CWnd_X::GetScrollInfo(int bar, tagSCROLLINFO* info, UINT mask) const
{
    const QScrollBar* const scrollBar = GetScrollBarCtrl(bar);
    if (!scrollBar || !info)
        return FALSE;
    if (mask & SIF_RANGE) {
        info->nMin = scrollBar->minimum();
        info->nMax = scrollBar->maximum();
    }
    if (mask & SIF_PAGE)
        info->nPage = static_cast<UINT>(scrollBar->pageStep());
    if (mask & SIF_POS)
        info->nPos = scrollBar->sliderPosition();
    if (mask & SIF_TRACKPOS)
        info->nTrackPos = scrollBar->sliderPosition();
    info->fMask = mask;
    return TRUE;
}
