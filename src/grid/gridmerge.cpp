// Merged blocks of cells.

#include "XeGridCtrl.h"

#include "grid/gridstate.h"

#include <algorithm>

namespace {

// Whether a block of cells from one on lies in the grid.
bool fits(const CGridCtrl_X& grid, int row, int col, int rows, int cols)
{
    return grid.IsValid(row, col) && rows >= 0 && cols >= 0 && rows < grid.m_nRows - row && cols < grid.m_nCols - col;
}

template <class Visit>
void forEachCell(const CGridCtrl_X& grid, const CCellRange_X& range, Visit visit)
{
    for (int row = range.m_nMinRow; row <= range.m_nMaxRow; ++row) {
        for (int col = range.m_nMinCol; col <= range.m_nMaxCol; ++col) {
            if (CGridCellBase_X* const cell = grid.cellAt(row, col))
                visit(*cell, row, col);
        }
    }
}

bool isOccupied(const CGridCtrl_X& grid, const CCellRange_X& range)
{
    bool occupied = false;
    forEachCell(grid, range, [&](const CGridCellBase_X& cell, int, int) {
        occupied = occupied || cell.m_bMergeSlave || cell.m_nMergeRows > 0 || cell.m_nMergeCols > 0;
    });
    return occupied;
}

void clearMerging(CGridCellBase_X& cell)
{
    cell.m_bMergeRight = 0;
    cell.m_bMergeBottom = 0;
    cell.m_bMergeSlave = 0;
    cell.m_nMergeStyle = 0;
    cell.m_nMergeRows = 0;
    cell.m_nMergeCols = 0;
    cell.m_nMasterRow = 0;
    cell.m_nMasterCol = 0;
}

void cover(CGridCellBase_X& cell, const CCellID_X& master)
{
    cell.m_bMergeSlave = 1;
    cell.m_nMasterRow = master.row;
    cell.m_nMasterCol = master.col;
}

} // namespace

int CGridCtrl_X::SetCellCombine(int row, int col, int nRows, int nCols, int style)
{
    CGridCellBase_X* const first = cellAt(row, col);
    if (!first || !fits(*this, row, col, nRows, nCols))
        return FALSE;
    if (IsCellFixed(row, col))
        return TRUE;
    const CCellRange_X block(row, col, row + nRows, col + nCols);
    if (isOccupied(*this, block))
        return FALSE;
    forEachCell(*this, block, [&](CGridCellBase_X& cell, int r, int c) {
        cell.m_nMergeStyle = static_cast<unsigned>(style);
        if (&cell == first)
            return;
        cover(cell, {row, col});
        cell.m_bMergeRight = c < block.m_nMaxCol;
        cell.m_bMergeBottom = r < block.m_nMaxRow;
    });
    first->m_nMergeRows = nRows;
    first->m_nMergeCols = nCols;
    first->m_bMergeBottom = nRows > 0;
    first->m_bMergeRight = nCols > 0;
    if (nRows > 0 || nCols > 0)
        m_state->blocks.push_back(block);
    Refresh();
    return TRUE;
}

int CGridCtrl_X::SetFixedCellCombine(int row, int col, int nRows, int nCols)
{
    CGridCellBase_X* const first = cellAt(row, col);
    if (!first || !fits(*this, row, col, nRows, nCols) || !IsCellFixed(row + nRows, col + nCols))
        return FALSE;
    const CCellRange_X block(row, col, row + nRows, col + nCols);
    if (isOccupied(*this, block))
        return FALSE;
    forEachCell(*this, block, [&](CGridCellBase_X& cell, int, int) {
        if (&cell != first)
            cover(cell, {row, col});
    });
    first->m_nMergeRows = nRows;
    first->m_nMergeCols = nCols;
    first->m_nMasterRow = row;
    first->m_nMasterCol = col;
    if (nRows > 0 || nCols > 0)
        m_state->blocks.push_back(block);
    Refresh();
    return TRUE;
}

int CGridCtrl_X::UndoCellCombine(int row, int col)
{
    CGridCellBase_X* const first = cellAt(row, col);
    if (!first)
        return FALSE;
    const int rows = first->m_nMergeRows;
    const int cols = first->m_nMergeCols;
    if (rows < 0 || cols < 0) {
        first->m_bMergeRight = first->m_bMergeBottom = first->m_bMergeSlave = 0;
        first->m_nMergeRows = first->m_nMergeCols = 0;
    } else if (rows > 0 || cols > 0) {
        const CCellRange_X block(row, col, row + qMin(rows, m_nRows - 1 - row), col + qMin(cols, m_nCols - 1 - col));
        forEachCell(*this, block, [](CGridCellBase_X& cell, int, int) { clearMerging(cell); });
        const auto beginsHere = [=](const CCellRange_X& known) {
            return known.m_nMinRow == row && known.m_nMinCol == col;
        };
        auto& blocks = m_state->blocks;
        blocks.erase(std::remove_if(blocks.begin(), blocks.end(), beginsHere), blocks.end());
    }
    Refresh();
    return TRUE;
}
