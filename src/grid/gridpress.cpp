// A press of the left button: it begins an edit, a selection, a drag or a resize.

#include "XeGridCtrl.h"
#include "grid/griddividers.h"
#include "grid/gridfocus.h"
#include "grid/selectionmaps.h"

#include <QGuiApplication>
#include <QPointer>

namespace {

constexpr UINT_PTR timerId = 513;

// The steps of one press. Each tells whether the next may follow: what they call may delete anything.
class Press
{
public:
    Press(CGridCtrl_X& grid, UINT flags, const CPoint& point)
        : m_grid(&grid),
          m_point(point),
          m_hasShift(flags & MK_SHIFT),
          m_hasControl(flags & MK_CONTROL)
    {}

    bool takeFocus();
    bool pressCell();
    bool moveFocus();
    bool resize();
    void select();

private:
    CGridCellBase_X* cell() const { return m_grid->cellAt(clicked().row, clicked().col); }
    CCellID_X& clicked() const { return m_grid->m_LeftClickDownCell; }
    bool isAlive() const { return m_grid && m_grid->GetSafeHwnd(); }
    bool isValid() const { return isAlive() && m_grid->IsValid(clicked()); }
    void takeOutOfSelection();
    bool moveFocusToClicked();

    QPointer<CGridCtrl_X> m_grid;
    const CPoint m_point;
    const bool m_hasShift;
    const bool m_hasControl;
};

// An editor that a change of the focus does not end is ended here.
bool Press::takeFocus()
{
    m_grid->m_TitleTip.Hide();
    m_grid->SetFocus();
    if (isAlive() && m_grid->IsItemEditing(m_grid->m_idCurrentCell.row, m_grid->m_idCurrentCell.col))
        m_grid->EndEditing();
    return isAlive();
}

bool Press::pressCell()
{
    m_grid->m_bLMouseButtonDown = TRUE;
    m_grid->m_LeftClickDownPoint = m_point;
    clicked() = m_grid->GetCellFromPt(m_point, TRUE);
    if (!m_grid->IsValid(clicked()))
        return false;
    const bool extends = m_hasShift && m_grid->IsValid(m_grid->m_idCurrentCell);
    m_grid->m_SelectionStartCell = extends ? m_grid->m_idCurrentCell : clicked();
    if (CGridCellBase_X* const pressed = cell())
        pressed->OnClickDown(m_grid->GetPointClicked(clicked().row, clicked().col, m_point));
    return isValid();
}

bool Press::moveFocus()
{
    if (clicked() == m_grid->m_idCurrentCell) {
        if (m_grid->IsCellEditable(clicked()))
            m_grid->m_MouseMode = CGridCtrl_X::MOUSE_PREPARE_EDIT;
        return false;
    }
    if (m_grid->IsCellSelected(clicked())) {
        if (m_hasControl)
            takeOutOfSelection();
        else if (m_grid->m_bAllowDragAndDrop)
            m_grid->m_MouseMode = CGridCtrl_X::MOUSE_PREPARE_DRAG;
        return !m_hasControl;
    }
    const bool isOverDivider = m_grid->m_MouseMode == CGridCtrl_X::MOUSE_OVER_COL_DIVIDE
                               || m_grid->m_MouseMode == CGridCtrl_X::MOUSE_OVER_ROW_DIVIDE;
    return isOverDivider || moveFocusToClicked();
}

bool Press::moveFocusToClicked()
{
    const CCellID_X target(qMax(clicked().row, m_grid->m_nFixedRows), qMax(clicked().col, m_grid->m_nFixedCols));
    m_grid->SetFocusCell(-1, -1);
    if (!isAlive() || m_grid->m_nRows <= m_grid->m_nFixedRows || m_grid->m_nCols <= m_grid->m_nFixedCols)
        return isValid();
    // With Ctrl the focus goes where rows are added, and must not select on its own.
    xe::moveFocus(*m_grid, target, m_hasControl ? xe::RowSelection::Stays : xe::RowSelection::Follows);
    return isValid();
}

void Press::takeOutOfSelection()
{
    const int first = m_grid->m_bListMode ? m_grid->m_nFixedCols : clicked().col;
    const int last = m_grid->m_bListMode ? m_grid->m_nCols - 1 : clicked().col;
    for (int col = first; col <= last; ++col) {
        const UINT state = m_grid->GetItemState(clicked().row, col);
        m_grid->SetItemState(clicked().row, col, state & ~CGridCellBase_X::Selected);
    }
    m_grid->Refresh();
    if (xe::moveFocus(*m_grid, clicked(), xe::RowSelection::Stays))
        m_grid->RedrawCell(clicked());
}

// Whether a divider has been pressed.
bool Press::resize()
{
    const xe::Divider columns = xe::Divider::ofColumns(*m_grid);
    const xe::Divider rows = xe::Divider::ofRows(*m_grid);
    m_grid->SetCapture();
    if (m_grid->m_MouseMode == CGridCtrl_X::MOUSE_NOTHING) {
        CPoint point = m_point;
        if (m_grid->m_bAllowColumnResize && m_grid->MouseOverColumnResizeArea(point))
            m_grid->m_MouseMode = columns.over;
        else if (m_grid->m_bAllowRowResize && m_grid->MouseOverRowResizeArea(point))
            m_grid->m_MouseMode = rows.over;
    }
    for (const xe::Divider* divider : {&columns, &rows}) {
        if (m_grid->m_MouseMode != divider->over)
            continue;
        m_grid->SetCursor(divider->cursor);
        xe::startSizing(*divider, m_point);
        return true;
    }
    return false;
}

void Press::select()
{
    m_grid->m_LastMousePoint = m_point;
    if (m_grid->m_MouseMode == CGridCtrl_X::MOUSE_PREPARE_DRAG)
        return;
    if (m_hasControl)
        xe::keepSelected(*m_grid);
    else
        xe::forgetStaying(*m_grid);
    if (clicked().row < m_grid->m_nFixedRows) {
        m_grid->OnFixedRowClick(clicked());
    } else if (clicked().col < m_grid->m_nFixedCols) {
        m_grid->OnFixedColumnClick(clicked());
    } else {
        m_grid->m_MouseMode = m_grid->m_bListMode ? CGridCtrl_X::MOUSE_SELECT_ROW : CGridCtrl_X::MOUSE_SELECT_CELLS;
        m_grid->OnSelecting(clicked());
    }
    if (!isAlive())
        return;
    KillTimer_X(nullptr, timerId); // another grid's, whose release was lost
    m_grid->m_nTimerID = m_grid->SetTimer(timerId, static_cast<UINT>(m_grid->m_nTimerInterval));
}

} // namespace

void CGridCtrl_X::OnLButtonDown(UINT flags, CPoint point)
{
    if (!IsWindowEnabled())
        return;
    Press press(*this, flags, point);
    if (press.takeFocus() && press.pressCell() && press.moveFocus() && !press.resize())
        press.select();
}

// ------------------------------------------------------------------------------------------------------------ headings

namespace {

class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY_MOVE(WaitCursor)
};

} // namespace

void CGridCtrl_X::OnFixedRowClick(CCellID_X& cell)
{
    if (!IsValid(cell))
        return;
    const CCellID_X clicked = cell; // it may be a field
    if (!m_bListMode) {
        m_MouseMode = clicked.col < m_nFixedCols ? MOUSE_SELECT_ALL : MOUSE_SELECT_COL;
        OnSelecting(clicked);
    } else if (m_bSortOnClick) {
        const WaitCursor cursor;
        const QPointer<CGridCtrl_X> living(this);
        SortTextItems(clicked.col, clicked.col == m_nSortColumn ? !m_bAscending : TRUE);
        if (living)
            Invalidate();
    }
}

void CGridCtrl_X::OnFixedColumnClick(CCellID_X& cell)
{
    if (!IsValid(cell))
        return;
    m_MouseMode = cell.row < m_nFixedRows ? MOUSE_SELECT_ALL : MOUSE_SELECT_ROW;
    OnSelecting(cell);
}
