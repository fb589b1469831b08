// What the mouse does after a press: moves, releases, double clicks, the right button, the timer of a selection.

#include "XeGridCtrl.h"
#include "geometry/rectangle.h"
#include "grid/griddividers.h"
#include "grid/gridfocus.h"
#include "grid/gridinput.h"

#include <QApplication>
#include <QPointer>

namespace {

constexpr UINT_PTR timerId = 513;
constexpr UINT allButtons = MK_LBUTTON | MK_RBUTTON | MK_MBUTTON;

bool isFarFromPress(const CGridCtrl_X& grid, const CPoint& point)
{
    const QPoint way = xe::toQPoint(point) - xe::toQPoint(grid.m_LeftClickDownPoint);
    return way.manhattanLength() >= QApplication::startDragDistance();
}

void dragSelection(CGridCtrl_X& grid, const CPoint& point)
{
    const CCellID_X cell = grid.GetCellFromPt(point, TRUE);
    if (!grid.IsValid(cell))
        return;
    if (cell == grid.m_idCurrentCell) {
        grid.m_LastMousePoint = point;
        return;
    }
    const bool selectsLines = grid.m_MouseMode != CGridCtrl_X::MOUSE_SELECT_CELLS;
    const bool isHeading = grid.m_bListMode && cell.row < grid.m_nFixedRows;
    grid.OnSelecting(cell);
    if (!selectsLines && grid.IsCellFixed(cell.row, cell.col))
        return;
    // The rows are selected already, but for the first when the focus comes there from its heading.
    if (xe::moveFocus(grid, cell, xe::RowSelection::Stays) && isHeading)
        grid.OnSelecting(grid.m_idCurrentCell);
}

void dragTo(CGridCtrl_X& grid, const CPoint& point)
{
    const bool isTracked =
        grid.IsValid(grid.m_LeftClickDownCell) && grid.m_MouseMode <= CGridCtrl_X::MOUSE_PREPARE_DRAG;
    switch (isTracked ? grid.m_MouseMode : CGridCtrl_X::MOUSE_NOTHING) {
    case CGridCtrl_X::MOUSE_SELECT_COL:
    case CGridCtrl_X::MOUSE_SELECT_ROW:
    case CGridCtrl_X::MOUSE_SELECT_CELLS:
        dragSelection(grid, point);
        break;
    case CGridCtrl_X::MOUSE_SIZING_ROW:
        xe::dragDivider(xe::Divider::ofRows(grid), point);
        break;
    case CGridCtrl_X::MOUSE_SIZING_COL:
        xe::dragDivider(xe::Divider::ofColumns(grid), point);
        break;
    case CGridCtrl_X::MOUSE_PREPARE_EDIT:
        if (!isFarFromPress(grid, point)) // the hand shakes
            break;
        Q_FALLTHROUGH();
    case CGridCtrl_X::MOUSE_PREPARE_DRAG:
        grid.m_MouseMode = CGridCtrl_X::MOUSE_PREPARE_DRAG;
        grid.OnBeginDrag();
        break;
    default:
        grid.m_LastMousePoint = point;
    }
}

void enterMode(CGridCtrl_X& grid, int mode, Qt::CursorShape cursor)
{
    if (grid.m_MouseMode == mode)
        return;
    grid.m_MouseMode = mode;
    grid.SetCursor(cursor);
}

void lookForDivider(CGridCtrl_X& grid, CPoint point)
{
    if (grid.m_bAllowColumnResize && grid.MouseOverColumnResizeArea(point))
        enterMode(grid, CGridCtrl_X::MOUSE_OVER_COL_DIVIDE, Qt::SizeHorCursor);
    else if (grid.m_bAllowRowResize && grid.MouseOverRowResizeArea(point))
        enterMode(grid, CGridCtrl_X::MOUSE_OVER_ROW_DIVIDE, Qt::SizeVerCursor);
    else
        enterMode(grid, CGridCtrl_X::MOUSE_NOTHING, Qt::ArrowCursor);
}

bool hasOpenEditor(const CGridCtrl_X& grid)
{
    const QWidget* const focus = QApplication::focusWidget();
    return grid.IsItemEditing(grid.m_idCurrentCell.row, grid.m_idCurrentCell.col)
           || (focus && focus != grid.GetSafeHwnd() && grid.GetSafeHwnd()->isAncestorOf(focus));
}

void showTip(CGridCtrl_X& grid, const CCellID_X& id)
{
    CGridCellBase_X* const cell = grid.cellAt(id.row, id.col);
    if (!cell || cell->IsEditing() || hasOpenEditor(grid))
        return;
    const wchar_t* const text = cell->GetTipText();
    CRect place;
    if (!text || !*text || !grid.GetCellRect(id, &place))
        return;
    CRect textPlace = place;
    if (!cell->GetTipTextRect(&textPlace))
        return;
    grid.m_TitleTip.m_crBackDefault = grid.m_crTextBkColour;
    grid.m_TitleTip.Show(textPlace, text, 0, &place, reinterpret_cast<const CFont_X*>(cell->GetFont()),
                         grid.m_crTTipTextClr, grid.m_crTTipBackClr);
}

} // namespace

// --------------------------------------------------------------------------------------------------------------- moves

void CGridCtrl_X::OnMouseMove(UINT flags, CPoint point)
{
    CRect client;
    GetClientRect(&client);
    if (!IsWindowEnabled() || (!client.PtInRect(point) && m_MouseMode != MOUSE_DRAGGING))
        return;
    if (flags & MK_LBUTTON && m_MouseMode != MOUSE_NOTHING) {
        dragTo(*this, point);
        return;
    }
    if (flags & allButtons && m_MouseMode != MOUSE_NOTHING)
        return;
    lookForDivider(*this, point);
    const CCellID_X id = GetCellFromPt(point, TRUE);
    const QPointer<CGridCtrl_X> living(this);
    if (CGridCellBase_X* const cell = cellAt(id.row, id.col))
        cell->OnMouseOver();
    if (!living || !GetSafeHwnd())
        return;
    if (m_bTitleTips && m_MouseMode == MOUSE_NOTHING && !(flags & allButtons))
        showTip(*this, id);
    m_LastMousePoint = point;
}

// ------------------------------------------------------------------------------------------------------------- release

namespace {

// The steps of a release; each tells whether the next may follow.
class Release
{
public:
    Release(CGridCtrl_X& grid, const CPoint& point) : m_grid(&grid), m_point(point) {}

    bool finish();
    void end();

private:
    bool finishSizing(const xe::Divider& divider);
    bool click();
    bool clickCell(const CCellID_X& id);

    QPointer<CGridCtrl_X> m_grid;
    const CPoint m_point;
};

bool Release::finish()
{
    CGridCtrl_X& grid = *m_grid;
    const CCellID_X focus = grid.m_idCurrentCell;
    switch (grid.m_MouseMode) {
    case CGridCtrl_X::MOUSE_PREPARE_EDIT:
        grid.OnEditCell(focus.row, focus.col, grid.GetPointClicked(focus.row, focus.col, m_point), 1);
        return m_grid;
    case CGridCtrl_X::MOUSE_SIZING_COL:
        return xe::finishSizing(xe::Divider::ofColumns(grid), m_point);
    case CGridCtrl_X::MOUSE_SIZING_ROW:
        return xe::finishSizing(xe::Divider::ofRows(grid), m_point);
    case CGridCtrl_X::MOUSE_PREPARE_DRAG:
        if (!click())
            return false;
        grid.ResetSelectedRange();
        return m_grid;
    default:
        return click();
    }
}

bool Release::click()
{
    const CCellID_X focus = m_grid->m_idCurrentCell;
    const CCellID_X pressed = m_grid->m_LeftClickDownCell;
    if (!clickCell(focus))
        return false;
    if (pressed != focus && !clickCell(pressed))
        return false;
    m_grid->SendMessageToParent(m_grid->m_LeftClickDownCell.row, m_grid->m_LeftClickDownCell.col,
                                static_cast<int>(NM_CLICK));
    return m_grid;
}

bool Release::clickCell(const CCellID_X& id)
{
    if (CGridCellBase_X* const cell = m_grid->cellAt(id.row, id.col))
        cell->OnClick(m_grid->GetPointClicked(id.row, id.col, m_point));
    return m_grid;
}

void Release::end()
{
    const CCellID_X clicked = m_grid->m_LeftClickDownCell;
    QWidget* const widget = m_grid->GetSafeHwnd();
    if (!widget)
        return;
    if (m_grid->IsValid(clicked) && !m_grid->IsCellFixed(clicked.row, clicked.col))
        m_grid->m_MouseMode = CGridCtrl_X::MOUSE_NOTHING;
    m_grid->SetCursor(Qt::ArrowCursor);
    if (QWidget* const parent = m_grid->IsValid(clicked) ? GetParent_X(widget) : nullptr) {
        const auto address = reinterpret_cast<quintptr>(widget);
        PostMessage_X(parent, WM_COMMAND, address & 0xFFFF, static_cast<LPARAM>(address));
    }
}

} // namespace

void CGridCtrl_X::OnLButtonUp(UINT flags, CPoint point)
{
    if (!IsWindowEnabled())
        return;
    CWnd_X::OnLButtonUp(flags, point);
    if (!m_bLMouseButtonDown)
        return;
    m_bLMouseButtonDown = FALSE;
    if (GetCapture() == GetSafeHwnd()) {
        ReleaseCapture();
        if (m_nTimerID)
            KillTimer(m_nTimerID);
        m_nTimerID = 0;
    }
    Release release(*this, point);
    if (release.finish())
        release.end();
}

// ------------------------------------------------------------------------------------------ double click, right button

void CGridCtrl_X::OnLButtonDblClk(UINT, CPoint point)
{
    m_TitleTip.Hide();
    const CCellID_X id = GetCellFromPt(point, TRUE);
    if (!IsWindowEnabled() || !IsValid(id))
        return;
    const QPointer<CGridCtrl_X> living(this);
    const CPoint inCell = GetPointClicked(id.row, id.col, point);
    const xe::Divider columns = xe::Divider::ofColumns(*this);
    const xe::Divider rows = xe::Divider::ofRows(*this);
    // The press before has made of a pointer over a divider one that drags it.
    if (const xe::Divider* const divider = xe::dividerOf(columns, rows, m_MouseMode))
        xe::autoSizeLine(*divider, id, point);
    else if (!xe::isIdle(*this))
        return;
    else if (!IsCellFixed(id.row, id.col) && (m_bListMode || IsValid(m_LeftClickDownCell)))
        OnEditCell(id.row, id.col, inCell, 1);
    if (!living)
        return;
    if (CGridCellBase_X* const cell = cellAt(id.row, id.col))
        cell->OnDblClick(inCell);
    if (living)
        SendMessageToParent(id.row, id.col, static_cast<int>(NM_DBLCLK));
}

void CGridCtrl_X::OnRButtonDown(UINT flags, CPoint point)
{
    m_TitleTip.Hide();
    CWnd_X::OnRButtonDown(flags, point);
    m_bRMouseButtonDown = TRUE;
}

void CGridCtrl_X::OnRButtonUp(UINT flags, CPoint point)
{
    CWnd_X::OnRButtonUp(flags, point);
    if (!m_bRMouseButtonDown)
        return;
    m_bRMouseButtonDown = FALSE;
    const QPointer<CGridCtrl_X> living(this);
    EndEditing();
    if (!living)
        return;
    CCellID_X id = GetCellFromPt(point, TRUE);
    if (!IsValid(id))
        id = CCellID_X();
    if (CGridCellBase_X* const cell = cellAt(id.row, id.col))
        cell->OnRClick(GetPointClicked(id.row, id.col, point));
    if (living)
        SendMessageToParent(id.row, id.col, static_cast<int>(NM_RCLICK));
}

// ------------------------------------------------------------------------------------------------------ timer, cursor

namespace {

// A step of the timer: a key moves on, and what lies at the edge is selected.
bool stepTo(QPointer<CGridCtrl_X>& grid, int key, const CPoint& edge)
{
    XeWinMsgEvent press(WM_KEYDOWN, static_cast<WPARAM>(key), 0);
    grid->SendEvent(&press);
    if (grid && grid->GetSafeHwnd())
        grid->OnSelecting(grid->GetCellFromPt(edge, TRUE));
    return grid && grid->GetSafeHwnd();
}

} // namespace

void CGridCtrl_X::OnTimer(UINT_PTR id)
{
    if (id != timerId) {
        CWnd_X::OnTimer(id);
        return;
    }
    if (GetCapture() != GetSafeHwnd()) { // the release was lost
        KillTimer(id);
        m_nTimerID = 0;
        return;
    }
    CPoint pointer;
    GetCursorPos_X(&pointer);
    ScreenToClient(&pointer);
    CRect client;
    GetClientRect(&client);
    const int x = qBound<int>(client.left, pointer.x, client.right);
    const int y = qBound<int>(client.top, pointer.y, client.bottom);
    QPointer<CGridCtrl_X> living(this);
    bool goesOn = true;
    if (pointer.y > client.bottom)
        goesOn = stepTo(living, VK_DOWN, {x, client.bottom});
    else if (pointer.y < GetFixedRowHeight())
        goesOn = stepTo(living, VK_UP, {x, GetFixedRowHeight() + 1});
    if (!goesOn)
        return;
    if (pointer.x > client.right)
        stepTo(living, VK_RIGHT, {client.right, y});
    else if (pointer.x < GetFixedColumnWidth())
        stepTo(living, VK_LEFT, {GetFixedColumnWidth() + 1, y});
}

void CGridCtrl_X::OnCaptureChanged(QWidget* other)
{
    if (other == GetSafeHwnd())
        return;
    if (m_nTimerID)
        KillTimer(m_nTimerID);
    m_nTimerID = 0;
    if (m_MouseMode == MOUSE_DRAGGING)
        m_MouseMode = MOUSE_NOTHING;
}

BOOL CGridCtrl_X::OnSetCursor(QWidget* widget, UINT hitCode, UINT message)
{
    if (widget != GetSafeHwnd())
        return CWnd_X::OnSetCursor(widget, hitCode, message);
    const xe::Divider columns = xe::Divider::ofColumns(*this);
    const xe::Divider rows = xe::Divider::ofRows(*this);
    if (const xe::Divider* const divider = xe::dividerOf(columns, rows, m_MouseMode)) {
        SetCursor(divider->cursor);
        return TRUE;
    }
    if (m_MouseMode == MOUSE_DRAGGING)
        return TRUE;
    CPoint pointer;
    GetCursorPos_X(&pointer);
    ScreenToClient(&pointer);
    const CCellID_X id = GetCellFromPt(pointer, TRUE);
    if (CGridCellBase_X* const cell = cellAt(id.row, id.col))
        return cell->OnSetCursor();
    SetCursor(Qt::ArrowCursor);
    return TRUE;
}

void CGridCtrl_X::OnDragLeave()
{
    const CCellID_X id = m_LastDragOverCell;
    CGridCellBase_X* const cell = cellAt(id.row, id.col);
    if (!cell)
        return;
    cell->SetState(cell->GetState() & ~CGridCellBase_X::DropHilited);
    RedrawCell(id);
}
