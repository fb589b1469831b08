// The selection, as code sets it.

#include "XeGridCtrl.h"
#include "grid/selectionchange.h"
#include "grid/selectionmaps.h"
#include "xeafxmenu.h"

namespace {

// Fixed cells are not selected.
CCellRange_X withoutFixed(const CGridCtrl_X& grid, const CCellRange_X& range)
{
    const auto raised = [](int line, int first) { return line < 0 ? line : qMax(line, first); };
    return {raised(range.m_nMinRow, grid.m_nFixedRows), raised(range.m_nMinCol, grid.m_nFixedCols),
            raised(range.m_nMaxRow, grid.m_nFixedRows), raised(range.m_nMaxCol, grid.m_nFixedCols)};
}

bool hasNoGap(const CCellRange_X& range)
{
    return range.m_nMinRow >= 0 && range.m_nMinCol >= 0 && range.m_nMaxRow >= 0 && range.m_nMaxCol >= 0;
}

// The part that the grid has; four times -1 if that is none.
CCellRange_X inside(const CGridCtrl_X& grid, const CCellRange_X& range)
{
    const CCellRange_X cut(range.m_nMinRow, range.m_nMinCol, qMin(range.m_nMaxRow, grid.m_nRows - 1),
                           qMin(range.m_nMaxCol, grid.m_nCols - 1));
    return grid.IsValid(cut) ? cut : CCellRange_X();
}

// Where a selection to a cell begins: at the anchor, or at the cell itself if there is none.
CCellID_X anchorOf(const CGridCtrl_X& grid, const CCellID_X& cell)
{
    return grid.IsValid(grid.m_SelectionStartCell) ? grid.m_SelectionStartCell : cell;
}

} // namespace

void CGridCtrl_X::SetSelectedRange(int minRow, int minCol, int maxRow, int maxCol, int)
{
    if (!m_bEnableSelection)
        return;
    const CCellRange_X wanted = withoutFixed(*this, {minRow, minCol, maxRow, maxCol});
    const CCellRange_X range = inside(*this, wanted);
    xe::SelectionChange change(*this);
    change.deselectOutside(range);
    if (!m_bSingleRowSelection && hasNoGap(wanted))
        change.selectStaying();
    change.select(range);
    change.repaint();
}

void CGridCtrl_X::ResetSelectedRange()
{
    xe::forgetStaying(*this);
    SetSelectedRange(-1, -1, -1, -1, FALSE);
    SetFocusCell(-1, -1);
}

CCellRange_X CGridCtrl_X::GetSelectedCellRange() const
{
    CCellRange_X range(m_nRows, m_nCols, -1, -1);
    for (const CCellID_X& cell : xe::selectedCells(*this)) {
        range.m_nMinRow = qMin(range.m_nMinRow, cell.row);
        range.m_nMinCol = qMin(range.m_nMinCol, cell.col);
        range.m_nMaxRow = qMax(range.m_nMaxRow, cell.row);
        range.m_nMaxCol = qMax(range.m_nMaxCol, cell.col);
    }
    return range;
}

// ----------------------------------------------------------------------------------------- what a mouse or key selects

void CGridCtrl_X::SelectAllCells() { SetSelectedRange(m_nFixedRows, m_nFixedCols, m_nRows - 1, m_nCols - 1); }

void CGridCtrl_X::SelectColumns(CCellID_X cell)
{
    if (!m_bEnableSelection || !IsValid(cell) || cell.col < m_nFixedCols)
        return;
    const int from = anchorOf(*this, cell).col;
    SetSelectedRange(m_nFixedRows, qMin(from, cell.col), m_nRows - 1, qMax(from, cell.col));
}

void CGridCtrl_X::SelectRows(CCellID_X cell)
{
    if (!m_bEnableSelection || !IsValid(cell) || cell.row < m_nFixedRows)
        return;
    const bool isSingle = m_bListMode && m_bSingleRowSelection;
    const int from = isSingle ? cell.row : anchorOf(*this, cell).row;
    SetSelectedRange(qMin(from, cell.row), m_nFixedCols, qMax(from, cell.row), m_nCols - 1);
}

void CGridCtrl_X::SelectCells(CCellID_X cell)
{
    if (!m_bEnableSelection || !IsValid(cell) || IsCellFixed(cell.row, cell.col))
        return;
    const CCellID_X from = anchorOf(*this, cell);
    SetSelectedRange(qMin(from.row, cell.row), qMin(from.col, cell.col), qMax(from.row, cell.row),
                     qMax(from.col, cell.col));
}

void CGridCtrl_X::OnSelecting(const CCellID_X& cell)
{
    if (!m_bEnableSelection)
        return;
    switch (m_MouseMode) {
    case MOUSE_SELECT_ALL:
        SelectAllCells();
        break;
    case MOUSE_SELECT_COL:
        SelectColumns(cell);
        break;
    case MOUSE_SELECT_ROW:
        SelectRows(cell);
        break;
    case MOUSE_SELECT_CELLS:
        SelectCells(cell);
        break;
    default:
        break;
    }
}

void CGridCtrl_X::OnEditSelectAll() { SelectAllCells(); }

void CGridCtrl_X::OnUpdateEditSelectAll(CCmdUI_X* command)
{
    if (command)
        command->Enable(m_bEnableSelection ? 1 : 0);
}
