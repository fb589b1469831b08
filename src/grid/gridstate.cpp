// The selection, when cells come and go.

#include "grid/gridstate.h"

#include "grid/editorlife.h"
#include "grid/selectionchange.h"
#include "grid/selectionmaps.h"

#include <iterator>

namespace xe {

// An editor whose cell has not taken it along.
GridState::~GridState()
{
    if (editor)
        EditorLife::dismiss(editor->editor());
}

void GridState::noteSelected(CGridCtrl_X& grid, int row, int col, bool isSelected)
{
    if (!fitsSelectionKey(row, col)) {
        isSelected ? void(farSelected.insert(farKey(row, col))) : void(farSelected.erase(farKey(row, col)));
    } else if (isSelected) {
        CCellID_X cell(row, col);
        reserveKeys(grid.m_SelectedCellMap, 1);
        grid.m_SelectedCellMap.SetAt(selectionKey(row, col), cell);
    } else {
        grid.m_SelectedCellMap.RemoveKey(selectionKey(row, col));
    }
}

void GridState::deselectAll(CGridCtrl_X& grid)
{
    SelectionChange(grid).deselectOutside(CCellRange_X());
    forgetStaying(grid);
}

// Without a list of them, for which there may be no memory.
void GridState::forgetGone(CGridCtrl_X& grid)
{
    for (CGridCtrl_X::SelectionMap* map : {&grid.m_SelectedCellMap, &grid.m_PrevSelectedCellMap}) {
        for (const auto* pair = map->PGetFirstAssoc(); pair;) {
            const unsigned key = pair->key;
            pair = map->PGetNextAssoc(pair);
            if (!grid.IsValid(static_cast<int>(key & 0xFFFF), static_cast<int>(key >> 16)))
                map->RemoveKey(key);
        }
    }
    for (auto* far : {&farSelected, &farPrevSelected}) {
        for (auto key = far->begin(); key != far->end();)
            key = grid.IsValid(farRow(*key), farColumn(*key)) ? std::next(key) : far->erase(key);
    }
}

} // namespace xe
