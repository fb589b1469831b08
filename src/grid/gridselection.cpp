#include "XeGridCtrl.h"

CCellID_X CGridCtrl_X::SetFocusCell(CCellID_X cell)
{
    const CCellID_X before = m_idCurrentCell;
    m_idCurrentCell = cell;
    return before;
}

void CGridCtrl_X::SetSelectedRange(int, int, int, int, int) {}
void CGridCtrl_X::ResetSelectedRange() { SetFocusCell(-1, -1); }
void CGridCtrl_X::SelectAllCells() {}
void CGridCtrl_X::SelectColumns(CCellID_X) {}
void CGridCtrl_X::SelectRows(CCellID_X) {}
void CGridCtrl_X::SelectCells(CCellID_X) {}
void CGridCtrl_X::OnSelecting(const CCellID_X&) {}
CCellRange_X CGridCtrl_X::GetSelectedCellRange() const { return {m_nRows, m_nCols, -1, -1}; }
CCellID_X CGridCtrl_X::GetNextItem(CCellID_X&, int) const { return {}; }
void CGridCtrl_X::OnEditSelectAll() { SelectAllCells(); }
void CGridCtrl_X::OnUpdateEditSelectAll(CCmdUI_X*) {}
