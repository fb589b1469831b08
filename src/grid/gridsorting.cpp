#include "grid/gridsorting.h"

#include "grid/gridstate.h"
#include "grid/selectionmaps.h"

#include <algorithm>

namespace xe {

namespace {

constexpr unsigned fixed = CGridCellBase_X::Fixed;

} // namespace

RowSorting::RowSorting(CGridCtrl_X& grid, int column, int low, int high) : m_grid(grid), m_low(low)
{
    for (int row = low; row <= high; ++row)
        m_texts.push_back(grid.GetItemText(row, column));
    for (std::size_t i = 0; i < m_texts.size(); ++i)
        m_order.push_back({std::wstring_view(m_texts[i].GetString(), static_cast<std::size_t>(m_texts[i].GetLength())),
                           low + static_cast<int>(i)});
}

void RowSorting::sort(bool ascending)
{
    const Index last = static_cast<Index>(m_order.size()) - 1;
    if (ascending)
        sort(0, last, [](std::wstring_view a, std::wstring_view b) { return a < b; });
    else
        sort(0, last, [](std::wstring_view a, std::wstring_view b) { return b < a; });
}

// The order of equal texts is what these exchanges make of it. The larger part is left to the loop, so that the stack
// stays small.
template <class Before>
void RowSorting::sort(Index low, Index high, Before before)
{
    const auto at = [this](Index i) -> Entry& { return m_order[static_cast<std::size_t>(i)]; };
    while (low < high) {
        const std::wstring_view middle = at((low + high) / 2).text;
        Index i = low;
        Index j = high;
        while (i <= j) {
            while (i < high && before(at(i).text, middle))
                ++i;
            while (j > low && before(middle, at(j).text))
                --j;
            if (i > j)
                break;
            if (at(i).text != at(j).text)
                std::swap(at(i), at(j));
            ++i;
            --j;
        }
        if (j - low < high - i) {
            sort(low, j, before);
            low = i;
        } else {
            sort(i, high, before);
            high = j;
        }
    }
}

void RowSorting::moveRows()
{
    undoBlocks();
    placeRows();
    tellPlaces();
    moveMarks();
}

void RowSorting::undoBlocks()
{
    std::vector<CCellID_X> masters;
    for (const CCellRange_X& block : GridState::of(m_grid).blocks) {
        const int last = qMin(block.m_nMaxRow, m_low + static_cast<int>(m_order.size()) - 1);
        for (int row = qMax(block.m_nMinRow, m_low); row <= last; ++row) {
            if (m_order[static_cast<std::size_t>(row - m_low)].row != row) {
                masters.emplace_back(block.m_nMinRow, block.m_nMinCol);
                break;
            }
        }
    }
    for (const CCellID_X& master : masters)
        m_grid.UndoCellCombine(master.row, master.col);
}

void RowSorting::placeRows()
{
    const auto first = m_grid.m_RowData.begin() + m_low;
    const std::vector<CGridCtrl_X::GridRow*> rows(first, first + static_cast<Index>(m_order.size()));
    const unsigned* const data = m_grid.m_arRowHeights.GetData();
    const bool hasHeights = m_grid.m_arRowHeights.GetSize() >= m_low + static_cast<Index>(m_order.size());
    const std::vector<unsigned> heights =
        hasHeights ? std::vector<unsigned>(data + m_low, data + m_low + m_order.size()) : std::vector<unsigned>();
    for (std::size_t i = 0; i < m_order.size(); ++i) {
        const auto from = static_cast<std::size_t>(m_order[i].row - m_low);
        m_grid.m_RowData[static_cast<std::size_t>(m_low) + i] = rows[from];
        if (hasHeights)
            m_grid.m_arRowHeights.SetAt(m_low + static_cast<Index>(i), heights[from]);
    }
    GridState::of(m_grid).rows.reset();
}

// Cells know their place, and whether it is a heading.
void RowSorting::tellPlaces()
{
    for (std::size_t i = 0; i < m_order.size(); ++i) {
        const int row = m_low + static_cast<int>(i);
        for (int col = 0; m_order[i].row != row && col < m_grid.m_nCols; ++col) {
            CGridCellBase_X* const cell = m_grid.cellAt(row, col);
            if (!cell)
                continue;
            cell->SetCoords(row, col);
            const bool isFixed = m_grid.IsCellFixed(row, col);
            if (isFixed != static_cast<bool>(cell->GetState() & fixed))
                cell->SetState(cell->GetState() ^ fixed);
        }
    }
}

// Focus and selection go with their cells.
void RowSorting::moveMarks()
{
    std::vector<int> rowOf(m_order.size());
    for (std::size_t i = 0; i < m_order.size(); ++i)
        rowOf[static_cast<std::size_t>(m_order[i].row - m_low)] = m_low + static_cast<int>(i);
    const auto isMoved = [&](int row) { return row >= m_low && row - m_low < static_cast<int>(rowOf.size()); };
    CCellID_X& focus = m_grid.m_idCurrentCell;
    if (isMoved(focus.row))
        focus.row = rowOf[static_cast<std::size_t>(focus.row - m_low)];

    const std::vector<CCellID_X> cells = selectedCells(m_grid);
    if (cells.empty())
        return;
    GridState& state = GridState::of(m_grid);
    m_grid.m_SelectedCellMap.RemoveAll();
    state.farSelected.clear();
    state.lastRange = CCellRange_X();
    for (CCellID_X cell : cells) {
        if (isMoved(cell.row))
            cell.row = rowOf[static_cast<std::size_t>(cell.row - m_low)];
        state.noteSelected(m_grid, cell.row, cell.col, true);
    }
}

} // namespace xe
