// The selection, when cells come and go.

#include "grid/gridstate.h"

#include "grid/editorlife.h"

namespace xe {
namespace {

std::vector<CCellID_X> cellsOf(const CGridCtrl_X::SelectionMap& map)
{
    std::vector<CCellID_X> cells;
    cells.reserve(static_cast<std::size_t>(map.GetCount()));
    for (auto* pair = map.PGetFirstAssoc(); pair; pair = map.PGetNextAssoc(pair))
        cells.push_back(pair->value);
    return cells;
}

} // namespace

// An editor whose cell has not taken it along.
GridState::~GridState()
{
    if (editor)
        EditorLife::dismiss(editor->editor());
}

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

void GridState::deselectAll(CGridCtrl_X& grid)
{
    const auto deselect = [&grid](int row, int col) {
        grid.SetItemState(row, col, grid.GetItemState(row, col) & ~UINT(CGridCellBase_X::Selected));
    };
    for (const CCellID_X& cell : cellsOf(grid.m_SelectedCellMap))
        deselect(cell.row, cell.col);
    const auto far = std::vector<unsigned long long>(farSelected.begin(), farSelected.end());
    for (const unsigned long long key : far)
        deselect(farRow(key), farColumn(key));
    grid.m_SelectedCellMap.RemoveAll();
    grid.m_PrevSelectedCellMap.RemoveAll();
    farSelected.clear();
}

void GridState::forgetGone(CGridCtrl_X& grid)
{
    for (CGridCtrl_X::SelectionMap* map : {&grid.m_SelectedCellMap, &grid.m_PrevSelectedCellMap}) {
        if (map->IsEmpty())
            continue;
        for (const CCellID_X& cell : cellsOf(*map)) {
            if (!grid.IsValid(cell))
                map->RemoveKey(selectionKey(cell.row, cell.col));
        }
    }
}

} // namespace xe
