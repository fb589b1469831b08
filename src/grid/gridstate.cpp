#include "grid/gridstate.h"

namespace xe {

void GridState::noteSelected(CGridCtrl_X& grid, int row, int col, bool isSelected)
{
    CCellID_X cell(row, col);
    if (!fitsSelectionKey(row, col))
        isSelected ? void(farSelected.insert(farKey(row, col))) : void(farSelected.erase(farKey(row, col)));
    else if (isSelected)
        grid.m_SelectedCellMap.SetAt(selectionKey(row, col), cell);
    else
        grid.m_SelectedCellMap.RemoveKey(selectionKey(row, col));
}

} // namespace xe
