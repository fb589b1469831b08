// Merged blocks, when rows and columns come and go.

#include "grid/gridstate.h"

#include <algorithm>

namespace xe {
namespace {

int& firstLine(CCellRange_X& block, GridState::Lines lines)
{
    return lines == GridState::Rows ? block.m_nMinRow : block.m_nMinCol;
}

int& lastLine(CCellRange_X& block, GridState::Lines lines)
{
    return lines == GridState::Rows ? block.m_nMaxRow : block.m_nMaxCol;
}

// The covered cells know where their block begins; so does its first cell, when it is a block of headings.
void tellCells(const CGridCtrl_X& grid, const CCellRange_X& block, const CCellRange_X& before)
{
    for (int row = block.m_nMinRow; row <= block.m_nMaxRow; ++row) {
        for (int col = block.m_nMinCol; col <= block.m_nMaxCol; ++col) {
            CGridCellBase_X* const cell = grid.cellAt(row, col);
            if (!cell || cell->m_nMasterRow != before.m_nMinRow || cell->m_nMasterCol != before.m_nMinCol)
                continue;
            cell->m_nMasterRow = block.m_nMinRow;
            cell->m_nMasterCol = block.m_nMinCol;
        }
    }
}

} // namespace

void GridState::undoBlocks(CGridCtrl_X& grid, const std::function<bool(const CCellRange_X&)>& isMeant)
{
    if (std::none_of(blocks.begin(), blocks.end(), isMeant))
        return;
    const std::vector<CCellRange_X> all = blocks;
    for (const CCellRange_X& block : all) {
        if (isMeant(block))
            grid.UndoCellCombine(block.m_nMinRow, block.m_nMinCol);
    }
    blocks.erase(std::remove_if(blocks.begin(), blocks.end(), isMeant), blocks.end());
}

void GridState::moveBlocks(const CGridCtrl_X& grid, Lines lines, int at, int by)
{
    for (CCellRange_X& block : blocks) {
        if (firstLine(block, lines) < at)
            continue;
        const CCellRange_X before = block;
        firstLine(block, lines) += by;
        lastLine(block, lines) += by;
        tellCells(grid, block, before);
    }
}

} // namespace xe
