// The scroll bars.

#include "XeGridCtrl.h"

#include "grid/gridstate.h"
#include "xesysinfo.h"

#include <QPointer>

#include <algorithm>

int CGridCtrl_X::bAlreadyInsideThisProcedure = FALSE;

namespace {

// Grids whose size has changed while one of them handled such a change.
std::vector<QPointer<CGridCtrl_X>>& waitingGrids()
{
    static std::vector<QPointer<CGridCtrl_X>> grids;
    return grids;
}

struct ActionCode
{
    QAbstractSlider::SliderAction action;
    UINT code;
};

constexpr ActionCode actionCodes[] = {
    {QAbstractSlider::SliderSingleStepAdd, SB_LINEDOWN}, {QAbstractSlider::SliderSingleStepSub, SB_LINEUP},
    {QAbstractSlider::SliderPageStepAdd, SB_PAGEDOWN},   {QAbstractSlider::SliderPageStepSub, SB_PAGEUP},
    {QAbstractSlider::SliderToMinimum, SB_TOP},          {QAbstractSlider::SliderToMaximum, SB_BOTTOM},
};

} // namespace

// -------------------------------------------------------------------------------------------------- bars and position

void CGridCtrl_X::connectBar(int bar)
{
    if (QScrollBar* const scrollBar = GetScrollBarCtrl(bar))
        connect(scrollBar, &QAbstractSlider::actionTriggered, this, [=](int action) { takeBarAction(bar, action); });
}

// Qt has moved the slider by its own steps already; the grid moves it by lines instead.
void CGridCtrl_X::takeBarAction(int bar, int action)
{
    QScrollBar* const scrollBar = GetScrollBarCtrl(bar);
    if (m_state->isMovingBar || !scrollBar)
        return;
    UINT code = SB_THUMBTRACK;
    for (const ActionCode& row : actionCodes) {
        if (row.action == action) {
            code = row.code;
            SetScrollPos32(bar, scrollBar->value());
        }
    }
    const auto position = static_cast<UINT>(scrollBar->value());
    bar == SB_HORZ ? OnHScroll(code, position, scrollBar) : OnVScroll(code, position, scrollBar);
}

int CGridCtrl_X::GetScrollPos32(int bar, int trackPos) const
{
    tagSCROLLINFO info{};
    if (!GetScrollInfo(bar, &info, trackPos ? SIF_TRACKPOS : SIF_POS))
        return 0;
    return trackPos ? info.nTrackPos : info.nPos;
}

int CGridCtrl_X::SetScrollPos32(int bar, int pos, int redraw)
{
    tagSCROLLINFO info{};
    info.fMask = SIF_POS;
    info.nPos = pos;
    const bool wasMoving = std::exchange(m_state->isMovingBar, true);
    const int result = SetScrollInfo(bar, &info, redraw);
    m_state->isMovingBar = wasMoving;
    return result;
}

void CGridCtrl_X::EnableScrollBars(int bar, int enable)
{
    for (const int which : {SB_HORZ, SB_VERT}) {
        const int bit = which == SB_HORZ ? 1 : 2;
        if (bar != which && bar != SB_BOTH)
            continue;
        if (IsScrollBarEnabled(which) != (enable != 0))
            EnableScrollBarCtrl(which, enable != 0);
        m_nBarState = enable ? m_nBarState | bit : m_nBarState & ~bit;
    }
}

void CGridCtrl_X::ResetScrollBars()
{
    m_state->rows.reset();
    m_state->columns.reset();
    resetBars();
}

void CGridCtrl_X::resetBars()
{
    QWidget* const widget = GetSafeHwnd();
    if (!m_bAllowDraw || !widget || m_state->isDestroyed)
        return;
    CRect client;
    GetClientRect(&client);
    if (client.left == client.right || client.top == client.bottom)
        return;
    if (client.left > client.right || client.top > client.bottom) {
        EnableScrollBars(SB_BOTH, FALSE);
        m_nVScrollMax = m_nHScrollMax = 0;
        return;
    }
    const int thickness = GetSystemMetrics_X(SM_CXVSCROLL);
    const int scrolledWidth = GetVirtualWidth() - GetFixedColumnWidth();
    const int scrolledHeight = GetVirtualHeight() - GetFixedRowHeight();
    int width = widget->width() - GetFixedColumnWidth();
    int height = widget->height() - GetFixedRowHeight();
    bool needsHorizontal = false;
    bool needsVertical = false;
    for (int pass = 0; pass < 2; ++pass) { // a bar takes room from the other direction
        if (!needsVertical && scrolledHeight > height) {
            needsVertical = true;
            width -= thickness;
        }
        if (!needsHorizontal && scrolledWidth > width) {
            needsHorizontal = true;
            height -= thickness;
        }
    }
    m_nHScrollMax = needsHorizontal ? scrolledWidth - width - 1 : 0;
    m_nVScrollMax = needsVertical ? scrolledHeight - height - 1 : 0;
    EnableScrollBars(SB_HORZ, needsHorizontal);
    EnableScrollBars(SB_VERT, needsVertical);
    setBarRange(SB_HORZ, width, m_nHScrollMax);
    setBarRange(SB_VERT, height, m_nVScrollMax);
    Invalidate();
}

void CGridCtrl_X::setBarRange(int bar, int page, int maximum)
{
    tagSCROLLINFO info{};
    info.fMask = SIF_RANGE | SIF_PAGE;
    info.nPage = static_cast<UINT>(std::max(page, 0));
    info.nMax = std::max(maximum, 0);
    const bool wasMoving = std::exchange(m_state->isMovingBar, true);
    SetScrollInfo(bar, &info);
    m_state->isMovingBar = wasMoving;
}

// ---------------------------------------------------------------------------------------------------------- scrolling

void CGridCtrl_X::OnHScroll(UINT code, UINT, QAbstractSlider*) { scroll(SB_HORZ, code); }
void CGridCtrl_X::OnVScroll(UINT code, UINT, QAbstractSlider*) { scroll(SB_VERT, code); }

void CGridCtrl_X::scroll(int bar, UINT code)
{
    const QPointer<CGridCtrl_X> living(this);
    EndEditing();
    if (!living)
        return;
    m_TitleTip.Hide();
    const int position = GetScrollPos32(bar);
    const int target = scrollTarget(bar, code, position);
    if (target != position)
        SetScrollPos32(bar, target);
    Invalidate();
}

int CGridCtrl_X::scrollTarget(int bar, UINT code, int position) const
{
    CRect client;
    GetClientRect(&client);
    const xe::GridLines& lines = linesOf(bar);
    const int fixed = bar == SB_HORZ ? m_nFixedCols : m_nFixedRows;
    const int maximum = bar == SB_HORZ ? m_nHScrollMax : m_nVScrollMax;
    const CCellID_X first = GetTopleftNonFixedCell();
    int line = bar == SB_HORZ ? first.col : first.row;
    const int page = std::max((bar == SB_HORZ ? client.right : client.bottom) - lines.before(fixed), 0);
    switch (code) {
    case SB_LINEUP:
        if (position <= 0 || line <= fixed)
            return position;
        for (--line; line > fixed && lines.size(line) == 0;)
            --line;
        return std::max(position - lines.size(line), 0);
    case SB_LINEDOWN:
        if (position >= maximum)
            return position;
        while (line < lines.count() - 1 && lines.size(line) == 0)
            ++line;
        return static_cast<int>(std::min<long long>(static_cast<long long>(position) + lines.size(line), maximum));
    case SB_PAGEUP:
        return std::max(position - page, 0);
    case SB_PAGEDOWN:
        return static_cast<int>(std::min<long long>(static_cast<long long>(position) + page, maximum));
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
        return GetScrollPos32(bar, TRUE);
    case SB_TOP:
        return 0;
    case SB_BOTTOM:
        return maximum;
    default:
        return position;
    }
}

BOOL CGridCtrl_X::OnMouseWheel(UINT flags, short delta, CPoint point)
{
    const QPointer<CGridCtrl_X> living(this);
    if (!IsWindowEnabled())
        return FALSE;
    if (QScrollBar* const bar = GetScrollBarCtrl(SB_VERT))
        OnVScroll(delta < 0 ? SB_LINEDOWN : SB_LINEUP, 0, bar);
    return living ? CWnd_X::OnMouseWheel(flags, delta, point) : FALSE;
}

// Ending an editor and moving the bars may change the size of other grids, of this one too: they wait for the end.
void CGridCtrl_X::OnSize(UINT type, int width, int height)
{
    if (!GetSafeHwnd())
        return;
    if (bAlreadyInsideThisProcedure) {
        waitingGrids().emplace_back(this);
        CWnd_X::OnSize(type, width, height);
        return;
    }
    const QPointer<CGridCtrl_X> living(this);
    bAlreadyInsideThisProcedure = TRUE;
    m_TitleTip.Hide();
    EndEditing();
    if (living) {
        CWnd_X::OnSize(type, width, height);
        resetBars();
    }
    bAlreadyInsideThisProcedure = FALSE;
    for (const QPointer<CGridCtrl_X>& grid : std::exchange(waitingGrids(), {})) {
        if (grid)
            grid->resetBars();
    }
}

// ------------------------------------------------------------------------------------------------------ far scrolling

namespace {

constexpr int mostSteps = 64;

// The lines that can be seen in [first, last], counted no further than one above the most steps.
int stepsBetween(const xe::GridLines& lines, int first, int last)
{
    int steps = 0;
    for (int line = first; line <= last && steps <= mostSteps; ++line)
        steps += lines.size(line) > 0;
    return steps;
}

// The line from which on as many can be seen up to `last` as in [shownFirst, shownLast].
int lineForSameView(const xe::GridLines& lines, int shownFirst, int shownLast, int last)
{
    int count = 0;
    for (int line = shownFirst; line <= shownLast; ++line)
        count += lines.size(line) > 0;
    int line = last + 1;
    while (line > shownFirst && count > 0)
        count -= lines.size(--line) > 0;
    return line;
}

} // namespace

void CGridCtrl_X::EnsureVisible(int row, int col)
{
    if (!IsValid(row, col))
        return;
    if (!scrollToLine(SB_HORZ, col) || !scrollToLine(SB_VERT, row))
        return;
    CRect cell;
    CRect client;
    GetClientRect(&client);
    const CCellID_X first = GetTopleftNonFixedCell();
    const QPointer<CGridCtrl_X> living(this);
    if (GetCellRect(row, col, &cell) && cell.right >= client.right && col > first.col)
        SendMessage(WM_HSCROLL, SB_LINERIGHT);
    if (living && GetCellRect(row, col, &cell) && cell.bottom >= client.bottom && row > first.row)
        SendMessage(WM_VSCROLL, SB_LINEDOWN);
}

bool CGridCtrl_X::scrollToLine(int bar, int line)
{
    if (line < (bar == SB_HORZ ? m_nFixedCols : m_nFixedRows))
        return true;
    const xe::GridLines& lines = linesOf(bar);
    const auto shown = [&](int CCellRange_X::*column, int CCellRange_X::*row) {
        return GetVisibleNonFixedCellRange().*(bar == SB_HORZ ? column : row);
    };
    int first = shown(&CCellRange_X::m_nMinCol, &CCellRange_X::m_nMinRow);
    int last = shown(&CCellRange_X::m_nMaxCol, &CCellRange_X::m_nMaxRow);
    if (stepsBetween(lines, last + 1, line) > mostSteps || stepsBetween(lines, line, first - 1) > mostSteps) {
        const int target = line > last ? lineForSameView(lines, first, last, line) : line;
        SetScrollPos32(bar, GetScrollPos32(bar) + lines.before(target) - lines.before(first));
        first = shown(&CCellRange_X::m_nMinCol, &CCellRange_X::m_nMinRow);
        last = shown(&CCellRange_X::m_nMaxCol, &CCellRange_X::m_nMaxRow);
    }
    const UINT message = bar == SB_HORZ ? WM_HSCROLL : WM_VSCROLL;
    const QPointer<CGridCtrl_X> living(this);
    const int forward = stepsBetween(lines, last + 1, line);
    for (int step = 0; living && step < forward; ++step)
        SendMessage(message, SB_LINEDOWN);
    const int back = living ? stepsBetween(lines, line, first - 1) : 0;
    for (int step = 0; living && step < back; ++step)
        SendMessage(message, SB_LINEUP);
    return living;
}
